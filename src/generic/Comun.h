// What the generic entities share: their literals and ToXML.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Conversions.h"

namespace OVT_ZARO::generico {

inline constexpr char kError[] = "#ERROR#";
inline constexpr char kCampoIncorrecto[] = "Nombre campo incorrecto";
inline constexpr char kEstructura[] = "La estructura del registro no coincide con la entidad";

// A name made only of ASCII letters, digits and "_": no two different such
// names are equal under the text comparison (none of their characters is
// ignored, and only a capital and its small letter share a place).
bool EsNombreLlano(std::string_view s);

// The text comparison of two field names for equality (ignoring case, also
// for accented letters), without its cost in the common cases: equal bytes
// but for ASCII case are equal; two different plain names are different.
// aLlano is EsNombreLlano(a), worked out once by the caller.
inline bool MismoNombre(std::string_view a, bool aLlano, std::string_view b) {
    if (a.size() == b.size()) {
        size_t i = 0;
        for (; i < a.size(); ++i) {
            char x = a[i], y = b[i];
            if (x >= 'A' && x <= 'Z') x = static_cast<char>(x + 32);
            if (y >= 'A' && y <= 'Z') y = static_cast<char>(y + 32);
            if (x != y) break;
        }
        if (i == a.size()) return true;
    }
    if (aLlano && EsNombreLlano(b)) return false;
    return TextEquals(a, b);
}

// ToXML of a generic entity: an empty name (by text comparison) becomes the
// entity's Nombre, then EntidadToXML; a failure is raised again with its
// number and description under " entmaepai".
std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& entidad, ByRef<std::string> NombreElementoXML);

// The error a CargarEntidad raises for the one being handled: 3265 (an item
// not found in a Fields) becomes 3 with kEstructura under fuente3265, any
// other keeps its number and description under fuente.
// REQUIRES: called inside a catch handler.
[[noreturn]] void RelanzarCarga(const std::string& fuente, const std::string& fuente3265);

}  // namespace OVT_ZARO::generico
