// One block of memory for the objects of one loaded row: the entity, its
// list of fields and the fields. Cargar makes them with allocate_shared over
// the block, so a row costs one allocation and one release instead of one
// for each object. The block goes when the last object made in it goes; an
// object that outlives its row keeps the whole block.
#pragma once

#include <atomic>
#include <cstddef>
#include <new>

namespace OVT_ZARO::generico {

class alignas(std::max_align_t) Bloque {
public:
    // A block of capacidad bytes; the caller holds one reference to it.
    static Bloque* Crear(size_t capacidad) {
        void* memoria = ::operator new(sizeof(Bloque) + capacidad);
        return new (memoria) Bloque(capacidad);
    }
    // n bytes of the block, or nullptr when they do not fit; a reference
    // either way.
    void* Tomar(size_t n, size_t alineacion) {
        vivos_.fetch_add(1, std::memory_order_relaxed);
        if (alineacion > alignof(std::max_align_t)) return nullptr;
        const size_t inicio = (usado_ + alineacion - 1) & ~(alineacion - 1);
        if (inicio + n > capacidad_) return nullptr;
        usado_ = inicio + n;
        return Datos() + inicio;
    }
    bool Contiene(const void* p) const {
        const auto* c = static_cast<const unsigned char*>(p);
        return c >= Datos() && c < Datos() + capacidad_;
    }
    void Soltar() noexcept {
        if (vivos_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            this->~Bloque();
            ::operator delete(static_cast<void*>(this));
        }
    }

private:
    explicit Bloque(size_t capacidad) : capacidad_(capacidad) {}
    unsigned char* Datos() { return reinterpret_cast<unsigned char*>(this + 1); }
    const unsigned char* Datos() const { return reinterpret_cast<const unsigned char*>(this + 1); }

    std::atomic<size_t> vivos_{1};
    size_t usado_ = 0;
    size_t capacidad_;
};

// The allocator of allocate_shared over a block: what does not fit comes from
// the ordinary heap, still holding the block (so that the block can tell it
// apart when it is released).
template <class T>
struct AsignadorDeBloque {
    using value_type = T;
    Bloque* bloque;

    explicit AsignadorDeBloque(Bloque* b) noexcept : bloque(b) {}
    template <class U>
    AsignadorDeBloque(const AsignadorDeBloque<U>& otro) noexcept : bloque(otro.bloque) {}

    T* allocate(size_t n) {
        if (void* p = bloque->Tomar(n * sizeof(T), alignof(T))) return static_cast<T*>(p);
        try {
            return static_cast<T*>(::operator new(n * sizeof(T)));
        } catch (...) {
            bloque->Soltar();
            throw;
        }
    }
    void deallocate(T* p, size_t) noexcept {
        if (!bloque->Contiene(p)) ::operator delete(static_cast<void*>(p));
        bloque->Soltar();
    }
    template <class U>
    friend bool operator==(const AsignadorDeBloque& a, const AsignadorDeBloque<U>& b) noexcept {
        return a.bloque == b.bloque;
    }
};

// Room in a block for one object of type T made by allocate_shared, its
// reference counts included.
template <class T>
constexpr size_t TamanoEnBloque() {
    return (sizeof(T) + 48 + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
}

}  // namespace OVT_ZARO::generico
