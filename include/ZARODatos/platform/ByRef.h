// ByRef<T>: an argument passed by reference.
//
// Bound to a caller's variable, a write through it reaches that variable;
// given a literal or a temporary, it owns the value for the length of the
// call, so such a call still compiles. Copying a ByRef aliases the same
// target, which is how a by-reference argument is handed on to another
// operation.
#pragma once

#include <optional>
#include <type_traits>
#include <utility>

namespace OVT_ZARO {

template <class T>
class ByRef {
public:
    // An omitted optional argument: owns the zero of T.
    ByRef() : own_(std::in_place), p_(&*own_) {}
    // The caller's variable.
    ByRef(T& target) : p_(&target) {}
    // A literal, a temporary or a constant, owned (copied) for the call.
    template <class U,
              std::enable_if_t<std::is_constructible_v<T, U&&> &&
                                   !(std::is_lvalue_reference_v<U> && !std::is_const_v<std::remove_reference_t<U>> &&
                                     std::is_same_v<std::remove_cvref_t<U>, T>) &&
                                   !std::is_same_v<std::remove_cvref_t<U>, ByRef>,
                               int> = 0>
    ByRef(U&& value) : own_(std::in_place, std::forward<U>(value)), p_(&*own_) {}
    // Another ByRef: the same target.
    ByRef(const ByRef& other) : p_(other.p_) {}
    ByRef& operator=(const ByRef&) = delete;

    T& operator*() const { return *p_; }
    T* operator->() const { return p_; }
    T& get() const { return *p_; }
    operator T&() const { return *p_; }
    // Writes through to the target.
    ByRef& operator=(const T& value) {
        *p_ = value;
        return *this;
    }

private:
    std::optional<T> own_;
    T* p_;
};

}  // namespace OVT_ZARO
