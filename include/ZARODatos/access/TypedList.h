// The typed list template: the list class col<tabla> of every table.
//
// Holds entities of its table in insertion order without keys (a list never
// rejects an element: two elements with equal keys are both kept, and no
// object is kept as it is).
// ItemClave scans the list in order and answers the first element whose key
// fields all match (strings by text comparison, integers exactly, doubles
// and dates as doubles exactly), or no object. No operation of the list
// itself catches anything: the collection's errors pass through.
// Ownership: shared references to its entities. Thread: one thread at a time.
#pragma once

#include <memory>
#include <string>

#include "ZARODatos/access/EntityList.h"
#include "ZARODatos/core/TableEntity.h"

namespace OVT_ZARO {

namespace detail {
bool ClaveCoincide(IEntidad& e, const CampoDef& c, int32_t v);
bool ClaveCoincide(IEntidad& e, const CampoDef& c, double v);
bool ClaveCoincide(IEntidad& e, const CampoDef& c, Date v);
bool ClaveCoincide(IEntidad& e, const CampoDef& c, const std::string& v);
// The field of the i-th argument of Add or ItemClave (positions from PorArgumentoAdd ...).
const CampoDef& CampoDeArgumento(const TablaDef& t, const std::vector<int16_t>& orden, size_t i);
}  // namespace detail

template <class Self, class E>
class TypedList : public EntityList<Self, E> {
public:
    using typename EntityList<Self, E>::EntityRef;

    std::string Nombre() override { return std::string(E::Def().Tabla); }
    std::string Tabla() override { return std::string(E::Def().Tabla); }
    std::shared_ptr<IEntidad> NewEntidad() override { return std::make_shared<E>(); }
    std::string TypeName() const override { return std::string(E::Def().ClaseLista); }

    // Appends the given object (not a copy) and returns it.
    EntityRef AddEntidad(ByRef<EntityRef> Objeto) {
        this->Anexar(*Objeto);
        return *Objeto;
    }

protected:
    // The body of Add: a new entity with the arguments in the order the
    // table's Add takes them, appended and returned.
    template <class... A>
    EntityRef NuevoConArgumentos(const A&... valores) {
        auto e = std::make_shared<E>();
        const TablaDef& t = E::Def();
        size_t i = 0;
        (detail::AsignarMiembro(*e, detail::CampoDeArgumento(t, t.PorArgumentoAdd, i++), valores), ...);
        this->Anexar(e);
        return e;
    }

    // The body of ItemClave: the arguments in the order the table's ItemClave takes them.
    template <class... K>
    EntityRef BuscarClave(const K&... claves) {
        const TablaDef& t = E::Def();
        const auto& orden = t.PorArgumentoItemClave;
        for (const EntityRef& e : this->items_) {
            size_t i = 0;
            IEntidad& entidad = detail::Elemento(e);  // an element that is no object: 91, to the caller
            if ((detail::ClaveCoincide(entidad, detail::CampoDeArgumento(t, orden, i++), claves) && ...)) return e;
        }
        return nullptr;
    }
};

}  // namespace OVT_ZARO
