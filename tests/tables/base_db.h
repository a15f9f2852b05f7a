// The database side of the table tests: a clean database on one road, the
// server's general query log, and the site's table of a case.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "caso_tabla.h"
#include "comun.h"
#include "support/roads.h"
#include "ZARODatos/platform/Conversions.h"

namespace zaro_tablas {

using zaro_test::Road;

class BaseDb {
protected:
    void Abrir(const Road& r) {
        road_ = r;
        cn = zaro_test::OpenRoad(r);
        zaro_test::DropAllTables(*cn);
    }

    template <class DA>
    std::shared_ptr<DA> Adapter() {
        auto da = std::make_shared<DA>();
        da->Conexion = cn;
        return da;
    }

    // A table with the columns of the select list: the library's own where it
    // can make it, completed or made by the site's statements otherwise.
    void PrepararTabla(const CasoTabla& caso, AdapterBase& da) {
        if (caso.esp.CrearTablaCrea) {
            ASSERT_TRUE(da.CrearTabla());
        }
        for (const std::string& sql : caso.esp.TablaDelSitio) cn->Execute(sql);
    }

    size_t Marca() { return zaro_test::GeneralLogMark(road_); }
    std::vector<std::string> Enviados(size_t marca) { return zaro_test::GeneralLogSince(road_, marca); }
    // Whether the server received the statement (the log drops trailing blanks).
    bool ServidorRecibio(size_t marca, const std::string& sql) {
        for (const std::string& s : Enviados(marca))
            if (RTrim(s) == RTrim(sql)) return true;
        return false;
    }
    static std::string RTrim(std::string s) {
        while (!s.empty() && (s.back() == ' ' || s.back() == '\n' || s.back() == '\r')) s.pop_back();
        return s;
    }
    Variant Leer(const std::string& sql) {
        auto rs = cn->Execute(sql);
        Variant v = rs->Fields().Item(int32_t{0}).Value();
        rs->Close();
        return v;
    }
    int32_t Filas(const std::string& tabla) { return CLng(Leer("select count(*) from `" + tabla + "`")); }
    bool TablaExiste(const std::string& tabla) {
        auto rs = cn->Execute("SHOW TABLES LIKE '" + tabla + "'");
        bool hay = !rs->EOF_();
        rs->Close();
        return hay;
    }

    ConnectionRef cn;

private:
    Road road_;
};

// A test over both roads.
class PorRoad : public ::testing::TestWithParam<Road>, public BaseDb {
protected:
    void SetUp() override { Abrir(GetParam()); }
};

// A test of a group of tables over both roads: the table's case, and its
// adapter on the road's clean database.
using ParamCasoDb = std::tuple<const CasoTabla*, Road>;

class CasoDb : public ::testing::TestWithParam<ParamCasoDb>, public BaseDb {
protected:
    const CasoTabla& caso = *std::get<0>(GetParam());
    void AbrirConAdapter() {
        Abrir(std::get<1>(GetParam()));
        da = caso.NuevoAdapter();
        da->Conexion = cn;
    }
    std::shared_ptr<AdapterBase> da;
};

inline std::string NombreCasoDb(const ::testing::TestParamInfo<ParamCasoDb>& info) {
    return std::get<0>(info.param)->esp.Tabla + "_" + std::get<1>(info.param).name;
}

}  // namespace zaro_tablas
