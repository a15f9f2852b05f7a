// What the binding's sources share: objects that must be there, entities
// out of list elements, and the handler of the loads.
#pragma once

#include <memory>

#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Controls.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::enlace {

// The object a reference points to; no object raises 91, as a call on an
// unset object variable does.
template <class T>
T& Obj(const std::shared_ptr<T>& p) {
    if (!p) RaisePlatform(ErrNum::ObjectNotSet);
    return *p;
}

// The entity a list element holds: no object for Nothing; an element that
// is no entity raises 13.
IEntidadRef EntidadDe(const Variant& elemento);

// The handler of the loads, of Ordena and of the drawing routines: it raises
// again with the failure's description where its number belongs, so any
// description that does not read as a number ends in 13 "Type mismatch",
// and a numeric one is raised with that number, the source "ControlHelper"
// and itself as description. REQUIRES: called inside a catch handler.
[[noreturn]] void RelanzaDescripcionComoNumero();

// Carry on: runs one step; a failure is skipped, nothing is reported, and
// the caller goes on with the next step.
template <class F>
void Paso(F&& paso) {
    try {
        paso();
    } catch (...) {
    }
}

// The value of a step that carries on: what the step gives, or otro when it fails.
template <class T, class F>
T Valor(F&& paso, T otro) {
    try {
        return paso();
    } catch (...) {
        return otro;
    }
}

// The source of the helper's handlers.
inline constexpr const char* kFuenteHelper = "ControlHelper";

}  // namespace OVT_ZARO::enlace
