// Name and value elements: entElemento, one name with one value, and
// coleccionElementos, a list of such pairs.
//
// Together they are the field store of entidadGenerica, and a caller can use
// them alone as a small property bag that list binding shows through
// IEntidad and IListaEntidades. Neither has a table or an adapter.
//
// entElemento stores what it is given: Valor keeps the variant as it comes
// (number, string, date, null, object); the numeric conversions of the table
// entities do not apply. Failure style: every operation but Nombre, Tabla and
// NumCampos raises again what fails inside it with its number and
// description under the source "entElemento " (the class name and a blank);
// CargarEntidad turns 3265 into 3 "La estructura del registro no coincide con
// la entidad" under " entEntidadSimple"; ToXML raises again under
// " entmaepai".
//
// coleccionElementos holds its elements in insertion order, without keys. It
// has no handling of its own: the collection's errors (9 for a bad position,
// 5 for a string) and the elements' pass through.
//
// Ownership: shared (std::shared_ptr); a list holds references, not copies.
// Thread: one thread at a time.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ZARODatos/access/EntityList.h"
#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"

namespace OVT_ZARO {

namespace detail {
// The contract's Nombre of entElemento. It stands in a base of its own
// because entElemento has a public field of the same name, which hides it.
class ElementoContrato : public IEntidad {
public:
    std::string Nombre() override { return "entElemento"; }
};
}  // namespace detail

class entElemento : public detail::ElementoContrato {
public:
    // A new element has an empty Nombre and an empty Valor.
    std::string Nombre;
    Variant Valor;

    // "Nombre" gives Nombre as a string, "Valor" the Valor (names compare
    // ignoring case); any other name, the empty one included, "#ERROR#".
    Variant GetValor(ByRef<std::string> Campo) override;
    // 1 Nombre, 2 Valor, any other index "#ERROR#".
    Variant GetValorIndice(ByRef<int16_t> IndiceCampo) override;
    int32_t NumCampos() override { return 2; }
    // 1 "Nombre", 2 "Valor", any other index "#ERROR#".
    std::string GetNombreCampo(ByRef<int16_t> IndiceCampo) override;
    // Nombre from the column "Nombre" as text, Valor from "Valor" as it is,
    // each with the integer 0 as default: a missing or null column gives
    // Nombre the text "0" and Valor the integer 0.
    void CargarEntidad(ADODB::Fields& Registro) override;
    // "Nombre" stores the value's text, "Valor" the value unchanged; any other
    // name raises 0 "Nombre campo incorrecto".
    void SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) override;
    // 1 and 2 as SetValor; any other index does nothing and raises nothing.
    void SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) override;
    std::string Tabla() override { return {}; }
    std::string TypeName() const override { return "entElemento"; }

    // The element as XML, named NombreElementoXML or "entElemento" when that
    // is empty (written back to the argument).
    std::shared_ptr<XML::IXMLDOMElement> ToXML(ByRef<std::string> NombreElementoXML = {});
};

using entElementoRef = std::shared_ptr<entElemento>;

class entidadGenerica;

class coleccionElementos : public EntityCollection<entElemento> {
public:
    std::string Nombre() override { return "coleccionElementos"; }
    std::string Tabla() override { return {}; }
    // A new entElemento, not added.
    std::shared_ptr<IEntidad> NewEntidad() override { return std::make_shared<entElemento>(); }
    std::string TypeName() const override { return "coleccionElementos"; }

    // The first element whose Nombre equals sNombre by text comparison (case
    // ignored), or no object.
    entElementoRef ItemClave(ByRef<std::string> sNombre);
    // Appends the given object, no object too, and returns it; ItemClave then
    // raises 91 when it reaches no object before a match.
    entElementoRef AddEntidad(ByRef<entElementoRef> Objeto);
    // A new element with both fields, appended and returned. A name already
    // there is not looked for: two calls with one name give two elements.
    entElementoRef Add(ByRef<std::string> Nombre, ByRef<Variant> Valor);

private:
    friend class entidadGenerica;
    // Where the element ItemClave answers stands in the list, or nullptr.
    const entElementoRef* Buscar(std::string_view nombre) const;
    entElemento& Anadir(std::string nombre, Variant valor);
};

using coleccionElementosRef = std::shared_ptr<coleccionElementos>;

}  // namespace OVT_ZARO
