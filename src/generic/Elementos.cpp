#include "ZARODatos/generic/Elementos.h"

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "generic/Comun.h"

namespace OVT_ZARO {

using namespace generico;

namespace {
// The source of every re-raise of entElemento: its Nombre and a blank.
const std::string kFuente = "entElemento ";
// CargarEntidad reports 3265 under the neighbouring class's text, kept as it is.
const std::string kFuente3265 = " entEntidadSimple";

enum class CampoElemento { Ninguno, Nombre, Valor };

CampoElemento PorNombre(std::string_view campo) {
    if (TextEquals(campo, "Nombre")) return CampoElemento::Nombre;
    if (TextEquals(campo, "Valor")) return CampoElemento::Valor;
    return CampoElemento::Ninguno;
}

CampoElemento PorIndice(int16_t indice) {
    if (indice == 1) return CampoElemento::Nombre;
    if (indice == 2) return CampoElemento::Valor;
    return CampoElemento::Ninguno;
}
}  // namespace

// ---- entElemento ----------------------------------------------------------

Variant entElemento::GetValor(ByRef<std::string> Campo) {
    try {
        // No empty-name case here: "" is no field.
        switch (PorNombre(*Campo)) {
            case CampoElemento::Nombre: return Variant(Nombre);
            case CampoElemento::Valor: return Valor;
            case CampoElemento::Ninguno: break;
        }
        return Variant(kError);
    } catch (...) {
        Reraise(kFuente);
    }
}

Variant entElemento::GetValorIndice(ByRef<int16_t> IndiceCampo) {
    try {
        switch (PorIndice(*IndiceCampo)) {
            case CampoElemento::Nombre: return Variant(Nombre);
            case CampoElemento::Valor: return Valor;
            case CampoElemento::Ninguno: break;
        }
        return Variant(kError);
    } catch (...) {
        Reraise(kFuente);
    }
}

std::string entElemento::GetNombreCampo(ByRef<int16_t> IndiceCampo) {
    try {
        switch (PorIndice(*IndiceCampo)) {
            case CampoElemento::Nombre: return "Nombre";
            case CampoElemento::Valor: return "Valor";
            case CampoElemento::Ninguno: break;
        }
        return kError;
    } catch (...) {
        Reraise(kFuente);
    }
}

void entElemento::CargarEntidad(ADODB::Fields& Registro) {
    try {
        // The integer 0 is the default of both, the string field included:
        // a missing column gives Nombre the text "0".
        const Variant cero(int16_t{0});
        Nombre = CStr(BasTroquel::LeerCampo(Registro, "Nombre", cero));
        Valor = BasTroquel::LeerCampo(Registro, "Valor", cero);
    } catch (...) {
        RelanzarCarga(kFuente, kFuente3265);
    }
}

// The unknown name raises inside the operation and leaves it, like any other
// failure, under the operation's source "entElemento ".
void entElemento::SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) {
    try {
        switch (PorNombre(*Campo)) {
            case CampoElemento::Nombre: Nombre = CStr(*Valor); return;
            case CampoElemento::Valor: this->Valor = *Valor; return;
            case CampoElemento::Ninguno: break;
        }
        throw Error(0, "entElemento", kCampoIncorrecto);
    } catch (...) {
        Reraise(kFuente);
    }
}

void entElemento::SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) {
    try {
        switch (PorIndice(*IndiceCampo)) {
            case CampoElemento::Nombre: Nombre = CStr(*Valor); return;
            case CampoElemento::Valor: this->Valor = *Valor; return;
            case CampoElemento::Ninguno: return;  // any other index is ignored
        }
    } catch (...) {
        Reraise(kFuente);
    }
}

std::shared_ptr<XML::IXMLDOMElement> entElemento::ToXML(ByRef<std::string> NombreElementoXML) {
    return generico::ToXML(*this, NombreElementoXML);
}

// ---- coleccionElementos ---------------------------------------------------

const entElementoRef* coleccionElementos::Buscar(std::string_view nombre) const {
    const bool llano = EsNombreLlano(nombre);
    for (const entElementoRef& e : items_) {
        if (!e) RaisePlatform(ErrNum::ObjectNotSet);
        if (MismoNombre(nombre, llano, e->Nombre)) return &e;
    }
    return nullptr;
}

entElementoRef coleccionElementos::ItemClave(ByRef<std::string> sNombre) {
    const entElementoRef* e = Buscar(*sNombre);
    return e ? *e : nullptr;
}

entElementoRef coleccionElementos::AddEntidad(ByRef<entElementoRef> Objeto) {
    Anexar(*Objeto);
    return *Objeto;
}

entElementoRef coleccionElementos::Add(ByRef<std::string> Nombre, ByRef<Variant> Valor) {
    auto e = std::make_shared<entElemento>();
    e->Nombre = *Nombre;
    e->Valor = *Valor;
    Anexar(e);
    return e;
}

entElemento& coleccionElementos::Anadir(std::string nombre, Variant valor) {
    auto e = std::make_shared<entElemento>();
    e->Nombre = std::move(nombre);
    e->Valor = std::move(valor);
    entElemento& r = *e;
    items_.Add(std::move(e));
    return r;
}

}  // namespace OVT_ZARO
