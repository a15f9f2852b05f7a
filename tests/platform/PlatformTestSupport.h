// Helpers for the platform tests: the number of the Error a call raises,
// and a guard that puts the host locale back at the end of a test.
#pragma once

#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::testing_support {

// The Error number raised by f, or -1 when f raises nothing.
template <class F>
int RaisedNumber(F&& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.Number;
    }
    return -1;
}

// Saves the host locale and restores it when the test ends.
class LocaleGuard {
public:
    LocaleGuard() : saved_(HostLocale::Current()) {}
    ~LocaleGuard() { HostLocale::Set(saved_); }
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;

private:
    HostLocale saved_;
};

inline std::string Text(const Variant& v) { return v.Get<std::string>(); }

}  // namespace OVT_ZARO::testing_support

#define EXPECT_RAISES(expr, number) \
    EXPECT_EQ(::OVT_ZARO::testing_support::RaisedNumber([&] { (void)(expr); }), (number)) << #expr
