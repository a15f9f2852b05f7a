// The contracts every row, list and adapter of the library obeys.
//
// IEntidad is one row: fields read and written by name or by a one-based
// index, their count and names, and loading from a Fields of a Recordset.
// IListaEntidades is a list of such rows; IDataAdapter marks a table's
// adapter. An object of a contract class itself is valid and does nothing:
// every operation returns an empty result and raises nothing.
// Ownership: shared (std::shared_ptr). Thread: one thread at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/ByRef.h"
#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO {

class IEntidad : public Object {
public:
    // The value of the field named Campo (names compare ignoring case).
    virtual Variant GetValor(ByRef<std::string> Campo);
    virtual Variant GetValorIndice(ByRef<int16_t> IndiceCampo);
    virtual int32_t NumCampos();
    virtual std::string GetNombreCampo(ByRef<int16_t> IndiceCampo);
    virtual void CargarEntidad(ADODB::Fields& Registro);
    // The write side of the indexed property SetValor(Campo) = Valor.
    virtual void SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor);
    virtual void SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor);
    virtual std::string Nombre();
    virtual std::string Tabla();

    std::string TypeName() const override { return "IEntidad"; }

    // The contract's operations under their public prefixed names.
    Variant IEntidad_GetValor(ByRef<std::string> Campo) { return GetValor(Campo); }
    Variant IEntidad_GetValorIndice(ByRef<int16_t> IndiceCampo) { return GetValorIndice(IndiceCampo); }
    int32_t IEntidad_NumCampos() { return NumCampos(); }
    std::string IEntidad_GetNombreCampo(ByRef<int16_t> IndiceCampo) { return GetNombreCampo(IndiceCampo); }
    void IEntidad_CargarEntidad(ADODB::Fields& Registro) { CargarEntidad(Registro); }
    void IEntidad_SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) { SetValor(Campo, Valor); }
    void IEntidad_SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) { SetValorIndice(IndiceCampo, Valor); }
    std::string IEntidad_Nombre() { return Nombre(); }
    std::string IEntidad_Tabla() { return Tabla(); }
};

class IListaEntidades : public Object {
public:
    virtual std::string Nombre();
    virtual std::string Tabla();
    // A fresh, empty entity of the list's kind; it is not added to the list.
    virtual std::shared_ptr<IEntidad> NewEntidad();

    std::string TypeName() const override { return "IListaEntidades"; }

    std::string IListaEntidades_Nombre() { return Nombre(); }
    std::string IListaEntidades_Tabla() { return Tabla(); }
    std::shared_ptr<IEntidad> IListaEntidades_NewEntidad() { return NewEntidad(); }
};

// Marks a table's adapter so that it can be handed around as one.
class IDataAdapter : public Object {
public:
    std::string TypeName() const override { return "IDataAdapter"; }
};

using IEntidadRef = std::shared_ptr<IEntidad>;
using ConnectionRef = std::shared_ptr<ADODB::Connection>;
// The optional by-reference connection argument of the adapters.
using ConexionArg = ByRef<ConnectionRef>;

}  // namespace OVT_ZARO
