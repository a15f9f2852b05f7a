#include "ZARODatos/core/BasTroquel.h"

#include <charconv>
#include <vector>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/platform/XML.h"

namespace OVT_ZARO::BasTroquel {

int16_t RelanzarError(ByRef<std::string> Origen, ByRef<int16_t> bandera) {
    Error e = CurrentError();
    throw Error(e.Number, *Origen, e.Description);
    return *bandera;  // never reached: the raise leaves the function
}

namespace {
// -?digits(.digits)?
bool DecimalSimple(std::string_view t) {
    size_t i = 0;
    if (i < t.size() && t[i] == '-') ++i;
    size_t digitos = 0, punto = 0;
    for (; i < t.size(); ++i) {
        if (t[i] >= '0' && t[i] <= '9') ++digitos;
        else if (t[i] == '.' && punto == 0 && digitos > 0) punto = i;
        else return false;
    }
    return digitos > 0 && (punto == 0 || punto + 1 < t.size());
}

ADODB::Connection& Requerir(const ConnectionRef& conexion) {
    if (!conexion) RaisePlatform(ErrNum::ObjectNotSet);
    return *conexion;
}
}  // namespace

void EjecutarSQL(ByRef<ConnectionRef> conexion, ByRef<std::string> sql) {
    // No handler of its own: the database's number, source and text pass on.
    try {
        Requerir(*conexion).Execute(*sql, -1);
    } catch (...) {
        throw CurrentError();
    }
}

Variant ObtenerValorSQL(ByRef<ConnectionRef> conexion, ByRef<std::string> sql, ByRef<std::string> nombre) {
    const std::shared_ptr<ScreenServices> pantallaActual = Screen();  // kept alive across a SetScreen
    ScreenServices& pantalla = *pantallaActual;
    const int puntero = pantalla.GetMousePointer();
    pantalla.SetMousePointer(vbHourglass);
    try {
        auto rs = std::make_shared<ADODB::Recordset>();
        rs->CursorLocation = ADODB::adUseClient;
        Requerir(*conexion);
        rs->Open(*sql, *conexion, ADODB::adOpenForwardOnly, ADODB::adLockReadOnly, -1);
        ADODB::Field& campo = nombre->empty() ? rs->Fields().Item(int32_t{0}) : rs->Fields().Item(std::string_view(*nombre));
        Variant resultado;
        if (rs->EOF_() || rs->BOF()) {
            const int tipo = campo.Type();
            // No row: the integer 0 for integer, double and numeric columns.
            if (tipo == ADODB::adInteger || tipo == ADODB::adDouble || tipo == ADODB::adNumeric)
                resultado = int16_t{0};
            else
                resultado = std::string();
        } else {
            resultado = campo.Value();
        }
        rs->Close();
        pantalla.SetMousePointer(puntero);
        return resultado;
    } catch (...) {
        pantalla.SetMousePointer(puntero);
        throw CurrentError();
    }
}

Variant ValorDeCampo(ADODB::Field& campo) {
    // Carries on past any failure and returns what it has.
    Variant resultado;
    try {
        resultado = campo.Value();
    } catch (...) {
        return resultado;
    }
    if (!resultado.IsNull()) return resultado;
    try {
        switch (campo.Type()) {
            case 3: case 14: case 5: case 131: case 4:  // integer, decimal, double, numeric, single
            case 135: case 7: case 133:                 // time stamp, date, database date
            case 11:                                    // boolean
                return Variant(int16_t{0});
            default:  // the text types and any other
                return Variant(std::string_view());
        }
    } catch (...) {
    }
    return resultado;
}

Variant ValorPorDefecto(const Variant& valor, const Variant& defecto) {
    if (valor.IsByteArray()) return valor;
    if (valor.IsEmpty() || valor.IsNull()) return defecto;
    if (const std::string* s = valor.GetIf<std::string>()) return s->empty() ? defecto : valor;
    // An object can not be compared with the empty string: the test fails, so the default.
    if (valor.IsObject()) return defecto;
    return valor;
}

Variant LeerCampo(ADODB::Fields& Registro, std::string_view nombre, const Variant& defecto) {
    try {
        return ValorPorDefecto(Registro.Item(nombre).Value(), defecto);
    } catch (...) {
        return defecto;
    }
}

std::string NormalizarNumero(std::string_view texto) {
    try {
        std::string s;
        s.reserve(texto.size());
        for (char ch : texto) {
            if (ch == '.') continue;
            s.push_back(ch == ',' ? '.' : ch);
        }
        if (IsNumericText(s)) return s;
    } catch (...) {
    }
    return "0";
}

double NumeroNormalizado(const Variant& valor) {
    if (const std::string* s = valor.GetIf<std::string>()) return NumeroNormalizadoTexto(*s);
    return NumeroNormalizadoTexto(CStr(valor));
}

double NumeroNormalizadoTexto(std::string_view texto) {
    // NormalizarNumero and Val without allocating for a short text.
    char corto[64];
    std::string largo;
    char* buf = corto;
    if (texto.size() > sizeof corto) {
        largo.resize(texto.size());
        buf = largo.data();
    }
    size_t n = 0;
    for (char ch : texto) {
        if (ch == '.') continue;
        buf[n++] = ch == ',' ? '.' : ch;
    }
    std::string_view normal(buf, n);
    // Plain digits with at most one point read the same under any locale.
    double valor = 0;
    if (DecimalSimple(normal) && std::from_chars(buf, buf + n, valor).ec == std::errc()) return valor;
    if (!IsNumericText(normal)) return 0;
    return Val(normal);
}

std::shared_ptr<XML::IXMLDOMElement> EntidadToXML(IEntidad& Entidad, ByRef<std::string> NombreElementoXML) {
    try {
        auto documento = XML::DOMDocument::Create();
        if (NombreElementoXML->empty()) *NombreElementoXML = Entidad.Nombre();
        auto raiz = documento->createElement(Variant(*NombreElementoXML));
        documento->appendChild(raiz);
        const int32_t n = Entidad.NumCampos();
        // The index runs as a 16-bit integer.
        for (int32_t i = 1; i <= n; ++i) {
            int16_t indice = CInt(Variant(i));
            auto elemento = documento->createElement(Variant(Entidad.GetNombreCampo(indice)));
            raiz->appendChild(elemento);
            Variant valor = Entidad.GetValorIndice(indice);
            elemento->appendChild(documento->createTextNode(valor));
        }
        return raiz;
    } catch (...) {
        RelanzarError(std::string("EntidadToXML"), int16_t{0});
        throw;
    }
}

void AnexarTextoSQL(std::string& sql, std::string_view texto) {
    for (char ch : texto) {
        if (ch == '\'') sql += "\xC2\xB4";  // the acute accent "´"
        else sql.push_back(ch);
    }
}

CollectionRef OrdenarColeccion(ByRef<ObjectRef> coleccion, const std::string& Campo, ByRef<bool> Descendente) {
    // Every step carries on past its failure: nothing is raised.
    auto resultado = std::make_shared<Collection>();
    int32_t n = 0;
    try { n = CountOf(*coleccion); } catch (...) {}
    std::vector<int32_t> slot(static_cast<size_t>(n) + 1);
    for (int32_t i = 1; i <= n; ++i) slot[static_cast<size_t>(i)] = i;
    // The entity at a position; Nothing (or no entity) raises 91 like a call on an unset object.
    auto entidad = [&](int32_t posicion) -> IEntidad& {
        const Variant v = ItemOf(*coleccion, posicion);
        const ObjectRef* o = v.GetIf<ObjectRef>();
        auto* e = o ? dynamic_cast<IEntidad*>(o->get()) : nullptr;
        if (!e) RaisePlatform(ErrNum::ObjectNotSet);
        return *e;
    };
    Variant va, vb;
    for (int32_t pasada = 1; pasada <= n; ++pasada) {
        bool ordenado = true;
        for (int32_t j = 1; j <= n - 1; ++j) {
            try { va = entidad(slot[static_cast<size_t>(j)]).GetValor(std::string(Campo)); } catch (...) {}
            try { vb = entidad(slot[static_cast<size_t>(j + 1)]).GetValor(std::string(Campo)); } catch (...) {}
            try {
                const CompareResult r = CompareVariants(va, vb, CompareMethod::Binary);
                if ((*Descendente && r == CompareResult::Less) || (!*Descendente && r == CompareResult::Greater)) {
                    ordenado = false;
                    std::swap(slot[static_cast<size_t>(j)], slot[static_cast<size_t>(j + 1)]);
                }
            } catch (...) {}
        }
        if (ordenado) break;  // a pass without a swap ends the sort
    }
    for (int32_t i = 1; i <= n; ++i) {
        try { resultado->Add(ItemOf(*coleccion, slot[static_cast<size_t>(i)])); } catch (...) {}
    }
    return resultado;
}

}  // namespace OVT_ZARO::BasTroquel
