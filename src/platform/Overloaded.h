// One visitor out of several lambdas, for std::visit over a Variant's value.
#pragma once

namespace OVT_ZARO::detail {

template <class... F>
struct Overloaded : F... {
    using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

}  // namespace OVT_ZARO::detail
