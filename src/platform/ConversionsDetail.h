// Internal pieces of the platform's conversions, shared by the files of
// src/platform (number text, date text, format, comparison).
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Date.h"

namespace OVT_ZARO::convdetail {

// ---- Host locale, with what the conversions derive from it --------------

enum class DateOrder { DMY, MDY, YMD };

struct LocaleInfo {
    HostLocale locale;
    DateOrder order = DateOrder::DMY;  // from the order of d, m, y in ShortDate
    std::string dateSeparator = "/";   // what "/" writes in a format
    std::string timeSeparator = ":";   // what ":" writes in a format
};
const LocaleInfo& CurrentLocale();

// The blanks a number or date text may have around it.
inline bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }
inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }
inline char AsciiLower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

// ---- Digits and letter runs of date text ---------------------------------

// Two digits, with a leading zero (the last two of larger values).
inline void Append2(std::string& out, int64_t v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}
inline void AppendInt(std::string& out, int64_t v) {
    char buf[24];
    out.append(buf, std::to_chars(buf, buf + sizeof buf, v).ptr);
}
// A year of up to four digits, zero-padded to four.
inline void AppendYear4(std::string& out, int64_t y) {
    if (y < 1000) out += '0';
    if (y < 100) out += '0';
    if (y < 10) out += '0';
    AppendInt(out, y);
}
// The length of the run of the letter `lower` (either case) starting at i.
inline size_t RunLength(std::string_view s, size_t i, char lower) {
    size_t j = i;
    while (j < s.size() && AsciiLower(s[j]) == lower) ++j;
    return j - i;
}

// ---- Text to number -----------------------------------------------------

enum class NumStatus { Ok, Invalid, Overflow };

// The locale's number reader behind CDbl and IsNumeric. With out == nullptr
// only the verdict is computed (cheaper: no conversion when the magnitude
// is clearly in range).
NumStatus ParseNumber(std::string_view text, const HostLocale& locale, double* out);
// The reader behind Val ("." decimal point, blanks removed, leading number).
NumStatus ParseVal(std::string_view text, double& out);

// ---- Number to text -----------------------------------------------------

// |x| as decimal digits: |x| = 0.d1 d2 ... dn x 10^pointPos, no leading or
// trailing zeros; count 0 for zero.
struct Decimal {
    char digits[24];
    int count = 0;
    int pointPos = 0;
};
// |x| rounded to 15 significant digits (half away from zero). REQUIRES finite x.
void ToDecimal15(double x, Decimal& d);
// The default text of a double (CStr) into buf (at least 32 chars); returns
// its length. REQUIRES finite x.
size_t FormatDouble(double x, char decimalSeparator, char* buf);

// Rounds half to even (the platform's CLng/CInt rounding).
double RoundHalfEven(double x);

// ---- Dates --------------------------------------------------------------

// The locale's date reader behind CDate and IsDate.
bool ParseDate(std::string_view text, const LocaleInfo& locale, double& serial);
// The default text of a date (CStr). Raises 6 for a serial outside the date range.
std::string DateToText(Date d);
// The short date / long time of the locale for given parts.
void AppendShortDate(std::string& out, const DateParts& p, const LocaleInfo& locale);
void AppendLongTime(std::string& out, const DateParts& p, const LocaleInfo& locale);
// Day of the week, 1 = Sunday .. 7 = Saturday.
int Weekday(const DateParts& p);

// Spanish names, the host language: "enero".."diciembre", "ene".."dic",
// "domingo".."sábado", "dom".."sáb".
extern const char* const kMonthNames[12];
extern const char* const kMonthAbbrev[12];
extern const char* const kDayNames[7];
extern const char* const kDayAbbrev[7];

// ---- Text comparison ----------------------------------------------------

bool IsAscii(std::string_view s);
// The text comparison through ICU's collator (Spanish rules, case ignored,
// accents significant), for any UTF-8 input.
int CompareTextIcu(std::string_view a, std::string_view b);
// The same for ASCII-only input, from a table of the collator's weights.
// REQUIRES: IsAscii(a) && IsAscii(b).
int CompareTextAscii(std::string_view a, std::string_view b);

}  // namespace OVT_ZARO::convdetail
