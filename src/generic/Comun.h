// What the generic entities share: their literals and ToXML.
#pragma once

#include <memory>
#include <string>

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"

namespace OVT_ZARO::generico {

inline constexpr char kError[] = "#ERROR#";
inline constexpr char kCampoIncorrecto[] = "Nombre campo incorrecto";
inline constexpr char kEstructura[] = "La estructura del registro no coincide con la entidad";

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
