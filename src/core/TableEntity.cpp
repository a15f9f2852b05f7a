#include "ZARODatos/core/TableEntity.h"

#include <algorithm>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/XML.h"
#include "platform/adodb/Access.h"

namespace OVT_ZARO {

namespace {
const char kError[] = "#ERROR#";

// Field names are ASCII: compared ignoring case without allocating.
bool MismoNombre(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 32);
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 32);
        if (x != y) return false;
    }
    return true;
}

std::vector<int16_t> OrdenarPor(const std::vector<CampoDef>& campos, int16_t CampoDef::*lugar) {
    std::vector<int16_t> r;
    for (size_t i = 0; i < campos.size(); ++i)
        if (campos[i].*lugar > 0) r.push_back(static_cast<int16_t>(i));
    std::stable_sort(r.begin(), r.end(), [&](int16_t a, int16_t b) { return campos[a].*lugar < campos[b].*lugar; });
    return r;
}
}  // namespace

int TablaDef::Buscar(std::string_view nombre) const {
    for (size_t i = 0; i < Campos.size(); ++i)
        if (MismoNombre(Campos[i].Nombre, nombre)) return static_cast<int>(i);
    return -1;
}

int TablaDef::PorIndice(int indice) const {
    if (indice < 1 || static_cast<size_t>(indice) > Indices.size()) return -1;
    return Indices[static_cast<size_t>(indice - 1)];
}

void TablaDef::Rota(const std::string& problema) const {
    throw Error(51, "TablaDef", "Table description " + std::string(Tabla) + ": " + problema);
}

int16_t TablaDef::Campo(std::string_view nombre) const {
    const int p = Buscar(nombre);
    if (p < 0) Rota(std::string(nombre) + " names no field");
    return static_cast<int16_t>(p);
}

namespace {
// The names a list of SQL pieces gives: each piece that begins with "." (the
// table's name goes in front of it) names the field up to a blank or comma.
std::vector<std::string> NombresDeSelect(const std::vector<std::string_view>& piezas) {
    std::vector<std::string> r;
    for (std::string_view p : piezas) {
        if (p.empty() || p[0] != '.') continue;
        const size_t fin = p.find_first_of(" ,", 1);
        r.emplace_back(p.substr(1, fin == std::string_view::npos ? std::string_view::npos : fin - 1));
    }
    return r;
}

// The names of the column list of Insert: between "(" and ")", split by ",".
std::vector<std::string> NombresDeInsert(const std::vector<std::string_view>& piezas) {
    std::string texto;
    for (std::string_view p : piezas) texto += p;
    std::vector<std::string> r;
    const size_t a = texto.find('('), b = texto.rfind(')');
    if (a == std::string::npos || b == std::string::npos || b < a) return r;
    std::string nombre;
    for (size_t i = a + 1; i <= b; ++i) {
        const char c = texto[i];
        if (c == ',' || c == ')') {
            if (!nombre.empty()) r.push_back(nombre);
            nombre.clear();
        } else if (c != ' ') {
            nombre += c;
        }
    }
    return r;
}
}  // namespace

void TablaDef::Completar() {
    // Places of the index, the key, the checks and the set list: 1, 2, 3 ... without a gap.
    for (size_t i = 0; i < Indices.size(); ++i)
        if (Indices[i] < 0) Rota("index place " + std::to_string(i + 1) + " is left out");
    auto seguidos = [this](int16_t CampoDef::*lugar, const char* que) {
        std::vector<int16_t> lugares;
        for (const CampoDef& c : Campos)
            if (c.*lugar > 0) lugares.push_back(c.*lugar);
        std::sort(lugares.begin(), lugares.end());
        for (size_t i = 0; i < lugares.size(); ++i)
            if (lugares[i] != static_cast<int16_t>(i + 1))
                Rota(std::string(que) + " places are not 1 to " + std::to_string(lugares.size()) +
                     " without a gap (place " + std::to_string(i + 1) + ")");
    };
    seguidos(&CampoDef::Clave, "key");
    seguidos(&CampoDef::Requerido, "required");
    seguidos(&CampoDef::Set, "set");
    // The select list names once each field that has a column of the table
    // (a field without one is read by no select); the insert list names every
    // field once.
    auto cadaCampoUnaVez = [this](const std::vector<std::string>& nombres, const char* que, bool soloConColumna) {
        if (nombres.empty()) return;  // a table with no pieces of its own
        std::vector<int> veces(Campos.size(), 0);
        for (const std::string& n : nombres) {
            const int p = Buscar(n);
            if (p < 0) Rota(std::string(que) + " names " + n + ", which is no field");
            ++veces[static_cast<size_t>(p)];
        }
        for (size_t i = 0; i < Campos.size(); ++i) {
            const int debidas = soloConColumna && Campos[i].Definicion.empty() ? 0 : 1;
            if (veces[i] != debidas)
                Rota(std::string(que) + " names " + std::string(Campos[i].Nombre) + " " +
                     std::to_string(veces[i]) + " times");
        }
    };
    cadaCampoUnaVez(NombresDeSelect(Select), "the select list", true);
    cadaCampoUnaVez(NombresDeInsert(Insert), "the insert list", false);
    for (std::string_view n : ArgumentosAdd)
        if (Buscar(n) < 0) Rota("the arguments of Add name " + std::string(n) + ", which is no field");
    for (std::string_view n : ArgumentosItemClave)
        if (Buscar(n) < 0) Rota("the arguments of ItemClave name " + std::string(n) + ", which is no field");
    PorClave = OrdenarPor(Campos, &CampoDef::Clave);
    PorRequerido = OrdenarPor(Campos, &CampoDef::Requerido);
    PorSet = OrdenarPor(Campos, &CampoDef::Set);
    auto posiciones = [this](const std::vector<std::string_view>& nombres) {
        std::vector<int16_t> r;
        for (std::string_view n : nombres) r.push_back(static_cast<int16_t>(Buscar(n)));
        return r;
    };
    PorArgumentoAdd = posiciones(ArgumentosAdd);
    PorArgumentoItemClave = posiciones(ArgumentosItemClave);
    const std::string tabla(Tabla);
    FuenteEntidad = tabla + "Entidad";
    FuenteSetValor = tabla + "IEntidad_SetValor";
    FuenteSetValorIndice = tabla + "IEntidad_SetValorIndice";
    FuenteCargar = " " + std::string(ClaseEntidad);
    FuenteAdapter = std::string(ClaseAdapter);
    FuenteUpdate = tabla + "Update";
}

namespace detail {

Variant LeerMiembro(IEntidad& e, const CampoDef& c) {
    switch (c.Tipo) {
        case TipoCampo::Entero: return Variant(e.*c.Miembro.Entero);
        case TipoCampo::Doble: return Variant(e.*c.Miembro.Doble);
        case TipoCampo::Fecha: return Variant(e.*c.Miembro.Fecha);
        case TipoCampo::Texto: return Variant(e.*c.Miembro.Texto);
    }
    return {};
}

// A value of the wrong type for the field is a type mismatch.
void AsignarMiembro(IEntidad& e, const CampoDef& c, int32_t v) {
    if (c.Tipo == TipoCampo::Entero) e.*c.Miembro.Entero = v;
    else if (c.Tipo == TipoCampo::Doble) e.*c.Miembro.Doble = v;
    else RaisePlatform(ErrNum::TypeMismatch);
}
void AsignarMiembro(IEntidad& e, const CampoDef& c, double v) {
    if (c.Tipo != TipoCampo::Doble) RaisePlatform(ErrNum::TypeMismatch);
    e.*c.Miembro.Doble = v;
}
void AsignarMiembro(IEntidad& e, const CampoDef& c, Date v) {
    if (c.Tipo != TipoCampo::Fecha) RaisePlatform(ErrNum::TypeMismatch);
    e.*c.Miembro.Fecha = v;
}
void AsignarMiembro(IEntidad& e, const CampoDef& c, const std::string& v) {
    if (c.Tipo != TipoCampo::Texto) RaisePlatform(ErrNum::TypeMismatch);
    e.*c.Miembro.Texto = v;
}

void ConvertirYAsignar(IEntidad& e, const CampoDef& c, const Variant& v) {
    switch (c.Tipo) {
        case TipoCampo::Entero:
            e.*c.Miembro.Entero = c.ConversionDirecta ? CLng(v) : CLng(Variant(BasTroquel::NumeroNormalizado(v)));
            break;
        case TipoCampo::Doble:
            e.*c.Miembro.Doble = c.ConversionDirecta ? CDbl(v) : BasTroquel::NumeroNormalizado(v);
            break;
        case TipoCampo::Fecha:
            // An unreadable date is no error: it stores the zero date.
            e.*c.Miembro.Fecha = IsDate(v) ? CDate(v) : ZeroDate;
            break;
        case TipoCampo::Texto:
            if (const std::string* s = v.GetIf<std::string>()) e.*c.Miembro.Texto = *s;
            else e.*c.Miembro.Texto = CStr(v);
            break;
    }
}

namespace {
// The conversion of ConvertirYAsignar for a text, without making a Variant.
void ConvertirTexto(IEntidad& e, const CampoDef& c, std::string_view texto) {
    switch (c.Tipo) {
        case TipoCampo::Entero:
            if (c.ConversionDirecta) e.*c.Miembro.Entero = CLng(Variant(texto));
            else e.*c.Miembro.Entero = CLng(Variant(BasTroquel::NumeroNormalizadoTexto(texto)));
            break;
        case TipoCampo::Doble:
            if (c.ConversionDirecta) e.*c.Miembro.Doble = CDbl(Variant(texto));
            else e.*c.Miembro.Doble = BasTroquel::NumeroNormalizadoTexto(texto);
            break;
        case TipoCampo::Fecha: {
            Date d;
            e.*c.Miembro.Fecha = TryReadDate(texto, d) ? d : ZeroDate;
            break;
        }
        case TipoCampo::Texto:
            (e.*c.Miembro.Texto).assign(texto);
            break;
    }
}
}  // namespace

namespace EntidadOps {

Variant GetValor(IEntidad& e, const TablaDef& t, ByRef<std::string> Campo) {
    try {
        const std::string& nombre = *Campo;
        if (nombre.empty()) {
            if (t.CampoNombreVacio < 0) return Variant(nombre);
            return LeerMiembro(e, t.Campos[static_cast<size_t>(t.CampoNombreVacio)]);
        }
        const int pos = t.Buscar(nombre);
        if (pos < 0) return Variant(kError);
        const CampoDef& c = t.Campos[static_cast<size_t>(pos)];
        // The argument hides a column of the same name.
        if (!t.NombreArgumento.empty() && c.Nombre == t.NombreArgumento) return Variant(nombre);
        return LeerMiembro(e, c);
    } catch (...) {
        Reraise(t.FuenteEntidad);
    }
}

Variant GetValorIndice(IEntidad& e, const TablaDef& t, int16_t indice) {
    try {
        const int pos = t.PorIndice(indice);
        if (pos < 0) return Variant(kError);
        return LeerMiembro(e, t.Campos[static_cast<size_t>(pos)]);
    } catch (...) {
        Reraise(t.FuenteEntidad);
    }
}

std::string GetNombreCampo(const TablaDef& t, int16_t indice) {
    try {
        const int pos = t.PorIndice(indice);
        if (pos < 0) return kError;
        return std::string(t.Campos[static_cast<size_t>(pos)].Nombre);
    } catch (...) {
        Reraise(t.FuenteEntidad);
    }
}

void SetValor(IEntidad& e, const TablaDef& t, ByRef<std::string> Campo, const Variant& valor) {
    try {
        const int pos = t.Buscar(*Campo);
        if (pos < 0) throw Error(0, "", "Nombre campo incorrecto");
        const CampoDef& c = t.Campos[static_cast<size_t>(pos)];
        if (!t.NombreArgumento.empty() && c.Nombre == t.NombreArgumento) {
            *Campo = CStr(valor);  // the argument hides the column: the caller's variable gets the value
            return;
        }
        if (c.SetValorIgnoraValor) {
            ConvertirYAsignar(e, c, LeerMiembro(e, c));
            return;
        }
        ConvertirYAsignar(e, c, valor);
    } catch (...) {
        Reraise(t.FuenteSetValor);
    }
}

void SetValorIndice(IEntidad& e, const TablaDef& t, int16_t indice, const Variant& valor) {
    try {
        const int pos = t.PorIndice(indice);
        if (pos < 0) return;  // an index outside the table is ignored
        ConvertirYAsignar(e, t.Campos[static_cast<size_t>(pos)], valor);
    } catch (...) {
        Reraise(t.FuenteSetValorIndice);
    }
}

void SetValorIndiceTexto(IEntidad& e, const TablaDef& t, int16_t indice, std::string_view texto) {
    try {
        const int pos = t.PorIndice(indice);
        if (pos < 0) return;  // an index outside the table is ignored
        ConvertirTexto(e, t.Campos[static_cast<size_t>(pos)], texto);
    } catch (...) {
        Reraise(t.FuenteSetValorIndice);
    }
}

namespace {

std::string_view NombreDeCampo(const void* tabla, size_t i) {
    return static_cast<const TablaDef*>(tabla)->Campos[i].Nombre;
}

// The load of a row with a current row: each field found by its position,
// looked up once per recordset, and read straight into its member; only a
// cell of another type than the member's goes through its Value, as the load
// by name does.
void CargarPorPosicion(IEntidad& e, const TablaDef& t, ADODB::Fields& Registro, const Variant& cero,
                       const Variant& vacio) {
    using Access = ADODB::detail::Access;
    using Read = Access::Read;
    const std::vector<int32_t>& posiciones = Access::PositionsFor(Registro, &t, t.Campos.size(), NombreDeCampo);
    for (size_t i = 0; i < t.Campos.size(); ++i) {
        const CampoDef& c = t.Campos[i];
        const int32_t k = posiciones[i];
        // A missing column gives the field its default, as the load by name does.
        ADODB::Field* f = k >= 0 ? &Registro.Item(k) : nullptr;
        switch (c.Tipo) {
            case TipoCampo::Entero: {
                int32_t v = 0;
                const Read r = f ? Access::ReadLong(*f, v) : Read::Null;
                if (r == Read::Other) v = CLng(BasTroquel::ValorPorDefecto(f->Value(), cero));
                e.*c.Miembro.Entero = r == Read::Null ? CLng(cero) : v;
                break;
            }
            case TipoCampo::Doble: {
                double v = 0;
                const Read r = f ? Access::ReadDouble(*f, v) : Read::Null;
                if (r == Read::Other) v = CDbl(BasTroquel::ValorPorDefecto(f->Value(), cero));
                e.*c.Miembro.Doble = r == Read::Null ? CDbl(cero) : v;
                break;
            }
            case TipoCampo::Fecha: {
                Date v;
                const Read r = f ? Access::ReadDate(*f, v) : Read::Null;
                if (r == Read::Other) v = CDate(BasTroquel::ValorPorDefecto(f->Value(), cero));
                e.*c.Miembro.Fecha = r == Read::Null ? CDate(cero) : v;
                break;
            }
            case TipoCampo::Texto: {
                std::string& destino = e.*c.Miembro.Texto;
                const Read r = f ? Access::ReadText(*f, destino) : Read::Null;
                if (r == Read::Null) {
                    destino.clear();
                } else if (r == Read::Other) {
                    Variant v = BasTroquel::ValorPorDefecto(f->Value(), vacio);
                    if (std::string* s = v.Is<std::string>() ? &v.Get<std::string>() : nullptr) destino = std::move(*s);
                    else destino = CStr(v);
                }
                break;
            }
        }
    }
}

}  // namespace

void CargarEntidad(IEntidad& e, const TablaDef& t, ADODB::Fields& Registro) {
    try {
        const Variant cero(int16_t{0});
        const Variant vacio(std::string{});
        if (Registro.Count() > 0 && ADODB::detail::Access::HasValue(Registro.Item(int32_t{0}))) {
            CargarPorPosicion(e, t, Registro, cero, vacio);
            return;
        }
        for (const CampoDef& c : t.Campos) {
            switch (c.Tipo) {
                case TipoCampo::Entero:
                    e.*c.Miembro.Entero = CLng(BasTroquel::LeerCampo(Registro, c.Nombre, cero));
                    break;
                case TipoCampo::Doble:
                    e.*c.Miembro.Doble = CDbl(BasTroquel::LeerCampo(Registro, c.Nombre, cero));
                    break;
                case TipoCampo::Fecha:
                    e.*c.Miembro.Fecha = CDate(BasTroquel::LeerCampo(Registro, c.Nombre, cero));
                    break;
                case TipoCampo::Texto: {
                    Variant v = BasTroquel::LeerCampo(Registro, c.Nombre, vacio);
                    if (std::string* s = v.Is<std::string>() ? &v.Get<std::string>() : nullptr)
                        e.*c.Miembro.Texto = std::move(*s);
                    else
                        e.*c.Miembro.Texto = CStr(v);
                    break;
                }
            }
        }
    } catch (...) {
        Error err = CurrentError();
        // The fields read so far stay: the load is not undone.
        if (err.Number == ErrNum::ItemNotFound)
            throw Error(3, t.FuenteCargar, "La estructura del registro no coincide con la entidad");
        throw Error(err.Number, t.FuenteCargar, err.Description);
    }
}

std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& e, const TablaDef& t, ByRef<std::string> NombreElementoXML) {
    try {
        if (NombreElementoXML->empty()) *NombreElementoXML = e.Nombre();
        return BasTroquel::EntidadToXML(e, NombreElementoXML);
    } catch (...) {
        Reraise(std::string(t.FuenteToXML));
    }
}

}  // namespace EntidadOps
}  // namespace detail
}  // namespace OVT_ZARO
