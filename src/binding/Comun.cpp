#include "binding/Comun.h"

#include "ZARODatos/platform/Conversions.h"

namespace OVT_ZARO::enlace {

IEntidadRef EntidadDe(const Variant& elemento) {
    if (!elemento.IsObject()) RaisePlatform(ErrNum::TypeMismatch);
    const ObjectRef& o = elemento.Get<ObjectRef>();
    if (!o) return nullptr;
    auto e = std::dynamic_pointer_cast<IEntidad>(o);
    if (!e) RaisePlatform(ErrNum::TypeMismatch);
    return e;
}

void RelanzaDescripcionComoNumero() {
    const Error e = CurrentError();
    // CLng of the description raises 13 for a description that is no number.
    throw Error(CLng(Variant(e.Description)), kFuenteHelper, e.Description);
}

}  // namespace OVT_ZARO::enlace
