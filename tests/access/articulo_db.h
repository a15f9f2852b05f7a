// What the article tests on a real database share: a clean database on the
// road, an article adapter on it, and readers of values and of the server's log.
#pragma once

#include "support/capturar.h"
#include <gtest/gtest.h>

#include "ZARODatos/tables/articulo.h"
#include "support/roads.h"

namespace zaro_test {

// The error an operation raises (a failure of the test when it raises none).
// A statement without the trailing blanks that the server's log drops.
inline std::string RTrim(std::string s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\n' || s.back() == '\r')) s.pop_back();
    return s;
}

class ArticuloDb : public ::testing::TestWithParam<Road> {
protected:
    void SetUp() override {
        cn = OpenRoad(GetParam());
        DropAllTables(*cn);
        da = std::make_shared<OVT_ZARO::daarticulo>();
        da->Conexion = cn;
    }
    // The first value of the first row of a statement.
    OVT_ZARO::Variant Leer(const std::string& sql) {
        auto rs = cn->Execute(sql);
        OVT_ZARO::Variant v = rs->Fields().Item(int32_t{0}).Value();
        rs->Close();
        return v;
    }
    // The statements the server received since mark, without trailing blanks.
    std::vector<std::string> Enviadas(size_t mark) {
        std::vector<std::string> r;
        for (const std::string& s : GeneralLogSince(GetParam(), mark)) r.push_back(RTrim(s));
        return r;
    }
    bool ServidorRecibio(size_t mark, const std::string& sql) {
        for (const std::string& s : Enviadas(mark))
            if (s == RTrim(sql)) return true;
        return false;
    }

    OVT_ZARO::ConnectionRef cn;
    std::shared_ptr<OVT_ZARO::daarticulo> da;
};

}  // namespace zaro_test
