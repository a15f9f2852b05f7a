// The platform's string functions, counting characters, not bytes: a text
// is UTF-8, and a position or a length is a count of code points (an
// invalid byte counts as one character).
// Thread: any; they keep no state.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace OVT_ZARO {

// The code points of a UTF-8 text (an invalid byte stands for itself).
std::u32string CodePoints(std::string_view utf8);
// A code point as UTF-8.
std::string Utf8Of(char32_t codePoint);
// The character of a key code (the platform's Chr); a code below 0 is read
// as the 16-bit value it stands for.
std::string Chr(int32_t code);

// The number of characters.
int32_t Len(std::string_view s);
// Length characters from position start (from 1); a negative length is the rest.
std::string Mid(std::string_view s, int32_t start, int32_t length = -1);
// The first position (from 1) of needle in haystack, by text comparison
// (case ignored); 0 when it is not there, 1 for an empty needle.
int32_t InStr(std::string_view haystack, std::string_view needle);
// Every occurrence of find replaced by with (by binary comparison).
std::string Replace(std::string_view s, std::string_view find, std::string_view with);

}  // namespace OVT_ZARO
