// The simple key entity: entEntidadSimple, the general entry of a look-up
// (up to three key values, a description and any object the caller carries
// along), and colEntidadSimple, its list.
//
// The keys are untyped on purpose: a key can be a number, a text or a date,
// and nothing converts it. A new entity has three empty keys, an empty
// Descripcion and no Objeto. Objeto is reached only through the public field
// (or Add); GetValor("Objeto") gives the platform's type name of it, "Nothing"
// for no object.
// Failure style of entEntidadSimple: GetValor, GetValorIndice and
// GetNombreCampo raise again what fails inside them under the source
// "EntidadSimpleEntidad"; SetValor and SetValorIndice under
// "entEntidadSimple"; CargarEntidad under " entEntidadSimple", turning 3265
// into 3 "La estructura del registro no coincide con la entidad"; ToXML under
// " entmaepai". Always with the caught number and description.
//
// colEntidadSimple holds its entities in insertion order without keys and
// has no handling of its own.
//
// Ownership: shared (std::shared_ptr); a list holds references, not copies.
// Thread: one thread at a time.
#pragma once

#include <memory>
#include <string>

#include "ZARODatos/access/EntityList.h"
#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"

namespace OVT_ZARO {

class entEntidadSimple : public IEntidad {
public:
    Variant Clave1;
    Variant Clave2;
    Variant Clave3;
    std::string Descripcion;
    ObjectRef Objeto;

    std::string Nombre() override { return "EntidadSimple"; }
    std::string Tabla() override { return {}; }
    // "Clave1" to "Clave3" the key as stored, "Descripcion" the description,
    // "Objeto" the type name of Objeto, the empty name the description, any
    // other "#ERROR#". Names compare ignoring case.
    Variant GetValor(ByRef<std::string> Campo) override;
    // 1 to 3 the keys, 4 the description, 5 the type name of Objeto, any other
    // index "#ERROR#".
    Variant GetValorIndice(ByRef<int16_t> IndiceCampo) override;
    // 1 to 5 "Clave1", "Clave2", "Clave3", "Descripcion", "Objeto"; any other
    // index "#ERROR#".
    std::string GetNombreCampo(ByRef<int16_t> IndiceCampo) override;
    int32_t NumCampos() override { return 5; }
    // The keys from the columns "Clave1" to "Clave3" as they are, with the
    // integer 0 as default; Descripcion from "Descripcion" as text, with the
    // empty string as default. Objeto is not read.
    void CargarEntidad(ADODB::Fields& Registro) override;
    // The keys take the value as it is, "Descripcion" its text; "Objeto" is a
    // known name that stores nothing; any other name raises 0 "Nombre campo
    // incorrecto".
    void SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) override;
    // 1 to 4 as SetValor; 5 and any other index do nothing and raise nothing.
    void SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) override;
    std::string TypeName() const override { return "entEntidadSimple"; }

    // The entity as XML over the five indices, named NombreElementoXML or
    // "EntidadSimple" when that is empty (written back to the argument).
    std::shared_ptr<XML::IXMLDOMElement> ToXML(ByRef<std::string> NombreElementoXML = {});
};

using entEntidadSimpleRef = std::shared_ptr<entEntidadSimple>;

class colEntidadSimple : public EntityCollection<entEntidadSimple> {
public:
    std::string Nombre() override { return "EntidadSimple"; }
    std::string Tabla() override { return {}; }
    // A new entEntidadSimple, not added.
    std::shared_ptr<IEntidad> NewEntidad() override { return std::make_shared<entEntidadSimple>(); }
    std::string TypeName() const override { return "colEntidadSimple"; }

    // The first entity whose three keys each equal the argument of the same
    // place by the text comparison of values (texts ignore case, numbers and
    // dates compare by value, a number never equals a text), or no object. A
    // comparison with null is no match. A key that can not be compared (an
    // object, a byte array) raises 13.
    entEntidadSimpleRef ItemClave(ByRef<Variant> Clave1, ByRef<Variant> Clave2, ByRef<Variant> Clave3);
    // Appends the given object, no object too, and returns it; ItemClave then
    // raises 91 when it reaches no object before a match.
    entEntidadSimpleRef AddEntidad(ByRef<entEntidadSimpleRef> Objeto);
    // A new entity with the three keys, the description and the object,
    // appended and returned.
    entEntidadSimpleRef Add(ByRef<Variant> Clave1, ByRef<Variant> Clave2, ByRef<Variant> Clave3,
                            const std::string& Descripcion = {}, const ObjectRef& Objeto = nullptr);
};

using colEntidadSimpleRef = std::shared_ptr<colEntidadSimple>;

}  // namespace OVT_ZARO
