// The list base shared by every list with queries: the typed lists of the
// tables and the generic list. Its collection part, EntityCollection, also
// serves the lists without queries (the element and simple key lists).
// Ownership: a list holds shared references to its entities; the queries'
// lists share them too. Thread: one thread at a time; the handlers of
// DelegadoEvaluaElementoWhere run on the thread that asked.
//
// A list owns one private collection of entity references, one-based, in
// insertion order, without keys; it holds references, not copies, so an
// entity can stand in several lists. Item and Remove pass their argument to
// the collection, whose errors reach the caller unchanged (a string always
// fails: no element has a key).
//
// The seven queries (OrderBy, WhereDelegado, Where, ObtenerSuma,
// ObtenerMedia, ObtenerMaximo, ObtenerMinimo) never change the list they are
// asked of and never raise: each step that fails is skipped and the next one
// runs. A list never rejects an element, no object included; a step that
// reads no object's field fails with 91 and is skipped like any other (a
// value read before it is then used again, as a step that fails leaves it). The three list-valued queries give a new list of the same class over
// the same entity objects, with no handler of this list's event attached.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Event.h"

namespace OVT_ZARO {

namespace detail {
// The number a total reads from a field value: its default string form
// through NormalizarNumero, read with "." as the decimal point. A null value
// fails (it has no string form).
inline double ValorParaTotal(const Variant& v) { return Val(BasTroquel::NormalizarNumero(CStr(v))); }

// The entity an element holds. A list never rejects an element, so an
// element may be no object: using it raises 91, as a call on an unset
// object does, and each operation meets that in its own failure style.
template <class T>
T& Elemento(const std::shared_ptr<T>& e) {
    if (!e) RaisePlatform(ErrNum::ObjectNotSet);
    return *e;
}
}  // namespace detail

// The collection part of every list, with or without queries: Count, Item,
// Remove, enumeration and appending without a key.
template <class E>
class EntityCollection : public IListaEntidades, public LateBoundList {
public:
    using Entity = E;
    using EntityRef = std::shared_ptr<E>;

    int32_t Count() const { return items_.Count(); }
    EntityRef Item(const Variant& vntIndexKey) { return items_.Item(vntIndexKey); }
    EntityRef Item(int32_t posicion) { return items_.Item(posicion); }
    void Remove(const Variant& vntIndexKey) { items_.Remove(vntIndexKey); }
    void Remove(int32_t posicion) { items_.Remove(posicion); }
    // The collection's own enumeration (NewEnum).
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }
    // Count and Item as a late-bound caller (list binding) reaches them.
    int32_t LateCount() override { return Count(); }
    Variant LateItem(int32_t posicion) override { return Variant(items_.Item(posicion)); }

    // Appends without a key (the body of AddEntidad and of the queries).
    // A list never rejects an element: no object is appended as it is.
    void Anexar(const EntityRef& e) { items_.Add(e); }
    void Anexar(EntityRef&& e) { items_.Add(std::move(e)); }
    void Reservar(size_t n) { items_.Reserve(n); }

protected:
    BasicCollection<EntityRef> items_;
};

// The list of the seven queries: the collection part and the queries on top.
template <class Self, class E>
class EntityList : public EntityCollection<E> {
public:
    using typename EntityCollection<E>::Entity;
    using typename EntityCollection<E>::EntityRef;
    using EntityCollection<E>::Count;

    // DelegadoEvaluaElementoWhere(idProceso, elem, boolResultado): raised by
    // WhereDelegado for each element; true in boolResultado keeps it.
    Event<std::string, EntityRef, bool> DelegadoEvaluaElementoWhere;

    // A new list with the elements sorted by the field: a bubble sort of
    // exactly Count passes with no early exit, swapping only on strictly
    // less or greater, so ties keep their order in both directions.
    // Each step carries on past a failure: a new list that cannot be made
    // leaves no object, which is answered; places that cannot be made leave
    // nothing to sort, and the new list stays empty.
    std::shared_ptr<Self> OrderBy(ByRef<std::string> Campo, ByRef<bool> Descendente = false) {
        std::shared_ptr<Self> nueva;
        try { nueva = std::make_shared<Self>(); } catch (...) {}
        int32_t n = 0;
        try { n = Count(); } catch (...) {}
        std::vector<int32_t> slot;
        try { slot.resize(static_cast<size_t>(n) + 1); } catch (...) { n = 0; }
        for (int32_t i = 1; i <= n; ++i) slot[static_cast<size_t>(i)] = i;
        EntityRef a, b;
        Variant va, vb;
        for (int32_t pasada = 1; pasada <= n; ++pasada) {
            for (int32_t j = 1; j <= n - 1; ++j) {
                try { a = items_.Item(slot[static_cast<size_t>(j)]); } catch (...) {}
                try { b = items_.Item(slot[static_cast<size_t>(j + 1)]); } catch (...) {}
                try { va = detail::Elemento(a).GetValor(Campo); } catch (...) {}
                try { vb = detail::Elemento(b).GetValor(Campo); } catch (...) {}
                try {
                    const CompareResult r = CompareVariants(va, vb, CompareMethod::Text);
                    const bool cambiar = *Descendente ? r == CompareResult::Less : r == CompareResult::Greater;
                    if (cambiar) std::swap(slot[static_cast<size_t>(j)], slot[static_cast<size_t>(j + 1)]);
                } catch (...) {}
            }
        }
        for (int32_t i = 1; nueva && i <= n; ++i) {
            try { nueva->Anexar(items_.Item(slot[static_cast<size_t>(i)])); } catch (...) {}
        }
        return nueva;
    }

    // A new list of the elements for which a handler of
    // DelegadoEvaluaElementoWhere answered true. The answer starts false once
    // and is not reset between elements. A new list that cannot be made
    // leaves no object: every element is still offered to the handlers, and
    // no object is answered.
    std::shared_ptr<Self> WhereDelegado(ByRef<std::string> idProceso) {
        std::shared_ptr<Self> nueva;
        try { nueva = std::make_shared<Self>(); } catch (...) {}
        bool resultado = false;
        for (const EntityRef& elemento : items_) {
            EntityRef elem = elemento;
            try { DelegadoEvaluaElementoWhere.Raise(*idProceso, elem, resultado); } catch (...) {}
            try {
                if (resultado && nueva) nueva->Anexar(elemento);
            } catch (...) {}
        }
        return nueva;
    }

    // A new list of the elements whose field, in its default string form,
    // equals Valor ignoring case. A null value never matches. A new list
    // that cannot be made leaves no object, which is answered.
    std::shared_ptr<Self> Where(ByRef<std::string> Campo, ByRef<std::string> Valor) {
        std::shared_ptr<Self> nueva;
        try { nueva = std::make_shared<Self>(); } catch (...) {}
        Variant v;
        for (const EntityRef& elemento : items_) {
            try { v = detail::Elemento(elemento).GetValor(Campo); } catch (...) {}
            try {
                if (nueva && !v.IsNull() && StrComp(CStr(v), *Valor, CompareMethod::Text) == 0)
                    nueva->Anexar(elemento);
            } catch (...) {}
        }
        return nueva;
    }

    double ObtenerSuma(ByRef<std::string> Campo) {
        double suma = 0;
        for (const EntityRef& elemento : items_) {
            try { suma += detail::ValorParaTotal(detail::Elemento(elemento).GetValor(Campo)); } catch (...) {}
        }
        return suma;
    }

    // The sum divided by Count; 0 for an empty list. A null value adds
    // nothing but counts in the divisor.
    double ObtenerMedia(ByRef<std::string> Campo) {
        double suma = ObtenerSuma(Campo);
        try {
            if (Count() == 0) return 0;
            return suma / Count();
        } catch (...) {}
        return 0;
    }

    // Seeded with 0, so the maximum of only negative values is 0.
    double ObtenerMaximo(ByRef<std::string> Campo) {
        double resultado = 0, valor = 0;
        for (const EntityRef& elemento : items_) {
            try { valor = detail::ValorParaTotal(detail::Elemento(elemento).GetValor(Campo)); } catch (...) {}
            if (valor > resultado) resultado = valor;
        }
        return resultado;
    }

    // Seeded with 0, so the minimum of only positive values is 0.
    double ObtenerMinimo(ByRef<std::string> Campo) {
        double resultado = 0, valor = 0;
        for (const EntityRef& elemento : items_) {
            try { valor = detail::ValorParaTotal(detail::Elemento(elemento).GetValor(Campo)); } catch (...) {}
            if (valor < resultado) resultado = valor;
        }
        return resultado;
    }

protected:
    using EntityCollection<E>::items_;
};

}  // namespace OVT_ZARO
