// Number text: the locale's number reader (CDbl, IsNumeric), Val, and the
// default text of a double. No allocation, no locale-dependent C functions:
// digits are gathered into a stack buffer and converted with
// std::from_chars / std::to_chars.
#include <charconv>
#include <cmath>
#include <cstring>

#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"

namespace OVT_ZARO {

namespace convdetail {

namespace {

// More significant digits than any double needs for correct rounding (767);
// further digits only matter as a "something non-zero follows" mark.
constexpr int kMaxDigits = 800;

constexpr double kPow10[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                               1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// The significant digits of a decimal number as it is read:
// value = digits x 10^exp.
struct DigitAccumulator {
    char digits[kMaxDigits + 2];
    int count = 0;
    int64_t exp = 0;
    bool sticky = false;  // a non-zero digit was dropped beyond kMaxDigits
    bool anyDigit = false;

    void IntDigit(char c) {
        anyDigit = true;
        if (count == 0 && c == '0') return;
        if (count < kMaxDigits) {
            digits[count++] = c;
        } else {
            ++exp;
            if (c != '0') sticky = true;
        }
    }
    void FracDigit(char c) {
        anyDigit = true;
        if (count == 0 && c == '0') {
            --exp;
            return;
        }
        if (count < kMaxDigits) {
            digits[count++] = c;
            --exp;
        } else if (c != '0') {
            sticky = true;
        }
    }

    // The double of digits x 10^(exp + userExp). With out == nullptr only
    // the verdict (overflow or not).
    NumStatus Finish(int64_t userExp, bool negative, double* out) {
        int n = count;
        int64_t e = exp + userExp;
        if (sticky) {
            digits[n++] = '1';
            --e;
        }
        while (n > 0 && digits[n - 1] == '0') {
            --n;
            ++e;
        }
        if (n == 0) {
            if (out) *out = 0.0;
            return NumStatus::Ok;
        }
        // The value lies in [10^(mag-1), 10^mag).
        const int64_t mag = n + e;
        if (mag > 309) return NumStatus::Overflow;
        if (mag < -324) {
            if (out) *out = 0.0;
            return NumStatus::Ok;
        }
        if (!out && mag < 309) return NumStatus::Ok;
        double v;
        if (n <= 15 && e >= -22 && e <= 22) {
            // Both operands exact, one rounding: correctly rounded.
            uint64_t m = 0;
            for (int i = 0; i < n; ++i) m = m * 10 + static_cast<uint64_t>(digits[i] - '0');
            v = static_cast<double>(m);
            v = e >= 0 ? v * kPow10[e] : v / kPow10[-e];
        } else {
            char* p = digits + n;
            *p++ = 'e';
            char expText[24];
            auto r = std::to_chars(expText, expText + sizeof expText, e);
            const size_t expLen = static_cast<size_t>(r.ptr - expText);
            char buf[kMaxDigits + 32];
            std::memcpy(buf, digits, static_cast<size_t>(p - digits));
            std::memcpy(buf + (p - digits), expText, expLen);
            const char* end = buf + (p - digits) + expLen;
            auto res = std::from_chars(buf, end, v, std::chars_format::scientific);
            if (res.ec == std::errc::result_out_of_range) {
                if (mag > 0) return NumStatus::Overflow;
                v = 0.0;
            } else if (res.ec != std::errc()) {
                return NumStatus::Invalid;
            }
        }
        if (std::isinf(v)) return NumStatus::Overflow;
        if (out) *out = (negative && v != 0.0) ? -v : v;
        return NumStatus::Ok;
    }
};

inline int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The value of "&H..." / "&O..." digits: up to &HFFFF a 16-bit value, up to
// &HFFFFFFFF a 32-bit one, both with their sign bit; beyond that overflow.
NumStatus RadixValue(uint64_t value, double* out) {
    if (value > 0xFFFFFFFFull) return NumStatus::Overflow;
    double v;
    if (value <= 0xFFFFull)
        v = static_cast<int16_t>(static_cast<uint16_t>(value));
    else
        v = static_cast<int32_t>(static_cast<uint32_t>(value));
    if (out) *out = v;
    return NumStatus::Ok;
}

bool MatchesAt(std::string_view s, size_t i, std::string_view what) {
    return !what.empty() && s.size() - i >= what.size() && s.compare(i, what.size(), what) == 0;
}

}  // namespace

NumStatus ParseNumber(std::string_view s, const HostLocale& loc, double* out) {
    size_t b = 0, e = s.size();
    while (b < e && IsBlank(s[b])) ++b;
    while (e > b && IsBlank(s[e - 1])) --e;
    if (b == e) return NumStatus::Invalid;

    // "&H1F", "&O17": the whole (trimmed) text is the radix number.
    if (s[b] == '&') {
        if (e - b < 3) return NumStatus::Invalid;
        const char kind = AsciiLower(s[b + 1]);
        if (kind != 'h' && kind != 'o') return NumStatus::Invalid;
        uint64_t value = 0;
        for (size_t i = b + 2; i < e; ++i) {
            int d = HexValue(s[i]);
            if (d < 0 || (kind == 'o' && d > 7)) return NumStatus::Invalid;
            value = value * (kind == 'h' ? 16 : 8) + static_cast<uint64_t>(d);
            if (value > 0xFFFFFFFFull) return NumStatus::Overflow;
        }
        return RadixValue(value, out);
    }

    const std::string_view currency = loc.CurrencySymbol;
    const char dec = loc.DecimalSeparator;
    const char group = loc.GroupSeparator;
    bool negative = false, sign = false, paren = false, closed = false, hasCurrency = false;
    size_t i = b;

    // Before the number: blanks, one sign or an opening parenthesis, and the
    // currency symbol, in any order.
    for (;;) {
        const char c = s[i];
        if (IsDigit(c) || c == dec) break;
        if (IsBlank(c)) {
            ++i;
        } else if ((c == '-' || c == '+') && !sign && !paren) {
            sign = true;
            negative = c == '-';
            ++i;
        } else if (c == '(' && !sign && !paren) {
            paren = true;
            negative = true;
            ++i;
        } else if (!hasCurrency && MatchesAt(s, i, currency)) {
            hasCurrency = true;
            i += currency.size();
        } else {
            return NumStatus::Invalid;  // letters, or a group separator before the first digit
        }
        if (i >= e) return NumStatus::Invalid;
    }

    // The digits: one decimal separator; group separators skipped anywhere
    // after the first digit.
    DigitAccumulator acc;
    bool seenDecimal = false;
    for (; i < e; ++i) {
        const char c = s[i];
        if (IsDigit(c)) {
            if (seenDecimal)
                acc.FracDigit(c);
            else
                acc.IntDigit(c);
        } else if (c == dec && !seenDecimal) {
            seenDecimal = true;
        } else if (c == group && acc.anyDigit) {
            continue;
        } else {
            break;
        }
    }
    if (!acc.anyDigit) return NumStatus::Invalid;

    // Only E or e marks an exponent ("1D2" is no number).
    int64_t userExp = 0;
    if (i < e && (s[i] == 'e' || s[i] == 'E')) {
        ++i;
        bool expNegative = false;
        if (i < e && (s[i] == '+' || s[i] == '-')) {
            expNegative = s[i] == '-';
            ++i;
        }
        if (i >= e || !IsDigit(s[i])) return NumStatus::Invalid;  // "1e"
        for (; i < e && IsDigit(s[i]); ++i)
            if (userExp < 100000000) userExp = userExp * 10 + (s[i] - '0');
        if (expNegative) userExp = -userExp;
    }

    // After the number: blanks, a sign (if none before), the closing
    // parenthesis, the currency symbol.
    while (i < e) {
        const char c = s[i];
        if (IsBlank(c)) {
            ++i;
        } else if ((c == '-' || c == '+') && !sign && !paren) {
            sign = true;
            negative = c == '-';
            ++i;
        } else if (c == ')' && paren && !closed) {
            closed = true;
            ++i;
        } else if (!hasCurrency && MatchesAt(s, i, currency)) {
            hasCurrency = true;
            i += currency.size();
        } else {
            return NumStatus::Invalid;
        }
    }
    if (paren && !closed) return NumStatus::Invalid;
    return acc.Finish(userExp, negative, out);
}

NumStatus ParseVal(std::string_view s, double& out) {
    out = 0.0;
    size_t i = 0;
    const size_t n = s.size();
    // Val ignores blanks, tabs and line feeds wherever they stand.
    auto skip = [&] {
        while (i < n && (s[i] == ' ' || s[i] == '\t' || s[i] == '\n')) ++i;
    };
    skip();
    if (i >= n) return NumStatus::Ok;
    if (s[i] == '&') {
        ++i;
        skip();
        if (i >= n) return NumStatus::Ok;
        const char kind = AsciiLower(s[i]);
        if (kind != 'h' && kind != 'o') return NumStatus::Ok;
        ++i;
        uint64_t value = 0;
        for (;;) {
            skip();
            if (i >= n) break;
            int d = HexValue(s[i]);
            if (d < 0 || (kind == 'o' && d > 7)) break;
            value = value * (kind == 'h' ? 16 : 8) + static_cast<uint64_t>(d);
            if (value > 0xFFFFFFFFull) return NumStatus::Overflow;
            ++i;
        }
        return RadixValue(value, &out);
    }
    bool negative = false;
    if (s[i] == '+' || s[i] == '-') {
        negative = s[i] == '-';
        ++i;
    }
    DigitAccumulator acc;
    bool seenPoint = false;
    for (;;) {
        skip();
        if (i >= n) break;
        const char c = s[i];
        if (IsDigit(c)) {
            if (seenPoint)
                acc.FracDigit(c);
            else
                acc.IntDigit(c);
        } else if (c == '.' && !seenPoint) {
            seenPoint = true;
        } else {
            break;
        }
        ++i;
    }
    if (!acc.anyDigit) return NumStatus::Ok;
    int64_t userExp = 0;
    skip();
    if (i < n && (s[i] == 'e' || s[i] == 'E')) {
        size_t j = i + 1;
        auto skipAt = [&](size_t& k) {
            while (k < n && (s[k] == ' ' || s[k] == '\t' || s[k] == '\n')) ++k;
        };
        skipAt(j);
        bool expNegative = false;
        if (j < n && (s[j] == '+' || s[j] == '-')) {
            expNegative = s[j] == '-';
            ++j;
            skipAt(j);
        }
        // An exponent mark without digits ends the number before it.
        if (j < n && IsDigit(s[j])) {
            while (j < n) {
                skipAt(j);
                if (j >= n || !IsDigit(s[j])) break;
                if (userExp < 100000000) userExp = userExp * 10 + (s[j] - '0');
                ++j;
            }
            if (expNegative) userExp = -userExp;
        }
    }
    return acc.Finish(userExp, negative, &out);
}

void ToDecimal15(double x, Decimal& d) {
    d.count = 0;
    d.pointPos = 0;
    const double ax = std::fabs(x);
    if (ax == 0.0 || !std::isfinite(ax)) return;

    auto parse = [](const char* p, const char* end, char* digs, int maxDigs, int& n, int& exp10) {
        n = 0;
        digs[n++] = *p++;
        if (p < end && *p == '.') {
            ++p;
            while (p < end && *p != 'e') {
                if (n < maxDigs) digs[n++] = *p;
                ++p;
            }
        }
        ++p;  // 'e'
        bool neg = *p == '-';
        ++p;
        int e = 0;
        while (p < end) e = e * 10 + (*p++ - '0');
        exp10 = neg ? -e : e;
    };

    char buf[64];
    char digs[24];
    int n = 0, exp10 = 0;
    // The shortest text that reads back as x. When it has at most 15
    // significant digits it is x rounded to 15 digits; with 16 or 17 it can
    // be rounded once more, except when its 16th digit is a lone 5.
    auto r = std::to_chars(buf, buf + sizeof buf, ax, std::chars_format::scientific);
    parse(buf, r.ptr, digs, 17, n, exp10);
    if (n > 15) {
        bool up;
        if (n == 16 && digs[15] == '5') {
            // Decide on the exact binary value: first from 22 correctly
            // rounded digits, and only when those still read as a lone 5
            // from all of them (at most 767 significant digits).
            char exact[800];
            auto re = std::to_chars(exact, exact + sizeof exact, ax, std::chars_format::scientific, 21);
            char edigs[24];
            int en = 0, eexp = 0;
            parse(exact, re.ptr, edigs, 22, en, eexp);
            bool tail = false;
            for (int k = 16; k < en; ++k) tail = tail || edigs[k] != '0';
            if (edigs[15] == '5' && !tail) {
                re = std::to_chars(exact, exact + sizeof exact, ax, std::chars_format::scientific, 780);
                parse(exact, re.ptr, edigs, 16, en, eexp);
            }
            std::memcpy(digs, edigs, 16);
            exp10 = eexp;
            up = edigs[15] >= '5';
        } else {
            up = digs[15] >= '5';
        }
        n = 15;
        if (up) {
            int k = 14;
            while (k >= 0 && digs[k] == '9') {
                digs[k] = '0';
                --k;
            }
            if (k < 0) {
                digs[0] = '1';
                n = 1;
                ++exp10;
            } else {
                ++digs[k];
            }
        }
    }
    while (n > 1 && digs[n - 1] == '0') --n;
    std::memcpy(d.digits, digs, static_cast<size_t>(n));
    d.count = n;
    d.pointPos = exp10 + 1;
}

size_t FormatDouble(double x, char decimalSeparator, char* buf) {
    char* p = buf;
    if (x == 0.0 || !std::isfinite(x)) {
        *p++ = '0';
        return 1;
    }
    Decimal d;
    ToDecimal15(x, d);
    if (x < 0) *p++ = '-';
    const int sciExp = d.pointPos - 1;
    bool fixed;
    if (sciExp >= 15)
        fixed = false;
    else if (sciExp >= -4)
        fixed = true;
    else
        fixed = (-sciExp + d.count - 1) <= 15;  // below 1E-4: fixed while 15 decimals suffice
    if (fixed) {
        if (d.pointPos > 0) {
            for (int i = 0; i < d.pointPos; ++i) *p++ = i < d.count ? d.digits[i] : '0';
            if (d.count > d.pointPos) {
                *p++ = decimalSeparator;
                for (int i = d.pointPos; i < d.count; ++i) *p++ = d.digits[i];
            }
        } else {
            *p++ = '0';
            *p++ = decimalSeparator;
            for (int i = 0; i < -d.pointPos; ++i) *p++ = '0';
            for (int i = 0; i < d.count; ++i) *p++ = d.digits[i];
        }
    } else {
        *p++ = d.digits[0];
        if (d.count > 1) {
            *p++ = decimalSeparator;
            for (int i = 1; i < d.count; ++i) *p++ = d.digits[i];
        }
        *p++ = 'E';
        *p++ = sciExp < 0 ? '-' : '+';
        const int ae = sciExp < 0 ? -sciExp : sciExp;
        if (ae < 10) *p++ = '0';
        p = std::to_chars(p, p + 4, ae).ptr;
    }
    return static_cast<size_t>(p - buf);
}

double RoundHalfEven(double x) {
    const double f = std::floor(x);
    const double diff = x - f;
    if (diff > 0.5) return f + 1.0;
    if (diff < 0.5) return f;
    return std::fmod(f, 2.0) == 0.0 ? f : f + 1.0;
}

}  // namespace convdetail

double Val(std::string_view text) {
    double v = 0.0;
    // A number too large for a double overflows, as it does in the platform.
    if (convdetail::ParseVal(text, v) == convdetail::NumStatus::Overflow) RaisePlatform(ErrNum::Overflow);
    return v;
}

}  // namespace OVT_ZARO
