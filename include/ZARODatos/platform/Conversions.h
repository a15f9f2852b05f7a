// The platform's conversions and comparisons under the host's locale.
//
// Every conversion reads HostLocale::Current(); nothing reads the
// environment. A conversion that can not read its input raises the
// platform's error: 13 "Type mismatch" for text that is no number or date,
// 6 "Overflow" for a number out of range, 94 "Invalid use of Null" for Null.
// Ownership: the functions keep no state but the host's locale.
// Thread: any thread, at once. HostLocale::Set may run while other threads
// convert: each conversion reads one snapshot of the settings, whole, and
// the settings a Set replaces stay valid for the life of the process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO {

// The process-wide settings of the host. Default: decimal ",", group ".",
// short date dd/mm/yyyy, long time H:mm:ss (the convention the library
// assumes). A host may set another; the library never reads the environment.
struct HostLocale {
    char DecimalSeparator = ',';
    char GroupSeparator = '.';
    std::string ShortDate = "dd/mm/yyyy";
    std::string LongTime = "H:mm:ss";
    // The currency symbol a number text may carry before or after it (UTF-8 "€").
    std::string CurrencySymbol = "\xE2\x82\xAC";

    static const HostLocale& Current();
    // A locale whose separators are equal, digits, signs or "E", or whose
    // ShortDate lacks d, m or y, raises 5 and leaves the current one.
    static void Set(const HostLocale& locale);
};

// Default string form: Integer/Long plain digits; Double up to 15
// significant digits with the locale's decimal separator and no grouping;
// Date as short date, time only when the date part is 0, both when both are
// there; Boolean "True"/"False"; Empty "". Null raises 94.
std::string CStr(const Variant& v);

double CDbl(const Variant& v);
// Round half to even, then range check (6).
int32_t CLng(const Variant& v);
int16_t CInt(const Variant& v);
Date CDate(const Variant& v);
bool CBool(const Variant& v);

// True exactly when CDbl would accept the value.
bool IsNumeric(const Variant& v);
// True for a Date, and for text that CDate reads (day first for text);
// false for numbers and everything else, as the platform's IsDate.
bool IsDate(const Variant& v);

// The same tests on text, without making a Variant: IsNumeric of the text,
// and the date CDate would read from it (false when it reads none).
bool IsNumericText(std::string_view text);
bool TryReadDate(std::string_view text, Date& out);

// The leading number of a text with "." as decimal point whatever the
// locale, after removing blanks, tabs and line feeds; 0 when there is none.
double Val(std::string_view text);

// The platform's format function: number patterns (# 0 , . % E+ literals and
// ; sections) and date tokens. Text that reads as a number or a date under
// the locale is formatted as such; other text comes back unchanged.
// Null gives Null.
Variant Format(const Variant& v, std::string_view pattern = {});

// The two forms of comparing.
enum class CompareMethod { Binary, Text };
enum class CompareResult { Less = -1, Equal = 0, Greater = 1, Null = 2 };

// Compares two texts: Binary by character code, Text ignoring case (also
// for accented letters) and sorting accented letters beside their base.
int StrComp(std::string_view a, std::string_view b, CompareMethod method);
inline bool TextEquals(std::string_view a, std::string_view b) { return StrComp(a, b, CompareMethod::Text) == 0; }

// Compares two values: numbers, dates and booleans numerically; strings by
// the method; a number is less than a string; Empty is 0 or ""; Null gives
// CompareResult::Null.
CompareResult CompareVariants(const Variant& a, const Variant& b, CompareMethod method);

// The platform's InStr with text comparison: true when needle occurs in
// haystack ignoring case.
bool ContainsText(std::string_view haystack, std::string_view needle);
// Trim of blanks at both ends (the platform's Trim: spaces only).
std::string_view Trim(std::string_view s);

}  // namespace OVT_ZARO
