// Variant: the platform's tagged value.
//
// Subtypes and their VarType numbers: Empty 0, Null 1, Integer 2 (16-bit),
// Long 3 (32-bit), Double 5, Date 7, String 8 (UTF-8 text), Object 9,
// Boolean 11, LongLong 20 (64-bit, what a BIGINT column such as count(*)
// gives), and the byte array 8209 (8192 + Byte 17).
// A Variant is a value: copying it copies the text and the bytes and shares
// the object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "ZARODatos/platform/Date.h"
#include "ZARODatos/platform/Object.h"

namespace OVT_ZARO {

enum VbVarType : int {
    vbEmpty = 0,
    vbNull = 1,
    vbInteger = 2,
    vbLong = 3,
    vbSingle = 4,
    vbDouble = 5,
    vbCurrency = 6,
    vbDate = 7,
    vbString = 8,
    vbObject = 9,
    vbError = 10,
    vbBoolean = 11,
    vbVariant = 12,
    vbDecimal = 14,
    vbByte = 17,
    vbLongLong = 20,
    vbArray = 8192,
};

struct EmptyValue {
    friend bool operator==(EmptyValue, EmptyValue) { return true; }
};
struct NullValue {
    friend bool operator==(NullValue, NullValue) { return true; }
};
using ByteArray = std::vector<uint8_t>;

class Variant {
public:
    using Storage = std::variant<EmptyValue, NullValue, int16_t, int32_t, double, Date, std::string, bool,
                                 ObjectRef, ByteArray, int64_t>;

    Variant() = default;
    Variant(EmptyValue) {}
    Variant(NullValue v) : v_(v) {}
    Variant(int16_t v) : v_(v) {}
    Variant(int32_t v) : v_(v) {}
    Variant(int64_t v) : v_(v) {}
    Variant(double v) : v_(v) {}
    Variant(Date v) : v_(v) {}
    Variant(bool v) : v_(v) {}
    Variant(std::string v) : v_(std::move(v)) {}
    Variant(std::string_view v) : v_(std::string(v)) {}
    Variant(const char* v) : v_(std::string(v)) {}
    Variant(ByteArray v) : v_(std::move(v)) {}
    template <class T, std::enable_if_t<std::is_base_of_v<Object, T>, int> = 0>
    Variant(std::shared_ptr<T> v) : v_(ObjectRef(std::move(v))) {}
    Variant(std::nullptr_t) : v_(ObjectRef()) {}

    static Variant Null() { return Variant(NullValue{}); }

    // The VarType number of the subtype.
    int VarType() const;

    bool IsEmpty() const { return std::holds_alternative<EmptyValue>(v_); }
    bool IsNull() const { return std::holds_alternative<NullValue>(v_); }
    bool IsString() const { return std::holds_alternative<std::string>(v_); }
    bool IsObject() const { return std::holds_alternative<ObjectRef>(v_); }
    bool IsByteArray() const { return std::holds_alternative<ByteArray>(v_); }
    bool IsDate() const { return std::holds_alternative<Date>(v_); }
    bool IsBoolean() const { return std::holds_alternative<bool>(v_); }
    // Integer, Long, LongLong, Double (the numeric subtypes; not Boolean or Date).
    bool IsNumber() const;

    template <class T>
    bool Is() const { return std::holds_alternative<T>(v_); }
    // REQUIRES: Is<T>().
    template <class T>
    const T& Get() const { return std::get<T>(v_); }
    template <class T>
    T& Get() { return std::get<T>(v_); }
    // The subtype's value if it is T, else nullptr.
    template <class T>
    const T* GetIf() const { return std::get_if<T>(&v_); }

    const Storage& Raw() const { return v_; }

    // Exact equality of subtype and value (not the platform's comparison).
    friend bool operator==(const Variant& a, const Variant& b) { return a.v_ == b.v_; }

private:
    Storage v_;
};

// The platform's VarType and TypeName of a value: "Empty", "Null", "Integer",
// "Long", "Double", "Date", "String", "Boolean", "LongLong", "Byte()", the
// class name of an object and "Nothing" for an empty reference.
inline int VarType(const Variant& v) { return v.VarType(); }
std::string TypeName(const Variant& v);
inline bool IsNull(const Variant& v) { return v.IsNull(); }
inline bool IsEmpty(const Variant& v) { return v.IsEmpty(); }

}  // namespace OVT_ZARO
