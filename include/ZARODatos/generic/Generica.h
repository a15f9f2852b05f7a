// The dynamic entity: entidadGenerica, whose fields are not declared, and
// coleccionGenerica, a list of them that loads a whole Recordset.
//
// An entidadGenerica grows one field for each name it is given and can take
// the shape of any Recordset or of any other entity, so the result of any
// query (a join, an aggregate, a table without classes) reaches every
// consumer of IEntidad and IListaEntidades, the list queries included.
//
// entidadGenerica: its whole state is Campos, a coleccionElementos. Campos
// starts as no object and is made on first use: every operation that finds
// it empty makes a new empty list first, so an entity never fails for want
// of it. A caller may assign another list, and then two entities share their
// fields. Fields come in order of first assignment, have no type (Valor is
// what was stored) and their names compare ignoring case.
// Failure styles:
//   - GetValor, SetValor, GetValorIndice, SetValorIndice, GetNombreCampo and
//     CargarEntidad raise again what fails inside them with its number and
//     description under the source "entidadGenerica"; CargarEntidad turns
//     3265 into 3 "La estructura del registro no coincide con la entidad".
//     A bad index is the collection's error (9), not "#ERROR#".
//   - CargarDe and CargarEn carry on: a field that fails is skipped and
//     nothing is raised.
//   - ToXML raises again under " entmaepai".
//
// coleccionGenerica: the list with the seven queries of the typed lists (one
// implementation, EntityList), its elements without keys. Cargar and the
// collection operations have no handling of their own: a failure of the
// Recordset or of an entity passes through, and the rows loaded so far stay.
//
// Ownership: shared (std::shared_ptr); lists hold references, not copies.
// Thread: one thread at a time.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/access/EntityList.h"
#include "ZARODatos/generic/Elementos.h"

namespace OVT_ZARO {

namespace generico {
class Bloque;  // the memory of one loaded row (internal)
}

class entidadGenerica : public IEntidad {
public:
    // The fields; no object until first use.
    coleccionElementosRef Campos;

    std::string Nombre() override { return "entidadGenerica"; }
    std::string Tabla() override { return {}; }
    // The Valor of the field of that name, or "#ERROR#" (which makes no field).
    Variant GetValor(ByRef<std::string> Campo) override;
    // Stores the value in the field of that name, adding the field when there
    // is none: an unknown name is no error here.
    void SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) override;
    // The Valor of Campos.Item(IndiceCampo); a bad position raises 9.
    Variant GetValorIndice(ByRef<int16_t> IndiceCampo) override;
    void SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) override;
    // The Nombre of Campos.Item(IndiceCampo); a bad position raises 9.
    std::string GetNombreCampo(ByRef<int16_t> IndiceCampo) override;
    int32_t NumCampos() override;
    // Every column of Registro, by position, into the field of its name (made
    // when missing), its value through ValorDeCampo (null becomes 0 or the
    // empty string by the column's type). Fields the row does not name stay;
    // two columns of one name end in one field with the later value.
    void CargarEntidad(ADODB::Fields& Registro) override;
    std::string TypeName() const override { return "entidadGenerica"; }

    // Copies fields 1 to NumCampos of Entidad into this one through SetValor.
    // Carries on: nothing is raised.
    void CargarDe(IEntidad& Entidad);
    void CargarDe(const std::shared_ptr<IEntidad>& Entidad);
    // Copies fields 1 to NumCampos of this one into Entidad through its
    // SetValor; fields Entidad does not have are dropped silently.
    void CargarEn(IEntidad& Entidad);
    void CargarEn(const std::shared_ptr<IEntidad>& Entidad);

    // The entity as XML, one child per field, named NombreElementoXML or
    // "entidadGenerica" when that is empty (written back to the argument).
    std::shared_ptr<XML::IXMLDOMElement> ToXML(ByRef<std::string> NombreElementoXML = {});

private:
    friend class coleccionGenerica;
    coleccionElementos& CamposListos();
    // What CargarEntidad does on a new entity, with the matching of column
    // names to fields worked out once for the whole Recordset: column i goes
    // to field destino[i], which is a new field when it equals the count so far.
    void CargarFilaNueva(ADODB::Fields& Registro, const std::vector<int32_t>& destino, int32_t numCampos,
                         generico::Bloque& bloque);
};

using entidadGenericaRef = std::shared_ptr<entidadGenerica>;

class coleccionGenerica : public EntityList<coleccionGenerica, entidadGenerica> {
public:
    std::string Nombre() override { return "coleccionGenerica"; }
    std::string Tabla() override { return {}; }
    // A new entidadGenerica, not added.
    std::shared_ptr<IEntidad> NewEntidad() override { return std::make_shared<entidadGenerica>(); }
    std::string TypeName() const override { return "coleccionGenerica"; }

    // Appends one new entity per row of rs, from its current row to its end,
    // each loaded as CargarEntidad loads it, and leaves rs at its end. Adds
    // to what the list holds. No object in rs raises 91.
    void Cargar(ByRef<std::shared_ptr<ADODB::Recordset>> rs);
    // Appends the given object, no object too, and returns it.
    entidadGenericaRef Add(ByRef<entidadGenericaRef> Objeto);
};

using coleccionGenericaRef = std::shared_ptr<coleccionGenerica>;

}  // namespace OVT_ZARO
