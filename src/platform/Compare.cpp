// Comparing texts and values: the binary form (character codes) and the text
// form (ICU collation under Spanish rules at secondary strength: case is
// ignored, accents count, an accented letter sorts beside its base letter).
// ASCII-only texts take a fast path over a table of the collator's own
// weights, so both paths give the same order.
#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"

namespace OVT_ZARO {

namespace convdetail {

namespace {

struct TextCollation {
    UCollator* collator = nullptr;
    // Rank of each ASCII character in the collator's order; 0 for a
    // character the collator ignores. Capital and small letters share a rank.
    uint16_t weight[128] = {};

    TextCollation() {
        UErrorCode status = U_ZERO_ERROR;
        collator = ucol_open("es", &status);
        if (U_FAILURE(status)) {
            status = U_ZERO_ERROR;
            collator = ucol_open("", &status);
        }
        if (U_FAILURE(status)) collator = nullptr;
        if (collator) {
            status = U_ZERO_ERROR;
            ucol_setStrength(collator, UCOL_SECONDARY);
        }
        BuildWeights();
    }
    ~TextCollation() {
        if (collator) ucol_close(collator);
    }
    TextCollation(const TextCollation&) = delete;
    TextCollation& operator=(const TextCollation&) = delete;

    int Compare(const char* a, size_t na, const char* b, size_t nb) const {
        if (!collator) return FallbackCompare(a, na, b, nb);
        UErrorCode status = U_ZERO_ERROR;
        const auto clamp = [](size_t n) { return static_cast<int32_t>(std::min<size_t>(n, INT32_MAX)); };
        UCollationResult r = ucol_strcollUTF8(collator, a, clamp(na), b, clamp(nb), &status);
        if (U_FAILURE(status)) return FallbackCompare(a, na, b, nb);
        return r == UCOL_LESS ? -1 : (r == UCOL_GREATER ? 1 : 0);
    }

private:
    // Without a collator: ASCII letters folded, then character codes.
    static int FallbackCompare(const char* a, size_t na, const char* b, size_t nb) {
        const size_t n = std::min(na, nb);
        for (size_t i = 0; i < n; ++i) {
            const auto ca = static_cast<unsigned char>(AsciiLower(a[i]));
            const auto cb = static_cast<unsigned char>(AsciiLower(b[i]));
            if (ca != cb) return ca < cb ? -1 : 1;
        }
        return na == nb ? 0 : (na < nb ? -1 : 1);
    }

    void BuildWeights() {
        char chars[128];
        int n = 0;
        for (int c = 0; c < 128; ++c) {
            const char ch = static_cast<char>(c);
            if (Compare(&ch, 1, "", 0) == 0) {
                weight[c] = 0;  // ignorable
            } else {
                chars[n++] = ch;
            }
        }
        std::stable_sort(chars, chars + n, [this](char x, char y) { return Compare(&x, 1, &y, 1) < 0; });
        uint16_t rank = 0;
        for (int i = 0; i < n; ++i) {
            if (i == 0 || Compare(&chars[i - 1], 1, &chars[i], 1) != 0) ++rank;
            weight[static_cast<unsigned char>(chars[i])] = rank;
        }
    }
};

const TextCollation& Collation() {
    static const TextCollation collation;
    return collation;
}

int CompareBinary(std::string_view a, std::string_view b) {
    const size_t n = std::min(a.size(), b.size());
    const int r = n ? std::memcmp(a.data(), b.data(), n) : 0;
    if (r != 0) return r < 0 ? -1 : 1;
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

// Full case folding to UTF-16 (ill-formed UTF-8 becomes U+FFFD).
std::u16string Fold(std::string_view s) {
    std::u16string units;
    UErrorCode status = U_ZERO_ERROR;
    int32_t len = 0;
    const auto n = static_cast<int32_t>(std::min<size_t>(s.size(), INT32_MAX / 4));
    u_strFromUTF8WithSub(nullptr, 0, &len, s.data(), n, 0xFFFD, nullptr, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status)) return units;
    units.resize(static_cast<size_t>(len));
    status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(units.data(), len, &len, s.data(), n, 0xFFFD, nullptr, &status);
    if (U_FAILURE(status)) return {};
    std::u16string folded;
    status = U_ZERO_ERROR;
    int32_t flen = u_strFoldCase(nullptr, 0, units.data(), len, U_FOLD_CASE_DEFAULT, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status)) return units;
    folded.resize(static_cast<size_t>(flen));
    status = U_ZERO_ERROR;
    u_strFoldCase(folded.data(), flen, units.data(), len, U_FOLD_CASE_DEFAULT, &status);
    if (U_FAILURE(status)) return units;
    return folded;
}

// The numeric value of a number, date, Boolean or Empty.
struct NumericValue {
    bool integral;
    int64_t i;
    double d;
};
bool AsNumeric(const Variant& v, NumericValue& out) {
    if (v.IsEmpty()) return out = {true, 0, 0.0}, true;
    if (const int16_t* p = v.GetIf<int16_t>()) return out = {true, *p, 0.0}, true;
    if (const int32_t* p = v.GetIf<int32_t>()) return out = {true, *p, 0.0}, true;
    if (const int64_t* p = v.GetIf<int64_t>()) return out = {true, *p, 0.0}, true;
    if (const bool* p = v.GetIf<bool>()) return out = {true, *p ? -1 : 0, 0.0}, true;
    if (const double* p = v.GetIf<double>()) return out = {false, 0, *p}, true;
    if (const Date* p = v.GetIf<Date>()) return out = {false, 0, p->Serial()}, true;
    return false;
}

CompareResult Order(int r) { return r < 0 ? CompareResult::Less : (r > 0 ? CompareResult::Greater : CompareResult::Equal); }

CompareResult CompareNumeric(const NumericValue& a, const NumericValue& b) {
    if (a.integral && b.integral) return Order(a.i < b.i ? -1 : (a.i > b.i ? 1 : 0));
    // long double holds every int64 exactly, so a LongLong against a Double is exact.
    const long double x = a.integral ? static_cast<long double>(a.i) : static_cast<long double>(a.d);
    const long double y = b.integral ? static_cast<long double>(b.i) : static_cast<long double>(b.d);
    if (std::isnan(x) || std::isnan(y)) return CompareResult::Null;  // unordered: neither less nor greater
    return Order(x < y ? -1 : (x > y ? 1 : 0));
}

}  // namespace

bool IsAscii(std::string_view s) {
    // Eight bytes at a time.
    size_t i = 0;
    for (; i + 8 <= s.size(); i += 8) {
        uint64_t w;
        std::memcpy(&w, s.data() + i, 8);
        if (w & 0x8080808080808080ull) return false;
    }
    for (; i < s.size(); ++i)
        if (static_cast<unsigned char>(s[i]) >= 0x80) return false;
    return true;
}

int CompareTextIcu(std::string_view a, std::string_view b) {
    return Collation().Compare(a.data(), a.size(), b.data(), b.size());
}

int CompareTextAscii(std::string_view a, std::string_view b) {
    const uint16_t* w = Collation().weight;
    size_t i = 0, j = 0;
    for (;;) {
        while (i < a.size() && w[static_cast<unsigned char>(a[i])] == 0) ++i;
        while (j < b.size() && w[static_cast<unsigned char>(b[j])] == 0) ++j;
        const bool endA = i == a.size(), endB = j == b.size();
        if (endA || endB) return endA && endB ? 0 : (endA ? -1 : 1);
        const uint16_t wa = w[static_cast<unsigned char>(a[i])], wb = w[static_cast<unsigned char>(b[j])];
        if (wa != wb) return wa < wb ? -1 : 1;
        ++i;
        ++j;
    }
}

}  // namespace convdetail

using namespace convdetail;

int StrComp(std::string_view a, std::string_view b, CompareMethod method) {
    if (method == CompareMethod::Binary) return CompareBinary(a, b);
    if (a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()) == 0)) return 0;
    if (IsAscii(a) && IsAscii(b)) return CompareTextAscii(a, b);
    return CompareTextIcu(a, b);
}

// Null on either side gives Null; numbers, dates, Booleans (True is -1) and
// Empty compare numerically; texts by the method; Empty against a text is
// ""; a number is less than any text. Objects and byte arrays can not be
// compared: 13.
CompareResult CompareVariants(const Variant& a, const Variant& b, CompareMethod method) {
    if (a.IsNull() || b.IsNull()) return CompareResult::Null;
    if (a.IsObject() || b.IsObject() || a.IsByteArray() || b.IsByteArray()) RaisePlatform(ErrNum::TypeMismatch);
    const std::string* sa = a.GetIf<std::string>();
    const std::string* sb = b.GetIf<std::string>();
    if (sa || sb) {
        if (sa && sb) return Order(StrComp(*sa, *sb, method));
        if (sa && b.IsEmpty()) return Order(StrComp(*sa, {}, method));
        if (sb && a.IsEmpty()) return Order(StrComp({}, *sb, method));
        return sa ? CompareResult::Greater : CompareResult::Less;
    }
    NumericValue x{}, y{};
    AsNumeric(a, x);
    AsNumeric(b, y);
    return CompareNumeric(x, y);
}

namespace {
// Whether needle is in haystack, ASCII letters compared ignoring case: the
// places of the needle's first letter, in either case, are found with memchr
// (every read of an adapter asks this of its whole statement).
bool ContainsAscii(std::string_view haystack, std::string_view needle) {
    if (needle.size() > haystack.size()) return false;
    const char lower = AsciiLower(needle[0]);
    const char upper = (lower >= 'a' && lower <= 'z') ? static_cast<char>(lower - 32) : lower;
    const char* const begin = haystack.data();
    const char* const last = begin + (haystack.size() - needle.size()) + 1;  // past the last possible start
    auto next = [&](const char* from, char c) {
        const void* p = std::memchr(from, c, static_cast<size_t>(last - from));
        return p ? static_cast<const char*>(p) : last;
    };
    const char* nextLower = next(begin, lower);
    const char* nextUpper = upper == lower ? last : next(begin, upper);
    for (;;) {
        const char* at = std::min(nextLower, nextUpper);
        if (at == last) return false;
        size_t k = 1;
        while (k < needle.size() && AsciiLower(at[k]) == AsciiLower(needle[k])) ++k;
        if (k == needle.size()) return true;
        if (at == nextLower) nextLower = next(at + 1, lower);
        else nextUpper = next(at + 1, upper);
    }
}
}  // namespace

bool ContainsText(std::string_view haystack, std::string_view needle) {
    if (needle.empty()) return true;
    if (IsAscii(haystack) && IsAscii(needle)) return ContainsAscii(haystack, needle);
    const std::u16string h = Fold(haystack);
    const std::u16string n = Fold(needle);
    return std::u16string_view(h).find(n) != std::u16string_view::npos;
}

}  // namespace OVT_ZARO
