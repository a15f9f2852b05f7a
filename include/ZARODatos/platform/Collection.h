// Collection: the platform's one-based, insertion-ordered collection.
//
// Add (item, optional key), Item (position or key), Remove, Count and
// range-for. Keys are compared ignoring case. Errors: a duplicate key 457,
// a missing key 5, a position out of range (0, above Count) 9.
// BasicCollection<T> is the same collection over items of type T; the
// platform's Collection holds Variants.
// Ownership: a collection owns its items (Variants share their objects).
// Thread: one thread at a time. Failures raise the platform's errors above;
// nothing is caught.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Object.h"
#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO {

namespace detail {
// The position an index Variant names: a number is a position, a string a
// key; anything else raises 13.
bool CollectionIndexIsKey(const Variant& index);
int32_t CollectionPosition(const Variant& index);
}  // namespace detail

template <class T>
class BasicCollection {
public:
    using value_type = T;

    int32_t Count() const { return static_cast<int32_t>(items_.size()); }

    // Appends item, under key when one is given. A key already there raises 457.
    void Add(T item, const std::string& key = {}) {
        if (!key.empty()) {
            if (FindKey(key) >= 0) RaisePlatform(ErrNum::DuplicateKey);
        }
        items_.push_back(std::move(item));
        keys_.push_back(key);
    }

    // The item at a one-based position; out of range raises 9.
    T& Item(int32_t position) {
        if (position < 1 || position > Count()) RaisePlatform(ErrNum::SubscriptOutOfRange);
        return items_[static_cast<size_t>(position - 1)];
    }
    // The item under a key; a missing key raises 5.
    T& Item(const std::string& key) {
        int32_t i = FindKey(key);
        if (i < 0) RaisePlatform(ErrNum::InvalidCall);
        return items_[static_cast<size_t>(i)];
    }
    T& Item(const char* key) { return Item(std::string(key)); }
    // A numeric index is a position, a string a key.
    T& Item(const Variant& index) {
        if (detail::CollectionIndexIsKey(index)) return Item(index.Get<std::string>());
        return Item(detail::CollectionPosition(index));
    }

    void Remove(int32_t position) {
        if (position < 1 || position > Count()) RaisePlatform(ErrNum::SubscriptOutOfRange);
        items_.erase(items_.begin() + (position - 1));
        keys_.erase(keys_.begin() + (position - 1));
    }
    void Remove(const std::string& key) {
        int32_t i = FindKey(key);
        if (i < 0) RaisePlatform(ErrNum::InvalidCall);
        Remove(i + 1);
    }
    void Remove(const char* key) { Remove(std::string(key)); }
    void Remove(const Variant& index) {
        if (detail::CollectionIndexIsKey(index)) return Remove(index.Get<std::string>());
        Remove(detail::CollectionPosition(index));
    }

    void Clear() {
        items_.clear();
        keys_.clear();
    }
    void Reserve(size_t n) {
        items_.reserve(n);
        keys_.reserve(n);
    }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    int32_t FindKey(const std::string& key) const {
        for (size_t i = 0; i < keys_.size(); ++i)
            if (!keys_[i].empty() && TextEquals(keys_[i], key)) return static_cast<int32_t>(i);
        return -1;
    }

    std::vector<T> items_;
    std::vector<std::string> keys_;
};

// What a late-bound caller reaches of a collection by member name: Count,
// and Item by position from 1 (enumeration walks the positions in order).
// The platform's Collection and every list of the library answer to it.
class LateBoundList {
public:
    virtual int32_t LateCount() = 0;
    // The element at a position; out of range raises the collection's error.
    virtual Variant LateItem(int32_t position) = 0;

protected:
    ~LateBoundList() = default;
};

// Count and Item of any object asked by name: no object raises 91, an
// object without them 438 "Object doesn't support this property or method".
int32_t CountOf(const ObjectRef& list);
Variant ItemOf(const ObjectRef& list, int32_t position);

class Collection : public Object, public BasicCollection<Variant>, public LateBoundList {
public:
    std::string TypeName() const override { return "Collection"; }
    int32_t LateCount() override { return Count(); }
    Variant LateItem(int32_t position) override { return Item(position); }
};

using CollectionRef = std::shared_ptr<Collection>;

}  // namespace OVT_ZARO
