#include "generic/Comun.h"

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::generico {

namespace {
struct TablaLlana {
    bool llano[256] = {};
    constexpr TablaLlana() {
        for (int c = 0; c < 256; ++c)
            llano[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    }
};
constexpr TablaLlana kLlano;
}  // namespace

bool EsNombreLlano(std::string_view s) {
    for (char c : s)
        if (!kLlano.llano[static_cast<unsigned char>(c)]) return false;
    return true;
}

std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& entidad, ByRef<std::string> NombreElementoXML) {
    try {
        if (TextEquals(*NombreElementoXML, "")) *NombreElementoXML = entidad.Nombre();
        return BasTroquel::EntidadToXML(entidad, NombreElementoXML);
    } catch (...) {
        // The one literal of every entity's ToXML, leading blank included.
        Reraise(" entmaepai");
    }
}

void RelanzarCarga(const std::string& fuente, const std::string& fuente3265) {
    Error err = CurrentError();
    if (err.Number == ErrNum::ItemNotFound) throw Error(3, fuente3265, kEstructura);
    throw Error(err.Number, fuente, err.Description);
}

}  // namespace OVT_ZARO::generico
