// A short tour of the library on the embedded database: the code the
// README's API tour shows.
#include <cstdio>
#include <filesystem>

#include "ZARODatos.h"

using namespace OVT_ZARO;

int main(int argc, char** argv) {
    const std::string carpeta = argc > 1 ? argv[1] : "zaro-tour-data";
    try {
        // The caller opens the connection and hands it over.
        auto cn = std::make_shared<ADODB::Connection>();
        cn->Open("DataDir=" + carpeta);
        DataAdapters reg;
        reg.Conexion = cn;
        auto da = reg.articulo();  // made on first use, with the registry's connection
        da->CrearTabla();          // true when created; an existing table with rows is kept

        // Entities are plain classes with public fields.
        entarticulo cafe;
        cafe.CD_ARTICULO = "CAF01";
        cafe.DESC_ARTICULO = "Caf\xC3\xA9 con leche";
        cafe.PRECIOMAX = 1.8;
        cafe.TIPO_FAMILIA = 1;
        if (da->Existe(cafe)) da->Update(cafe);
        else da->Insert(cafe);

        colarticulo nuevos;
        nuevos.Add("BOC01", 0, {}, {}, 0, 0, {}, 2, 0, 4.5, "Bocadillo de jam\xC3\xB3n", "Bocadillo");
        nuevos.Add("AGU01", 0, {}, {}, 0, 0, {}, 1, 0, 1.2, "Agua mineral", "Agua");
        da->GrabarDatos(nuevos);  // checks CamposOk, then Update or Insert each

        // Reads: by key, all rows, by condition; lists sort, filter and total in memory.
        auto lista = da->Listar();
        auto bebidas = lista->Where("TIPO_FAMILIA", "1");
        std::printf("%d articles, %d drinks, drinks total %s\n", lista->Count(), bebidas->Count(),
                    CStr(Variant(bebidas->ObtenerSuma("PRECIOMAX"))).c_str());
        auto porPrecio = lista->OrderBy("PRECIOMAX", true);  // a new list over the same entities
        for (const auto& a : *porPrecio)
            std::printf("  %-6s %-24s %s\n", a->CD_ARTICULO.c_str(), a->DESC_ARTICULO.c_str(),
                        CStr(Variant(a->PRECIOMAX)).c_str());

        // Separated text and XML.
        std::printf("%s", da->ExportarTexto(*bebidas, ";").c_str());
        std::printf("%s\n", da->Entidad("CAF01")->ToXML()->xml().c_str());

        // Any query through the generic entities.
        auto rs = cn->Execute("select TIPO_FAMILIA, count(*) as n from articulo group by TIPO_FAMILIA");
        coleccionGenerica porFamilia;
        porFamilia.Cargar(rs);
        for (const auto& g : porFamilia)
            std::printf("family %s: %s articles\n", CStr(g->GetValor("TIPO_FAMILIA")).c_str(),
                        CStr(g->GetValor("n")).c_str());
        for (const Variant& sql : *da->LogSQL) std::printf("logged: %s\n", sql.Get<std::string>().c_str());

        // The screen road: a grid of the host's form loaded from a typed list,
        // edited by a user (here the headless kit's driver), read back.
        auto form = Headless::Form::Create("frmArticulos");  // QtKit::Form with the Qt kit
        auto grid = form->Add<Headless::MSFlexGrid>("grdArticulos");
        auto txt = form->Add<Headless::TextBox>("txtEdicion");  // the overlays of an edit
        auto lst = form->Add<Headless::ListBox>("lstBusqueda");
        txt->SetVisible(false);
        lst->SetVisible(false);
        auto helper = std::make_shared<ControlListHelper>();
        auto cols = std::make_shared<coleccionColumnas>();
        cols->Add("CD_ARTICULO", "C\xC3\xB3" "digo", 0);  // width 0: a hidden key column
        cols->Add("DESC_ARTICULO", "Descripci\xC3\xB3n", 2400);
        cols->Add("PRECIOMAX", "Precio", 1000, 0, "", NumDecimal);  // shown as "#,##0.00"
        helper->CeldaModificada.Attach([&](ControlRef&, ColumnaRef& c, IEntidadRef& e, int32_t&, int32_t&, Variant&,
                                           Variant& nuevo) {
            std::printf("edited %s: %s\n", c->Nombre.c_str(), CStr(nuevo).c_str());
            da->Update(dynamic_cast<entarticulo&>(*e));  // saving is the host's step
        });
        helper->CargaMSFlexGrid(grid, da->Listar(), cols, true, txt, lst);
        HeadlessUser user(form);
        user.DoubleClickCell(grid, 2, 3);  // the text overlay over the price of row 2
        user.Type("2,35");
        user.Enter();
        // Enter moved the cursor on: from the last column to the next row.
        IEntidadRef elegido = helper->ValorSeleccionado(grid);  // the list's own entity of the current row
        std::printf("row 2 shows %s; the cursor stands on row %d, %s\n", grid->GetTextMatrix(2, 3).c_str(),
                    grid->GetRow(), CStr(elegido->GetValor(std::string("CD_ARTICULO"))).c_str());
        return 0;
    } catch (const Error& e) {
        std::fprintf(stderr, "error %d (%s): %s\n", e.Number, e.Source.c_str(), e.Description.c_str());
        return 2;
    }
}
