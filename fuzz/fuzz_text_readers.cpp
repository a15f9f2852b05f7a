// libFuzzer target: arbitrary bytes through the platform's text readers.
//
// The input is split at its first NUL byte into a value text and a format
// pattern. Every reader must return or raise an Error, never crash; and the
// readers must agree with each other (IsNumeric with CDbl, IsDate with
// CDate, text written by CStr reads back, comparisons are antisymmetric).
// A broken agreement traps, which libFuzzer reports as a finding.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"

using namespace OVT_ZARO;

namespace {

void Check(bool ok) {
    if (!ok) __builtin_trap();
}

int Sign(int x) { return x < 0 ? -1 : (x > 0 ? 1 : 0); }

// Format of a value under a pattern, and CStr of what comes back.
void FormatAndRead(const Variant& v, std::string_view pattern) {
    try {
        Variant f = Format(v, pattern);
        if (!f.IsNull()) {
            std::string s = CStr(f);
            IsNumeric(s);
            IsDate(s);
        }
    } catch (const Error&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const size_t cut = all.find('\0');
    const std::string_view value = all.substr(0, cut);
    const std::string_view pattern = cut == std::string_view::npos ? std::string_view() : all.substr(cut + 1);
    const Variant text{std::string(value)};

    // Numbers: IsNumeric agrees with CDbl; a double's text reads back.
    const bool numeric = IsNumeric(text);
    bool read = false;
    double d = 0.0;
    try {
        d = CDbl(text);
        read = true;
    } catch (const Error& e) {
        Check(e.Number == 13 || e.Number == 6);
    }
    Check(numeric == read);
    if (read) {
        Check(std::isfinite(d));
        const std::string s = CStr(d);
        if (std::fabs(d) < 1e308) {
            Check(IsNumeric(s));
            const double back = CDbl(s);
            Check(back == d || std::fabs(back - d) <= std::fabs(d) * 1e-14);
        }
        FormatAndRead(Variant(d), pattern);
    }
    for (auto convert : {+[](const Variant& v) { return double(CLng(v)); },
                         +[](const Variant& v) { return double(CInt(v)); }}) {
        try {
            convert(text);
        } catch (const Error& e) {
            Check(e.Number == 13 || e.Number == 6);
        }
    }
    try {
        CBool(text);
    } catch (const Error& e) {
        Check(e.Number == 13 || e.Number == 6);
    }

    // Dates: IsDate agrees with CDate; a date's text reads back to the same date.
    const bool isDate = IsDate(text);
    try {
        const Date dt = CDate(text);
        Check(isDate);
        const std::string s = CStr(dt);
        Check(CDate(s) == dt);
        FormatAndRead(Variant(dt), pattern);
    } catch (const Error& e) {
        Check(!isDate && e.Number == 13);
    }

    // Val never fails but by overflow.
    try {
        const double v = Val(value);
        Check(std::isfinite(v));
        CStr(v);
    } catch (const Error& e) {
        Check(e.Number == 6);
    }

    // Format of the text itself.
    FormatAndRead(text, pattern);
    FormatAndRead(Variant(int32_t(size) - 1000), pattern);

    // Comparisons: antisymmetric; the ASCII path agrees with the collator.
    for (CompareMethod m : {CompareMethod::Binary, CompareMethod::Text}) {
        const int ab = StrComp(value, pattern, m);
        const int ba = StrComp(pattern, value, m);
        Check(ab == -ba && ab >= -1 && ab <= 1);
        const CompareResult r = CompareVariants(text, Variant(std::string(pattern)), m);
        Check(static_cast<int>(r) == ab);
    }
    if (convdetail::IsAscii(value) && convdetail::IsAscii(pattern))
        Check(Sign(convdetail::CompareTextAscii(value, pattern)) == Sign(convdetail::CompareTextIcu(value, pattern)));
    ContainsText(value, pattern);
    Trim(value);
    return 0;
}
