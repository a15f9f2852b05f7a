// The column model of list binding: which entity fields a grid shows, how,
// and with what lookup or picture.
//
// Columna is one column, coleccionColumnas the ordered set of them (the
// order of the columns on screen, each under the key of its Nombre),
// eTiposDatoColumna the data type of the cells. Nothing here refers to a
// control.
// Failure styles: coleccionColumnas.Add and Remove have no handler (the
// collection's 457, 5 and 9 reach the caller); Item never raises: for a
// position or key that is not there it gives a new column of type
// TextoFijo, not added, so a grid column with no definition is fixed text.
// AddColumna always raises 438 and adds nothing: columns are added by Add.
// Ownership: shared. Thread: the user-interface thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/ByRef.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Controls.h"

namespace OVT_ZARO {

enum eTiposDatoColumna : int32_t {
    NoDefinido = 0,
    Texto = 1,
    TextoFijo = 2,
    Entero = 3,
    NumDecimal = 4,
    Fecha = 5,
    Check = 6,
    Boton = 7,
};

// One column. A new column has empty texts, zeros, no objects and false:
// type NoDefinido, aligned left.
class Columna : public Object {
public:
    std::string Nombre;        // the entity's field, as GetValor takes it; the column's key
    int32_t AnchoColuna = 0;   // width in twips
    int32_t Alineacion = 0;    // 0 left, 1 right, 2 centred
    std::string Formato;       // format text of the platform's Format
    eTiposDatoColumna TipoDato = NoDefinido;
    ConnectionRef Conexion;    // where a lookup runs
    std::string OrigenDatos;                      // the lookup's select, without an order clause
    std::string OrigenDatosCampoClave;            // its key field
    std::string OrigenDatosCampoDescripcion;      // its description field (filtered and sorted by)
    std::string OrigenDatosCampoClaveTablaVista;  // Nombre of the grid column that holds the key
    PictureRef Imagen;   // a cell picture; on a Check column the marked one
    PictureRef Imagen2;  // on a Check column the unmarked picture
    std::string ImagenKey;  // a picture of Form1: before Imagen on a Check column, after it on others
    bool CheckDblClick = false;  // a Check cell toggles on a double click instead of a click

    // The heading: what was written if it is not empty, else Nombre with
    // every "_" read as a blank (the derived heading is not stored).
    void NombreCabecera(const std::string& cabecera) { cabecera_ = cabecera; }
    std::string NombreCabecera() const;

    std::string TypeName() const override { return "Columna"; }

private:
    std::string cabecera_;
};

using ColumnaRef = std::shared_ptr<Columna>;

class coleccionColumnas : public Object {
public:
    // Always raises 438: a column has no default member to assign to.
    ColumnaRef AddColumna(ByRef<ColumnaRef> objColumna);
    // A new column under the key Nombre; a Nombre already there, in any
    // case, raises 457 and adds nothing.
    ColumnaRef Add(const std::string& Nombre, const std::string& NombreCabecera = "", int32_t AnchoColuna = 1000,
                   int32_t Alineacion = 0, const std::string& Formato = "", eTiposDatoColumna TipoDato = NoDefinido);
    // The column at a position (from 1) or under a key; for one that is not
    // there a new TextoFijo column with an empty Nombre, not added.
    ColumnaRef Item(const Variant& vntIndexKey);
    ColumnaRef Item(int32_t posicion) { return Item(Variant(posicion)); }
    ColumnaRef Item(const std::string& clave) { return Item(Variant(clave)); }
    ColumnaRef Item(const char* clave) { return Item(Variant(clave)); }
    int32_t Count() const { return columnas_.Count(); }
    void Remove(const Variant& vntIndexKey) { columnas_.Remove(vntIndexKey); }
    // Enumeration (NewEnum), in the order of the columns.
    auto begin() const { return columnas_.begin(); }
    auto end() const { return columnas_.end(); }

    std::string TypeName() const override { return "coleccionColumnas"; }

private:
    BasicCollection<ColumnaRef> columnas_;
};

using coleccionColumnasRef = std::shared_ptr<coleccionColumnas>;

}  // namespace OVT_ZARO
