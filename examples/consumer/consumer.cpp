// A host of ZARODatos built outside its source tree, against the installed
// library: with its CMake package (CMakeLists.txt beside this file), or with
// pkg-config and a plain compiler line:
//
//   g++ -std=c++20 consumer.cpp $(pkg-config --cflags --libs zarodatos) -o consumer
//
// It opens the embedded database in a new temp folder, makes the table
// articulo with daarticulo::CrearTabla, inserts two articles, lists them back
// and prints them. The folder is removed when the program ends.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <stdlib.h>  // mkdtemp

#include <ZARODatos.h>

using namespace OVT_ZARO;

namespace {
std::string g_carpeta;
void BorrarCarpeta() {
    std::error_code ec;
    std::filesystem::remove_all(g_carpeta, ec);
}
}  // namespace

int main() {
    std::string plantilla = (std::filesystem::temp_directory_path() / "zarodatos-consumer-XXXXXX").string();
    if (!mkdtemp(plantilla.data())) {
        std::perror("mkdtemp");
        return 1;
    }
    g_carpeta = plantilla;
    // Registered before the database starts, so it runs after the database
    // has stopped at exit.
    std::atexit(BorrarCarpeta);

    try {
        std::printf("ZARODatos %s\n", std::string(LibraryVersion()).c_str());

        auto cn = std::make_shared<ADODB::Connection>();
        cn->Open("DataDir=" + g_carpeta + "/data");
        DataAdapters reg;
        reg.Conexion = cn;
        auto da = reg.articulo();
        std::printf("articulo %s\n", da->CrearTabla() ? "created" : "kept");

        entarticulo cafe;
        cafe.CD_ARTICULO = "CAF01";
        cafe.TIPO_FAMILIA = 1;
        cafe.PRECIOMAX = 1.8;
        cafe.DESC_ARTICULO = "Caf\xC3\xA9 con leche";
        da->Insert(cafe);

        entarticulo bocadillo;
        bocadillo.CD_ARTICULO = "BOC01";
        bocadillo.TIPO_FAMILIA = 2;
        bocadillo.PRECIOMAX = 4.5;
        bocadillo.DESC_ARTICULO = "Bocadillo de jam\xC3\xB3n";
        da->Insert(bocadillo);

        auto lista = da->Listar();  // in key order
        std::printf("%d articles\n", lista->Count());
        for (const auto& a : *lista)
            std::printf("%s;%d;%s;%s\n", a->CD_ARTICULO.c_str(), a->TIPO_FAMILIA, CStr(Variant(a->PRECIOMAX)).c_str(),
                        a->DESC_ARTICULO.c_str());
        return 0;
    } catch (const Error& e) {
        std::fprintf(stderr, "error %d (%s): %s\n", e.Number, e.Source.c_str(), e.Description.c_str());
        return 2;
    }
}
