#include "ZARODatos/generic/EntidadSimple.h"

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "generic/Comun.h"

namespace OVT_ZARO {

using namespace generico;

namespace {
const std::string kFuenteLectura = "EntidadSimpleEntidad";
const std::string kFuenteEscritura = "entEntidadSimple";
const std::string kFuenteCarga = " entEntidadSimple";

enum class CampoSimple { Ninguno, Clave1, Clave2, Clave3, Descripcion, Objeto };

CampoSimple PorNombre(std::string_view campo) {
    if (TextEquals(campo, "Clave1")) return CampoSimple::Clave1;
    if (TextEquals(campo, "Clave2")) return CampoSimple::Clave2;
    if (TextEquals(campo, "Clave3")) return CampoSimple::Clave3;
    if (TextEquals(campo, "Descripcion")) return CampoSimple::Descripcion;
    if (TextEquals(campo, "Objeto")) return CampoSimple::Objeto;
    return CampoSimple::Ninguno;
}

CampoSimple PorIndice(int16_t indice) {
    switch (indice) {
        case 1: return CampoSimple::Clave1;
        case 2: return CampoSimple::Clave2;
        case 3: return CampoSimple::Clave3;
        case 4: return CampoSimple::Descripcion;
        case 5: return CampoSimple::Objeto;
        default: return CampoSimple::Ninguno;
    }
}

Variant Leer(const entEntidadSimple& e, CampoSimple c) {
    switch (c) {
        case CampoSimple::Clave1: return e.Clave1;
        case CampoSimple::Clave2: return e.Clave2;
        case CampoSimple::Clave3: return e.Clave3;
        case CampoSimple::Descripcion: return Variant(e.Descripcion);
        // The type name of the object, not the object ("Nothing" for none).
        case CampoSimple::Objeto: return Variant(TypeName(Variant(e.Objeto)));
        case CampoSimple::Ninguno: break;
    }
    return Variant(kError);
}

// Stores by field; false for a name that is no field. Objeto is a known name
// that stores nothing: it is set only through the field or Add.
bool Escribir(entEntidadSimple& e, CampoSimple c, const Variant& valor) {
    switch (c) {
        case CampoSimple::Clave1: e.Clave1 = valor; return true;
        case CampoSimple::Clave2: e.Clave2 = valor; return true;
        case CampoSimple::Clave3: e.Clave3 = valor; return true;
        case CampoSimple::Descripcion: e.Descripcion = CStr(valor); return true;
        case CampoSimple::Objeto: return true;
        case CampoSimple::Ninguno: break;
    }
    return false;
}
}  // namespace

// ---- entEntidadSimple -----------------------------------------------------

Variant entEntidadSimple::GetValor(ByRef<std::string> Campo) {
    try {
        // The empty name gives the description.
        if (TextEquals(*Campo, "")) return Variant(Descripcion);
        return Leer(*this, PorNombre(*Campo));
    } catch (...) {
        Reraise(kFuenteLectura);
    }
}

Variant entEntidadSimple::GetValorIndice(ByRef<int16_t> IndiceCampo) {
    try {
        return Leer(*this, PorIndice(*IndiceCampo));
    } catch (...) {
        Reraise(kFuenteLectura);
    }
}

std::string entEntidadSimple::GetNombreCampo(ByRef<int16_t> IndiceCampo) {
    try {
        switch (PorIndice(*IndiceCampo)) {
            case CampoSimple::Clave1: return "Clave1";
            case CampoSimple::Clave2: return "Clave2";
            case CampoSimple::Clave3: return "Clave3";
            case CampoSimple::Descripcion: return "Descripcion";
            case CampoSimple::Objeto: return "Objeto";
            case CampoSimple::Ninguno: break;
        }
        return kError;
    } catch (...) {
        Reraise(kFuenteLectura);
    }
}

void entEntidadSimple::CargarEntidad(ADODB::Fields& Registro) {
    try {
        // A key of a row without such a column is the integer 0, not empty.
        const Variant cero(int16_t{0});
        Clave1 = BasTroquel::LeerCampo(Registro, "Clave1", cero);
        Clave2 = BasTroquel::LeerCampo(Registro, "Clave2", cero);
        Clave3 = BasTroquel::LeerCampo(Registro, "Clave3", cero);
        Descripcion = CStr(BasTroquel::LeerCampo(Registro, "Descripcion", Variant(std::string())));
    } catch (...) {
        RelanzarCarga(kFuenteCarga, kFuenteCarga);
    }
}

void entEntidadSimple::SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) {
    try {
        if (!Escribir(*this, PorNombre(*Campo), *Valor)) throw Error(0, kFuenteEscritura, kCampoIncorrecto);
    } catch (...) {
        Reraise(kFuenteEscritura);
    }
}

void entEntidadSimple::SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) {
    try {
        const CampoSimple c = PorIndice(*IndiceCampo);
        // 5 (Objeto) and any index outside 1 to 5 do nothing.
        if (c == CampoSimple::Objeto || c == CampoSimple::Ninguno) return;
        Escribir(*this, c, *Valor);
    } catch (...) {
        Reraise(kFuenteEscritura);
    }
}

std::shared_ptr<XML::IXMLDOMElement> entEntidadSimple::ToXML(ByRef<std::string> NombreElementoXML) {
    return generico::ToXML(*this, NombreElementoXML);
}

// ---- colEntidadSimple -----------------------------------------------------

entEntidadSimpleRef colEntidadSimple::ItemClave(ByRef<Variant> Clave1, ByRef<Variant> Clave2, ByRef<Variant> Clave3) {
    for (const entEntidadSimpleRef& e : items_) {
        if (!e) RaisePlatform(ErrNum::ObjectNotSet);
        // All three are compared (no short cut) and joined with a logical and;
        // a null on either side is no match.
        const CompareResult r1 = CompareVariants(e->Clave1, *Clave1, CompareMethod::Text);
        const CompareResult r2 = CompareVariants(e->Clave2, *Clave2, CompareMethod::Text);
        const CompareResult r3 = CompareVariants(e->Clave3, *Clave3, CompareMethod::Text);
        if (r1 == CompareResult::Equal && r2 == CompareResult::Equal && r3 == CompareResult::Equal) return e;
    }
    return nullptr;
}

entEntidadSimpleRef colEntidadSimple::AddEntidad(ByRef<entEntidadSimpleRef> Objeto) {
    Anexar(*Objeto);
    return *Objeto;
}

entEntidadSimpleRef colEntidadSimple::Add(ByRef<Variant> Clave1, ByRef<Variant> Clave2, ByRef<Variant> Clave3,
                                          const std::string& Descripcion, const ObjectRef& Objeto) {
    auto e = std::make_shared<entEntidadSimple>();
    e->Clave1 = *Clave1;
    e->Clave2 = *Clave2;
    e->Clave3 = *Clave3;
    e->Descripcion = Descripcion;
    e->Objeto = Objeto;
    Anexar(e);
    return e;
}

}  // namespace OVT_ZARO
