// Helpers shared by the table tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "caso_tabla.h"
#include "support/capturar.h"

namespace zaro_tablas {

inline const char kSinConexion[] = "No se ha establecido una conexi\xC3\xB3n";
inline const char kSinConexionLectura[] = "No se ha establecido una conexin";

using zaro_test::Capturar;

inline std::vector<std::string> Log(const AdapterBase& da) {
    std::vector<std::string> r;
    if (da.LogSQL)
        for (const Variant& v : *da.LogSQL) r.push_back(v.Get<std::string>());
    return r;
}

// The name of a table case in a test's name.
inline std::string NombreDeCaso(const ::testing::TestParamInfo<const CasoTabla*>& info) {
    std::string n = info.param->esp.Tabla;
    return n[0] == '_' ? n.substr(1) : n;
}

}  // namespace zaro_tablas
