// The table entity template.
//
// A table is described once, as data: its field table (member, column name,
// type, index, key place, required place, set place, SQL pieces, column
// definition) and its deviations. TableEntity<E> gives every entity class
// the IEntidad operations over that description:
//   GetValor/GetValorIndice/GetNombreCampo answer "#ERROR#" for an unknown
//   name or index and raise nothing for it; SetValor raises 0 "Nombre campo
//   incorrecto" for an unknown name; SetValorIndice ignores a bad index.
//   Every operation but Nombre, Tabla and NumCampos raises again what fails
//   inside it with a fixed source: "<tabla>Entidad", "<tabla>IEntidad_SetValor",
//   "<tabla>IEntidad_SetValorIndice", " ent<tabla>" (CargarEntidad).
// A table's description is built once, at its first Def(), and is immutable
// after: Def() may be called from any thread. An entity is a plain value
// object (shared through std::shared_ptr by the lists), used by one thread
// at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Date.h"

namespace OVT_ZARO {

enum class TipoCampo : uint8_t { Entero, Doble, Fecha, Texto };

// One field of a table entity.
struct CampoDef {
    std::string_view Nombre;  // as GetNombreCampo and every SQL statement spell it
    TipoCampo Tipo = TipoCampo::Texto;
    // The member, seen from the contract (a pointer to member of the entity
    // class converted to its base IEntidad).
    union {
        int32_t IEntidad::*Entero;
        double IEntidad::*Doble;
        Date IEntidad::*Fecha;
        std::string IEntidad::*Texto;
    } Miembro{};
    int16_t Clave = 0;      // place in the adapter's key; 0: not in it
    int16_t Requerido = 0;  // place in the checks of CamposOk; 0: not checked
    int16_t Set = 0;        // place in the set list of Update; 0: never written
    std::string_view Definicion;  // column definition of CrearTabla; empty: none
    // Deviations of single fields:
    std::string_view LiteralSet;    // the set-list literal when it is not the rule's
    std::string_view TrasValor;     // text written behind the value in Insert and Update
    bool ConversionDirecta = false;  // SetValor converts straight to the type, without NormalizarNumero
    bool SetValorIgnoraValor = false;  // SetValor by name stores the field's own value again
};

// The description of one table.
struct TablaDef {
    std::string_view Tabla;        // the table literal ("articulo")
    std::string_view ClaseEntidad;  // "entarticulo"
    std::string_view ClaseLista;    // "colarticulo"
    std::string_view ClaseAdapter;  // "daarticulo"
    std::vector<CampoDef> Campos;   // every field, in field order
    // The index table: Indices[i - 1] is the position in Campos of index i.
    std::vector<int16_t> Indices;
    int32_t NumCampos = 0;
    // The field GetValor("") answers; -1: the argument itself.
    int16_t CampoNombreVacio = -1;
    // The field name that, inside GetValor and SetValor, means the argument.
    std::string_view NombreArgumento;
    std::string_view FuenteToXML = " entmaepai";
    // Literal SQL pieces; a piece beginning with "." gets the table name in front.
    std::vector<std::string_view> Select;
    std::vector<std::string_view> OrderBy;
    std::vector<std::string_view> Insert;  // the column list of Insert
    std::string_view PrimaryKey;           // the key line of CrearTabla
    // The fields that the list's Add and ItemClave take, in their order.
    std::vector<std::string_view> ArgumentosAdd;
    std::vector<std::string_view> ArgumentosItemClave;

    // Derived when the description is finished (Completar):
    std::vector<int16_t> PorClave;      // positions in Campos, in key order
    std::vector<int16_t> PorRequerido;  // positions in Campos, in CamposOk order
    std::vector<int16_t> PorSet;        // positions in Campos, in set order
    std::vector<int16_t> PorArgumentoAdd;        // positions in Campos, in the order of Add
    std::vector<int16_t> PorArgumentoItemClave;  // positions in Campos, in the order of ItemClave
    std::string FuenteEntidad, FuenteSetValor, FuenteSetValorIndice, FuenteCargar, FuenteAdapter, FuenteUpdate;

    // Position in Campos of a name compared ignoring case; -1 when none.
    int Buscar(std::string_view nombre) const;
    // The same for a name the description itself gives: a name that is no
    // field raises the error of a broken description.
    int16_t Campo(std::string_view nombre) const;
    // Position in Campos of an index; -1 when outside the index table.
    int PorIndice(int indice) const;
    // Checks the description and fills the derived members. Called once, by
    // the builder, at the table's first Def(). A broken description raises
    // 51, source "TablaDef", naming the table and what is wrong: a name that
    // is no field (in a deviation, the select or insert pieces, the argument
    // lists of Add and ItemClave), an index place left out, key, required or
    // set places that are not 1, 2, 3 ... without a gap, a select list that
    // does not name once each field with a column, an insert list that does
    // not name every field once.
    void Completar();
    // Raises the error of a broken description of this table.
    [[noreturn]] void Rota(const std::string& problema) const;
};

// The library's own reach into an entity's typed members, for its templates
// and adapters. Each requires an entity of the class the description was
// built for: given another entity, a member access is undefined behaviour.
// Hosts read and write fields through IEntidad (GetValor, SetValor ...).
namespace detail {
// Reads and writes the typed member of a field.
Variant LeerMiembro(IEntidad& e, const CampoDef& c);
void AsignarMiembro(IEntidad& e, const CampoDef& c, int32_t v);
void AsignarMiembro(IEntidad& e, const CampoDef& c, double v);
void AsignarMiembro(IEntidad& e, const CampoDef& c, Date v);
void AsignarMiembro(IEntidad& e, const CampoDef& c, const std::string& v);
// Stores a value in a field by the field's conversion (NormalizarNumero for
// numbers, the zero date for an unreadable date, the text form for strings).
void ConvertirYAsignar(IEntidad& e, const CampoDef& c, const Variant& v);

// The IEntidad operations over a description (the template's bodies).
namespace EntidadOps {
Variant GetValor(IEntidad& e, const TablaDef& t, ByRef<std::string> Campo);
Variant GetValorIndice(IEntidad& e, const TablaDef& t, int16_t indice);
std::string GetNombreCampo(const TablaDef& t, int16_t indice);
void SetValor(IEntidad& e, const TablaDef& t, ByRef<std::string> Campo, const Variant& valor);
void SetValorIndice(IEntidad& e, const TablaDef& t, int16_t indice, const Variant& valor);
// SetValorIndice of a text, as a text cell of an import arrives.
void SetValorIndiceTexto(IEntidad& e, const TablaDef& t, int16_t indice, std::string_view texto);
void CargarEntidad(IEntidad& e, const TablaDef& t, ADODB::Fields& Registro);
std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& e, const TablaDef& t, ByRef<std::string> NombreElementoXML);
}  // namespace EntidadOps
}  // namespace detail

// The base of every table entity class E; E gives `static const TablaDef& Def()`.
template <class E>
class TableEntity : public IEntidad {
public:
    Variant GetValor(ByRef<std::string> Campo) override { return detail::EntidadOps::GetValor(*this, E::Def(), Campo); }
    Variant GetValorIndice(ByRef<int16_t> IndiceCampo) override {
        return detail::EntidadOps::GetValorIndice(*this, E::Def(), *IndiceCampo);
    }
    int32_t NumCampos() override { return E::Def().NumCampos; }
    std::string GetNombreCampo(ByRef<int16_t> IndiceCampo) override {
        return detail::EntidadOps::GetNombreCampo(E::Def(), *IndiceCampo);
    }
    void CargarEntidad(ADODB::Fields& Registro) override { detail::EntidadOps::CargarEntidad(*this, E::Def(), Registro); }
    void SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) override {
        detail::EntidadOps::SetValor(*this, E::Def(), Campo, *Valor);
    }
    void SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) override {
        detail::EntidadOps::SetValorIndice(*this, E::Def(), *IndiceCampo, *Valor);
    }
    std::string Nombre() override { return std::string(E::Def().Tabla); }
    std::string Tabla() override { return std::string(E::Def().Tabla); }
    std::string TypeName() const override { return std::string(E::Def().ClaseEntidad); }

    // The entity as an XML element named NombreElementoXML, or the table
    // name when that is empty (written back to the argument).
    std::shared_ptr<XML::IXMLDOMElement> ToXML(ByRef<std::string> NombreElementoXML = {}) {
        return detail::EntidadOps::ToXML(*this, E::Def(), NombreElementoXML);
    }
};

// Builds a table description field by field from pointers to members.
template <class E>
class TablaBuilder {
public:
    struct Opciones {
        int16_t Indice = 0;  // 0: no index
        int16_t Clave = 0;
        int16_t Requerido = 0;
        int16_t Set = 0;
        std::string_view Definicion;
    };

    explicit TablaBuilder(std::string_view tabla, std::string_view clase_entidad, std::string_view clase_lista,
                          std::string_view clase_adapter) {
        def_.Tabla = tabla;
        def_.ClaseEntidad = clase_entidad;
        def_.ClaseLista = clase_lista;
        def_.ClaseAdapter = clase_adapter;
    }

    TablaBuilder& Campo(int32_t E::*m, std::string_view nombre, Opciones o) {
        CampoDef c = Base(nombre, TipoCampo::Entero, o);
        c.Miembro.Entero = static_cast<int32_t IEntidad::*>(m);
        return Agregar(c, o.Indice);
    }
    TablaBuilder& Campo(double E::*m, std::string_view nombre, Opciones o) {
        CampoDef c = Base(nombre, TipoCampo::Doble, o);
        c.Miembro.Doble = static_cast<double IEntidad::*>(m);
        return Agregar(c, o.Indice);
    }
    TablaBuilder& Campo(Date E::*m, std::string_view nombre, Opciones o) {
        CampoDef c = Base(nombre, TipoCampo::Fecha, o);
        c.Miembro.Fecha = static_cast<Date IEntidad::*>(m);
        return Agregar(c, o.Indice);
    }
    TablaBuilder& Campo(std::string E::*m, std::string_view nombre, Opciones o) {
        CampoDef c = Base(nombre, TipoCampo::Texto, o);
        c.Miembro.Texto = static_cast<std::string IEntidad::*>(m);
        return Agregar(c, o.Indice);
    }
    // The last field added: a deviation of its own.
    CampoDef& Ultimo() { return def_.Campos.back(); }
    // A further index for an existing field (a second entry in the index table).
    TablaBuilder& IndiceExtra(int16_t indice, std::string_view nombre) {
        Poner(indice, def_.Campo(nombre));
        return *this;
    }
    TablaDef& Def() { return def_; }
    TablaDef Terminar(int32_t num_campos) {
        def_.NumCampos = num_campos;
        def_.Completar();
        return std::move(def_);
    }

private:
    static CampoDef Base(std::string_view nombre, TipoCampo tipo, const Opciones& o) {
        CampoDef c;
        c.Nombre = nombre;
        c.Tipo = tipo;
        c.Clave = o.Clave;
        c.Requerido = o.Requerido;
        c.Set = o.Set;
        c.Definicion = o.Definicion;
        return c;
    }
    TablaBuilder& Agregar(const CampoDef& c, int16_t indice) {
        def_.Campos.push_back(c);
        if (indice > 0) Poner(indice, static_cast<int16_t>(def_.Campos.size() - 1));
        return *this;
    }
    void Poner(int16_t indice, int16_t pos) {
        if (def_.Indices.size() < static_cast<size_t>(indice)) def_.Indices.resize(static_cast<size_t>(indice), -1);
        def_.Indices[static_cast<size_t>(indice - 1)] = pos;
    }

    TablaDef def_;
};

}  // namespace OVT_ZARO
