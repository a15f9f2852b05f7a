// Error: the one exception type of the library.
//
// Every failure that leaves an operation is an Error with a number, a source
// and a description: the library's own, the platform's (5, 6, 9, 13, 91, 94,
// 438, 457, 3021, 3265 ...) and the database's (its own number and text).
// A raise with number 0 keeps 0 and its text.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace OVT_ZARO {

class Error : public std::exception {
public:
    Error(int32_t number, std::string source, std::string description);

    int32_t Number = 0;
    std::string Source;
    std::string Description;

    const char* what() const noexcept override { return Description.c_str(); }
};

// The platform's own text for a platform error number ("Overflow" for 6 ...);
// an empty string for a number it does not know.
std::string PlatformErrorText(int32_t number);

// Raises number with the platform's text for it.
[[noreturn]] void RaisePlatform(int32_t number, const std::string& source = "");

// The exception being handled, as an Error: an Error as it is; running out
// of memory as 7 "Out of memory"; any other exception as 51 "Internal
// error: " and its text. REQUIRES: called inside a catch handler.
Error CurrentError();

// Raises the exception being handled again with its number and description
// and a new source. REQUIRES: called inside a catch handler.
[[noreturn]] void Reraise(const std::string& source);

// Platform error numbers used across the library.
namespace ErrNum {
inline constexpr int32_t InvalidCall = 5;           // "Invalid procedure call or argument"
inline constexpr int32_t Overflow = 6;              // "Overflow"
inline constexpr int32_t SubscriptOutOfRange = 9;   // "Subscript out of range"
inline constexpr int32_t TypeMismatch = 13;         // "Type mismatch"
inline constexpr int32_t ObjectNotSet = 91;         // "Object variable or With block variable not set"
inline constexpr int32_t InvalidUseOfNull = 94;     // "Invalid use of Null"
inline constexpr int32_t InvalidPropertyValue = 380;  // "Invalid property value"
inline constexpr int32_t InvalidPropertyIndex = 381;  // "Invalid property array index"
inline constexpr int32_t ObjectRequired = 424;      // "Object required"
inline constexpr int32_t MemberNotFound = 438;      // "Object doesn't support this property or method"
inline constexpr int32_t DuplicateKey = 457;        // "This key is already associated with an element of this collection"
inline constexpr int32_t ControlNotFound = 730;     // "Control not found"
inline constexpr int32_t NoCurrentRecord = 3021;    // "Either BOF or EOF is True, ..."
inline constexpr int32_t ItemNotFound = 3265;       // "Item cannot be found in the collection ..."
inline constexpr int32_t ObjectClosed = 3704;       // "Operation is not allowed when the object is closed."
}  // namespace ErrNum

}  // namespace OVT_ZARO
