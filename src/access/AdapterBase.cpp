#include <cstdio>

#include "ZARODatos/access/TableAdapter.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO {

using detail::LeerMiembro;

namespace {
const char kSinConexion[] = "No se ha establecido una conexi\xC3\xB3n";
const char kSinConexionLectura[] = "No se ha establecido una conexin";
void AnexarTexto(std::string& sql, std::string_view valor) { BasTroquel::AnexarTextoSQL(sql, valor); }

void AnexarFecha(std::string& sql, Date fecha) {
    DateParts p = fecha.Split();
    char buf[32];
    int n = std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", p.Year, p.Month, p.Day);
    sql.append(buf, static_cast<size_t>(n));
}

// The value of a field as SQL, with the opening apostrophe of a text or a
// date left to the caller (the set list carries it in its literal).
void AnexarValorSinApertura(std::string& sql, const CampoDef& c, const Variant& v) {
    switch (c.Tipo) {
        case TipoCampo::Entero:
        case TipoCampo::Doble:
            sql += BasTroquel::NormalizarNumero(CStr(v));
            break;
        case TipoCampo::Fecha:
            AnexarFecha(sql, CDate(v));
            sql += '\'';
            break;
        case TipoCampo::Texto:
            if (const std::string* s = v.GetIf<std::string>()) AnexarTexto(sql, *s);
            else AnexarTexto(sql, CStr(v));
            sql += '\'';
            break;
    }
}

bool ConApostrofo(const CampoDef& c) { return c.Tipo == TipoCampo::Fecha || c.Tipo == TipoCampo::Texto; }

void AnexarLiteral(std::string& sql, const CampoDef& c, const Variant& v) {
    if (ConApostrofo(c)) sql += '\'';
    AnexarValorSinApertura(sql, c, v);
}

bool TieneValor(const Variant& v) {
    if (const std::string* s = v.GetIf<std::string>()) return !s->empty();
    if (const int32_t* i = v.GetIf<int32_t>()) return *i != 0;
    if (const double* d = v.GetIf<double>()) return *d != 0;
    if (const Date* f = v.GetIf<Date>()) return !f->IsZero();
    return !v.IsEmpty();
}
}  // namespace

AdapterBase::AdapterBase(const TablaDef& def) : def_(def) { Tabla(std::string(def.Tabla)); }

void AdapterBase::Tabla(const std::string& valor) {
    tabla_ = valor;
    ConstruirSelect();
}

void AdapterBase::ConstruirSelect() {
    auto unir = [this](const std::vector<std::string_view>& piezas) {
        std::string r;
        for (std::string_view p : piezas) {
            if (!p.empty() && p.front() == '.') r += tabla_;
            r += p;
        }
        return r;
    };
    selectSQL_ = unir(def_.Select) + " from " + tabla_ + " ";
    OrderBy = unir(def_.OrderBy);
}

void AdapterBase::Registrar(const std::string& sql) { Registrar(std::string(sql)); }

void AdapterBase::Registrar(std::string&& sql) {
    if (!LogSQL) LogSQL = std::make_shared<Collection>();
    LogSQL->Add(Variant(std::move(sql)));
}

ConnectionRef& AdapterBase::ElegirConexion(ConexionArg& adConexion, const char* descripcion) {
    if (!*adConexion && Conexion) *adConexion = Conexion;
    if (!*adConexion) throw Error(1, def_.FuenteAdapter, descripcion);
    return *adConexion;
}

bool AdapterBase::CamposOkDe(IEntidad& e, std::string& strMensajes) {
    try {
        strMensajes.clear();
        bool ok = true;
        for (int16_t pos : def_.PorRequerido) {
            const CampoDef& c = def_.Campos[static_cast<size_t>(pos)];
            bool falla = false;
            switch (c.Tipo) {
                case TipoCampo::Texto: falla = (e.*c.Miembro.Texto).empty(); break;
                case TipoCampo::Entero: falla = e.*c.Miembro.Entero == 0; break;
                case TipoCampo::Doble: falla = e.*c.Miembro.Doble == 0; break;
                case TipoCampo::Fecha: falla = (e.*c.Miembro.Fecha).IsZero(); break;
            }
            if (falla) {
                strMensajes += "\tEl campo [";
                strMensajes += c.Nombre;
                strMensajes += "] es obligatorio.\r\n";
                ok = false;
            }
        }
        if (!ok) strMensajes = "\r\n\r\n" + strMensajes;
        return ok;
    } catch (...) {
        Reraise("CamposOk");
    }
}

namespace {
// How key conditions are joined: what goes before the first and before each
// later one, and whether a key at its empty value is left out.
struct Enlace {
    std::string_view primera;
    std::string_view siguiente;
    bool omitirVacias;
};
// The conditions of one row, after a where the statement writes itself.
constexpr Enlace kDeUnaFila{"", "   and ", false};
// The filter of Listar: a key at its empty value adds no condition.
constexpr Enlace kDeFiltro{" where  ", " and  ", true};

// The key conditions: <prefijo>.<column> = <literal>, joined as `enlace` says.
void AnexarCondiciones(std::string& sql, const TablaDef& t, std::string_view prefijo,
                       const std::vector<Variant>& claves, const Enlace& enlace) {
    // As many values as the key has fields: a table whose own operations give
    // another number has a broken description.
    if (claves.size() != t.PorClave.size())
        t.Rota(std::to_string(claves.size()) + " key values given where the key has " +
               std::to_string(t.PorClave.size()) + " fields");
    bool primera = true;
    for (size_t k = 0; k < t.PorClave.size(); ++k) {
        if (enlace.omitirVacias && !TieneValor(claves[k])) continue;
        const CampoDef& c = t.Campos[static_cast<size_t>(t.PorClave[k])];
        sql += primera ? enlace.primera : enlace.siguiente;
        primera = false;
        sql += prefijo;
        sql += '.';
        sql += c.Nombre;
        sql += " = ";
        AnexarLiteral(sql, c, claves[k]);
    }
}

std::vector<Variant> ClavesDe(IEntidad& e, const TablaDef& t) {
    std::vector<Variant> claves;
    claves.reserve(t.PorClave.size());
    for (int16_t pos : t.PorClave) claves.push_back(LeerMiembro(e, t.Campos[static_cast<size_t>(pos)]));
    return claves;
}
}  // namespace

bool AdapterBase::ExisteDe(IEntidad& e, ConexionArg adConexion) {
    // No handler: errors pass through.
    ConnectionRef& conexion = ElegirConexion(adConexion, kSinConexion);
    std::string sql = "select count(*) from " + tabla_ + " " + " where ";
    AnexarCondiciones(sql, def_, tabla_, ClavesDe(e, def_), kDeUnaFila);
    sql += "  ";
    Variant n = BasTroquel::ValorPorDefecto(BasTroquel::ObtenerValorSQL(conexion, sql, std::string()), int16_t{0});
    return CompareVariants(n, Variant(int16_t{0}), CompareMethod::Binary) != CompareResult::Equal;
}

void AdapterBase::InsertDe(IEntidad& e, ConexionArg adConexion) {
    // No handler: errors pass through.
    ConnectionRef& conexion = ElegirConexion(adConexion, kSinConexion);
    // The existence check always runs on Conexion, not on adConexion.
    if (ExisteDe(e, ConexionArg(Conexion))) {
        std::string texto = "El registro ya existe.\r\n\r\n";
        for (int16_t pos : def_.PorClave) {
            const CampoDef& c = def_.Campos[static_cast<size_t>(pos)];
            texto += '\t';
            texto += c.Nombre;
            texto += " = ";
            texto += CStr(LeerMiembro(e, c));
            texto += "\r\n";
        }
        texto += "  ";
        throw Error(1, def_.FuenteAdapter, texto);
    }
    std::string sql = "insert into " + tabla_ + " ";
    for (std::string_view p : def_.Insert) sql += p;
    sql += " values ";
    sql += " (";
    bool primero = true;
    for (const CampoDef& c : def_.Campos) {
        if (!primero) sql += ", ";
        primero = false;
        AnexarLiteral(sql, c, LeerMiembro(e, c));
        sql += c.TrasValor;
    }
    sql += ")";
    BasTroquel::EjecutarSQL(conexion, sql);
    Registrar(std::move(sql));
}

void AdapterBase::UpdateDe(IEntidad& e, ConexionArg adConexion) {
    try {
        ConnectionRef& conexion = ElegirConexion(adConexion, kSinConexion);
        std::string sql = "update " + tabla_ + " ";
        bool primero = true;
        for (int16_t pos : def_.PorSet) {
            const CampoDef& c = def_.Campos[static_cast<size_t>(pos)];
            if (!c.LiteralSet.empty()) {
                sql += c.LiteralSet;
            } else {
                sql += primero ? " set " : "   , ";
                sql += c.Nombre;
                sql += " = ";
                if (ConApostrofo(c)) sql += '\'';
            }
            primero = false;
            AnexarValorSinApertura(sql, c, LeerMiembro(e, c));
            sql += c.TrasValor;
        }
        sql += " where ";
        AnexarCondiciones(sql, def_, tabla_, ClavesDe(e, def_), kDeUnaFila);
        sql += "  ";
        BasTroquel::EjecutarSQL(conexion, sql);
        Registrar(std::move(sql));
    } catch (...) {
        Reraise(def_.FuenteUpdate);
    }
}

void AdapterBase::DeleteDe(const std::vector<Variant>& claves, ConexionArg adConexion,
                           const std::string* tablaArgumento) {
    // No handler: errors pass through.
    ConnectionRef& conexion = ElegirConexion(adConexion, kSinConexion);
    const std::string& tabla = tablaArgumento ? *tablaArgumento : tabla_;
    std::string sql = "delete from " + tabla + " " + " where ";
    AnexarCondiciones(sql, def_, tabla, claves, kDeUnaFila);
    sql += "  ";
    BasTroquel::EjecutarSQL(conexion, sql);
    Registrar(std::move(sql));
}

std::string AdapterBase::ConsultaEntidad(const std::vector<Variant>& claves) const {
    std::string sql = selectSQL_ + " where ";
    AnexarCondiciones(sql, def_, tabla_, claves, kDeUnaFila);
    sql += "  ";
    return sql;
}

std::string AdapterBase::ConsultaListar(const std::vector<Variant>& claves, const std::string* tablaArgumento) const {
    std::string sql = selectSQL_;
    AnexarCondiciones(sql, def_, tablaArgumento ? *tablaArgumento : tabla_, claves, kDeFiltro);
    return sql;
}

std::string AdapterBase::ConsultaWhere(std::string& strWhere) const {
    // The word where anywhere in the text, in any case, suppresses the prefix.
    if (!Trim(strWhere).empty() && !ContainsText(strWhere, "where")) strWhere = " where " + strWhere;
    return selectSQL_ + " " + strWhere;
}

std::shared_ptr<ADODB::Recordset> AdapterBase::rsListar_SQLQuery(ByRef<std::string> sqlQueryText,
                                                                 ConexionArg adConexion) {
    try {
        ConnectionRef& conexion = ElegirConexion(adConexion, kSinConexionLectura);
        // An OrderBy without the words gets them in front, for good.
        if (!Trim(OrderBy).empty() && !ContainsText(OrderBy, "order by")) OrderBy = "order by " + OrderBy;
        std::string sql = ContainsText(*sqlQueryText, "order by") ? *sqlQueryText : *sqlQueryText + " " + OrderBy;
        auto rs = std::make_shared<ADODB::Recordset>();
        rs->Open(sql, conexion, ADODB::adOpenStatic, ADODB::adLockReadOnly, -1);
        Registrar(std::move(sql));
        return rs;
    } catch (...) {
        Reraise(def_.FuenteAdapter);
    }
}

std::shared_ptr<ADODB::Recordset> AdapterBase::rsListarWhere(ByRef<std::string> strWhere, ConexionArg adConexion) {
    std::string consulta = ConsultaWhere(*strWhere);
    auto rs = rsListar_SQLQuery(consulta, adConexion);
    Registrar(selectSQL_);
    return rs;
}

bool AdapterBase::CrearTabla() {
    try {
        auto rs = std::make_shared<ADODB::Recordset>();
        rs->Open("SHOW TABLES LIKE '" + tabla_ + "'", Conexion, ADODB::adOpenForwardOnly, ADODB::adLockReadOnly, -1);
        if (!(rs->BOF() && rs->EOF_())) {
            Variant n = BasTroquel::ObtenerValorSQL(Conexion, "select count(*) from " + tabla_, std::string());
            if (CompareVariants(n, Variant(int16_t{0}), CompareMethod::Binary) != CompareResult::Equal) return false;
            Conexion->Execute("drop table IF EXISTS " + tabla_, -1);
        }
        std::string sql = "CREATE TABLE `" + tabla_ + "` ( ";
        for (const CampoDef& c : def_.Campos) sql += c.Definicion;
        sql += def_.PrimaryKey;
        sql += ") ENGINE=MyISAM DEFAULT CHARSET=latin1";
        Conexion->Execute(sql, -1);
        return true;
    } catch (...) {
        return false;
    }
}

void AdapterBase::AnexarFilaTexto(std::string& texto, IEntidad& e, const std::string& separador) const {
    const int32_t n = e.NumCampos();
    for (int32_t i = 1; i <= n; ++i) {
        const int pos = def_.PorIndice(i);
        if (pos < 0) {
            // Outside the table's index table: through the contract.
            int16_t indice = CInt(Variant(i));
            if (e.GetNombreCampo(indice) == "bloq") texto += '0';
            else texto += CStr(e.GetValorIndice(indice));
        } else {
            const CampoDef& c = def_.Campos[static_cast<size_t>(pos)];
            if (c.Nombre == "bloq") texto += '0';  // a field called bloq is always written as 0
            else if (c.Tipo == TipoCampo::Texto) texto += e.*c.Miembro.Texto;
            else texto += CStr(LeerMiembro(e, c));
        }
        texto += separador;
    }
    texto += "\r\n";
}

std::vector<std::string_view> AdapterBase::PartirTexto(std::string_view texto, std::string_view separador) const {
    std::vector<std::string_view> piezas;
    if (separador.empty()) {
        piezas.push_back(texto);
        return piezas;
    }
    size_t inicio = 0;
    for (;;) {
        size_t fin = texto.find(separador, inicio);
        if (fin == std::string_view::npos) {
            piezas.push_back(texto.substr(inicio));
            return piezas;
        }
        piezas.push_back(texto.substr(inicio, fin - inicio));
        inicio = fin + separador.size();
    }
}

}  // namespace OVT_ZARO
