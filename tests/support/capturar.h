// The error an operation raises; a test failure when it raises none.
#pragma once

#include <gtest/gtest.h>

#include "ZARODatos/platform/Error.h"

namespace zaro_test {

template <class F>
OVT_ZARO::Error Capturar(F&& f) {
    try {
        f();
    } catch (const OVT_ZARO::Error& e) {
        return e;
    }
    ADD_FAILURE() << "no error raised";
    return OVT_ZARO::Error(-1, "", "");
}

}  // namespace zaro_test
