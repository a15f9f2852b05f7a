#include "ZARODatos/binding/Columna.h"

#include "ZARODatos/platform/Strings.h"

namespace OVT_ZARO {

std::string Columna::NombreCabecera() const {
    if (!cabecera_.empty()) return cabecera_;
    return Replace(Nombre, "_", " ");
}

ColumnaRef coleccionColumnas::AddColumna(ByRef<ColumnaRef> objColumna) {
    auto nueva = std::make_shared<Columna>();
    // Assigning objColumna to the new column's default member: a column has none, so this always
    // raises, and the steps that would add the new column under its Nombre are never reached.
    (void)nueva, (void)objColumna;
    RaisePlatform(ErrNum::MemberNotFound, "Columna");
}

ColumnaRef coleccionColumnas::Add(const std::string& Nombre, const std::string& NombreCabecera, int32_t AnchoColuna,
                                  int32_t Alineacion, const std::string& Formato, eTiposDatoColumna TipoDato) {
    // No handler: the collection's failure (457 for a Nombre already there) reaches the caller.
    auto c = std::make_shared<Columna>();
    c->NombreCabecera(NombreCabecera);
    c->Formato = Formato;
    c->Alineacion = Alineacion;
    c->AnchoColuna = AnchoColuna;
    c->Nombre = Nombre;
    c->TipoDato = TipoDato;
    columnas_.Add(c, Nombre);
    return c;
}

ColumnaRef coleccionColumnas::Item(const Variant& vntIndexKey) {
    try {
        return columnas_.Item(vntIndexKey);
    } catch (...) {
        // Not there: a fixed-text column, not added.
        auto c = std::make_shared<Columna>();
        c->TipoDato = TextoFijo;
        return c;
    }
}

}  // namespace OVT_ZARO
