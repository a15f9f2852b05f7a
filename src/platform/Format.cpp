// The platform's format function: number patterns, date patterns and a few
// named formats, under the host locale.
//
// Numbers are formatted from their exact decimal digits (a Double from its
// 15 significant digits, as its default text shows it), so rounding to the
// shown decimals is half away from zero on the digits the user sees.
#include <charconv>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"
#include "platform/DateMath.h"

namespace OVT_ZARO {

using namespace convdetail;

namespace {

// ---- Exact decimal values -------------------------------------------------

// |value| = 0.digits x 10^point; digits without leading or trailing zeros.
struct Dec {
    std::string digits;
    int64_t point = 0;
    bool negative = false;
    bool IsZero() const { return digits.empty(); }
};

void StripTrailingZeros(Dec& d) {
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits.empty()) d.point = 0;
}

Dec DecFromInt(int64_t x);

Dec DecFromDouble(double x) {
    // A whole number below 10^15 has all its digits among the 15 significant ones.
    if (std::fabs(x) < 1e15 && x == std::trunc(x)) return DecFromInt(static_cast<int64_t>(x));
    Decimal d;
    ToDecimal15(x, d);
    Dec r;
    r.digits.assign(d.digits, static_cast<size_t>(d.count));
    r.point = d.pointPos;
    r.negative = x < 0 && d.count > 0;
    return r;
}

Dec DecFromInt(int64_t x) {
    Dec r;
    const uint64_t u = x < 0 ? 0 - static_cast<uint64_t>(x) : static_cast<uint64_t>(x);
    char buf[24];
    auto res = std::to_chars(buf, buf + sizeof buf, u);
    r.digits.assign(buf, res.ptr);
    r.point = static_cast<int64_t>(r.digits.size());
    r.negative = x < 0;
    if (r.digits == "0") r.digits.clear();
    StripTrailingZeros(r);
    return r;
}

// Rounds half away from zero to `decimals` digits after the point.
void RoundTo(Dec& d, int64_t decimals) {
    if (d.IsZero()) return;
    const int64_t keep = d.point + decimals;
    if (keep >= static_cast<int64_t>(d.digits.size())) return;
    if (keep < 0) {
        d.digits.clear();
        d.point = 0;
        return;
    }
    const bool up = d.digits[static_cast<size_t>(keep)] >= '5';
    d.digits.resize(static_cast<size_t>(keep));
    if (up) {
        while (!d.digits.empty() && d.digits.back() == '9') d.digits.pop_back();
        if (d.digits.empty()) {
            d.digits = "1";
            d.point += 1;
        } else {
            ++d.digits.back();
        }
    }
    StripTrailingZeros(d);
}

// ---- Pattern text helpers -------------------------------------------------

size_t Utf8Length(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 1;
}

// At i a quote or a backslash: appends the literal text and moves i past it.
bool TakeLiteral(std::string_view s, size_t& i, std::string* out) {
    if (s[i] == '"') {
        size_t j = s.find('"', i + 1);
        if (j == std::string_view::npos) j = s.size();
        if (out) out->append(s.substr(i + 1, j - i - 1));
        i = j < s.size() ? j + 1 : j;
        return true;
    }
    if (s[i] == '\\') {
        if (i + 1 < s.size()) {
            const size_t len = std::min(Utf8Length(static_cast<unsigned char>(s[i + 1])), s.size() - i - 1);
            if (out) out->append(s.substr(i + 1, len));
            i += 1 + len;
        } else {
            i += 1;
        }
        return true;
    }
    return false;
}

// Sections separated by ";" outside quotes and escapes (at most four).
std::vector<std::string_view> SplitSections(std::string_view s) {
    std::vector<std::string_view> out;
    size_t start = 0, i = 0;
    while (i < s.size()) {
        if (TakeLiteral(s, i, nullptr)) continue;
        if (s[i] == ';' && out.size() < 3) {
            out.push_back(s.substr(start, i - start));
            start = i + 1;
        }
        ++i;
    }
    out.push_back(s.substr(start));
    return out;
}

bool StartsWithNoCase(std::string_view s, size_t i, std::string_view what) {
    if (s.size() - i < what.size()) return false;
    for (size_t k = 0; k < what.size(); ++k)
        if (AsciiLower(s[i + k]) != what[k]) return false;
    return true;
}

// A section is a date pattern when it has a date or time token outside
// literals: d w m q y h n s c, ttttt, AM/PM, A/P, AMPM.
bool IsDateSection(std::string_view s) {
    size_t i = 0;
    while (i < s.size()) {
        if (TakeLiteral(s, i, nullptr)) continue;
        const char lc = AsciiLower(s[i]);
        switch (lc) {
            case 'd': case 'w': case 'm': case 'q': case 'y': case 'h': case 'n': case 's': case 'c':
                return true;
            case 't':
                if (StartsWithNoCase(s, i, "ttttt")) return true;
                break;
            case 'a':
                if (StartsWithNoCase(s, i, "am/pm") || StartsWithNoCase(s, i, "a/p") || StartsWithNoCase(s, i, "ampm"))
                    return true;
                break;
            default:
                break;
        }
        ++i;
    }
    return false;
}

// The text of a section with only its literals (the Null section).
std::string LiteralText(std::string_view s) {
    std::string out;
    size_t i = 0;
    while (i < s.size()) {
        if (TakeLiteral(s, i, &out)) continue;
        out += s[i++];
    }
    return out;
}

// ---- Number sections ------------------------------------------------------

struct NumItem {
    enum Kind { Literal, IntDigit, FracDigit, Point, ExpMark, ExpDigit } kind;
    std::string text;      // Literal; ExpMark: "E" or "e"
    bool expPlus = false;  // ExpMark: "E+" always writes a sign, "E-" only "-"
};

struct NumSection {
    std::vector<NumItem> items;
    int intCount = 0, minInt = 0, fracCount = 0, minFrac = 0, expMinDigits = 0;
    int scale = 0;  // thousands divisions by "," before the point
    bool grouping = false, percent = false, hasExp = false;
};

NumSection ParseNumberSection(std::string_view s) {
    NumSection r;
    enum { Int, Frac, Exp } part = Int;
    int pendingCommas = 0, firstZero = -1;
    bool sawIntDigit = false;
    auto literal = [&](std::string_view t) {
        if (t.empty()) return;
        if (!r.items.empty() && r.items.back().kind == NumItem::Literal)
            r.items.back().text.append(t);
        else
            r.items.push_back({NumItem::Literal, std::string(t)});
    };
    auto flushCommas = [&] {
        // "," right after the integer digits divides by 1000 each.
        if (pendingCommas && sawIntDigit) r.scale += pendingCommas;
        pendingCommas = 0;
    };
    size_t i = 0;
    while (i < s.size()) {
        std::string lit;
        if (TakeLiteral(s, i, &lit)) {
            literal(lit);
            continue;
        }
        const char c = s[i];
        if (c == '0' || c == '#') {
            if (part == Int) {
                // "," between digit places turns on grouping.
                if (pendingCommas && sawIntDigit) r.grouping = true;
                pendingCommas = 0;
                if (c == '0' && firstZero < 0) firstZero = r.intCount;
                ++r.intCount;
                sawIntDigit = true;
                r.items.push_back({NumItem::IntDigit, {}});
            } else if (part == Frac) {
                ++r.fracCount;
                if (c == '0') r.minFrac = r.fracCount;
                r.items.push_back({NumItem::FracDigit, {}});
            } else {
                if (c == '0') ++r.expMinDigits;
                r.items.push_back({NumItem::ExpDigit, {}});
            }
            ++i;
        } else if (c == '.' && part == Int) {
            flushCommas();
            part = Frac;
            r.items.push_back({NumItem::Point, {}});
            ++i;
        } else if (c == ',') {
            if (part == Int) ++pendingCommas;  // elsewhere a "," is dropped
            ++i;
        } else if ((c == 'E' || c == 'e') && part != Exp && i + 1 < s.size() && (s[i + 1] == '+' || s[i + 1] == '-')) {
            flushCommas();
            part = Exp;
            r.hasExp = true;
            NumItem mark{NumItem::ExpMark, std::string(1, c)};
            mark.expPlus = s[i + 1] == '+';
            r.items.push_back(mark);
            i += 2;
        } else {
            if (c == '%') r.percent = true;
            const size_t len = std::min(Utf8Length(static_cast<unsigned char>(c)), s.size() - i);
            literal(s.substr(i, len));
            i += len;
        }
    }
    flushCommas();
    r.minInt = firstZero < 0 ? 0 : r.intCount - firstZero;
    return r;
}

// A pattern split into its sections, with the kind of each and the parse of
// its number tokens: worked out once per pattern text and kept in a small
// cache of the thread, since a grid formats every cell of a column with the
// same pattern. None of it depends on the locale.
struct CompiledPattern {
    std::string text;
    std::vector<std::string> sections;
    std::vector<bool> isDate;
    std::vector<NumSection> numbers;
};

const CompiledPattern& Compile(std::string_view pattern) {
    thread_local std::vector<std::unique_ptr<CompiledPattern>> cache;  // the most recent last
    for (size_t i = cache.size(); i-- > 0;)
        if (cache[i]->text == pattern) return *cache[i];
    auto c = std::make_unique<CompiledPattern>();
    c->text = std::string(pattern);
    for (std::string_view sec : SplitSections(c->text)) c->sections.emplace_back(sec);
    for (const std::string& sec : c->sections) {
        c->isDate.push_back(IsDateSection(sec));
        c->numbers.push_back(ParseNumberSection(sec));
    }
    constexpr size_t kKept = 16;
    if (cache.size() == kKept) cache.erase(cache.begin());
    cache.push_back(std::move(c));
    return *cache.back();
}

std::string FormatNumberSection(const NumSection& sec, Dec x, bool showMinus, const LocaleInfo& loc) {
    if (sec.percent) x.point += 2;
    x.point -= 3 * static_cast<int64_t>(sec.scale);
    if (x.IsZero()) x.point = 0;
    int64_t expValue = 0;
    if (sec.hasExp) {
        const int64_t wantInt = sec.intCount;
        if (!x.IsZero()) {
            expValue = x.point - wantInt;
            x.point = wantInt;
            RoundTo(x, sec.fracCount);
            if (!x.IsZero() && x.point > wantInt) {
                expValue += x.point - wantInt;
                x.point = wantInt;
            }
        }
    } else {
        RoundTo(x, sec.fracCount);
    }

    // The integer digits, at least as many as the "0" places ask for.
    std::string intDigits;
    const int64_t ndig = static_cast<int64_t>(x.digits.size());
    for (int64_t k = 0; k < x.point; ++k) intDigits += k < ndig ? x.digits[static_cast<size_t>(k)] : '0';
    if (static_cast<int64_t>(intDigits.size()) < sec.minInt)
        intDigits.insert(0, static_cast<size_t>(sec.minInt) - intDigits.size(), '0');
    // The fraction digits; "#" places drop trailing zeros.
    std::string frac(static_cast<size_t>(sec.fracCount), '0');
    for (int k = 0; k < sec.fracCount; ++k) {
        const int64_t idx = x.point + k;
        if (idx >= 0 && idx < ndig) frac[static_cast<size_t>(k)] = x.digits[static_cast<size_t>(idx)];
    }
    int shownFrac = sec.minFrac;
    for (int k = sec.fracCount - 1; k >= shownFrac; --k)
        if (frac[static_cast<size_t>(k)] != '0') {
            shownFrac = k + 1;
            break;
        }

    std::string out;
    // No "-" in front of a number that shows as zero ("-0,00" would mislead).
    if (showMinus && !x.IsZero()) out += '-';
    const std::string group(1, loc.locale.GroupSeparator);
    const int64_t L = static_cast<int64_t>(intDigits.size());
    const int64_t n = sec.intCount;
    auto emitDigit = [&](int64_t j) {
        out += intDigits[static_cast<size_t>(j)];
        const int64_t rest = L - 1 - j;
        if (sec.grouping && rest > 0 && rest % 3 == 0) out += group;
    };
    int64_t intIndex = 0;
    int fracIndex = 0;
    bool intEmitted = false, expEmitted = false;
    for (const NumItem& item : sec.items) {
        switch (item.kind) {
            case NumItem::Literal:
                out += item.text;
                break;
            case NumItem::IntDigit: {
                const int64_t i = intIndex++;
                const int64_t j = L - n + i;
                if (i == 0) {
                    // Extra integer digits all go to the first place.
                    for (int64_t k = 0; k <= j; ++k) emitDigit(k);
                } else if (j >= 0) {
                    emitDigit(j);
                }
                intEmitted = true;
                break;
            }
            case NumItem::Point:
                // The separator is written even when no digit follows it ("5,"), as the platform does.
                if (n == 0 && !intEmitted) {
                    for (int64_t k = 0; k < L; ++k) emitDigit(k);
                    intEmitted = true;
                }
                out += loc.locale.DecimalSeparator;
                break;
            case NumItem::FracDigit:
                if (fracIndex < shownFrac) out += frac[static_cast<size_t>(fracIndex)];
                ++fracIndex;
                break;
            case NumItem::ExpMark:
                out += item.text;
                if (expValue < 0)
                    out += '-';
                else if (item.expPlus)
                    out += '+';
                break;
            case NumItem::ExpDigit:
                if (!expEmitted) {
                    char buf[24];
                    const int64_t ae = expValue < 0 ? -expValue : expValue;
                    auto r = std::to_chars(buf, buf + sizeof buf, ae);
                    const size_t len = static_cast<size_t>(r.ptr - buf);
                    const size_t width = static_cast<size_t>(std::max(sec.expMinDigits, 1));
                    if (len < width) out.append(width - len, '0');
                    out.append(buf, len);
                    expEmitted = true;
                }
                break;
        }
    }
    return out;
}

// ---- Date sections --------------------------------------------------------

bool HasAmPm(std::string_view s) {
    size_t i = 0;
    while (i < s.size()) {
        if (TakeLiteral(s, i, nullptr)) continue;
        if (StartsWithNoCase(s, i, "am/pm") || StartsWithNoCase(s, i, "a/p") || StartsWithNoCase(s, i, "ampm"))
            return true;
        ++i;
    }
    return false;
}

std::string FormatDateSection(std::string_view s, double serial, const LocaleInfo& loc) {
    DateParts p;
    if (!datemath::SplitSerial(serial, p)) RaisePlatform(ErrNum::Overflow);
    const bool twelveHour = HasAmPm(s);
    const int dayOfYear = static_cast<int>(datemath::SerialDayFromCivil(p.Year, p.Month, p.Day) -
                                           datemath::SerialDayFromCivil(p.Year, 1, 1)) + 1;
    std::string out;
    // m and mm are minutes right after an h or hh token, otherwise the month.
    bool afterHour = false;
    size_t i = 0;
    while (i < s.size()) {
        if (TakeLiteral(s, i, &out)) continue;
        const char c = s[i];
        const char lc = AsciiLower(c);
        size_t n = 1;
        bool dateToken = true;
        bool hourToken = false;
        switch (lc) {
            case 'd': {
                n = std::min<size_t>(RunLength(s, i, 'd'), 6);
                if (n == 1)
                    AppendInt(out, p.Day);
                else if (n == 2)
                    Append2(out, p.Day);
                else if (n == 3)
                    out += kDayAbbrev[Weekday(p) - 1];
                else if (n == 4)
                    out += kDayNames[Weekday(p) - 1];
                else if (n == 5)
                    AppendShortDate(out, p, loc);
                else {
                    // The long date: "viernes, 15 de marzo de 2024".
                    out += kDayNames[Weekday(p) - 1];
                    out += ", ";
                    AppendInt(out, p.Day);
                    out += " de ";
                    out += kMonthNames[p.Month - 1];
                    out += " de ";
                    AppendInt(out, p.Year);
                }
                break;
            }
            case 'w': {
                n = std::min<size_t>(RunLength(s, i, 'w'), 2);
                if (n == 1) {
                    AppendInt(out, Weekday(p));
                } else {
                    // Sunday starts a week; week 1 holds 1 January.
                    DateParts jan1 = p;
                    jan1.Month = 1;
                    jan1.Day = 1;
                    AppendInt(out, (dayOfYear - 1 + Weekday(jan1) - 1) / 7 + 1);
                }
                break;
            }
            case 'm': {
                n = std::min<size_t>(RunLength(s, i, 'm'), 4);
                if (n <= 2 && afterHour) {
                    if (n == 1)
                        AppendInt(out, p.Minute);
                    else
                        Append2(out, p.Minute);
                } else if (n == 1) {
                    AppendInt(out, p.Month);
                } else if (n == 2) {
                    Append2(out, p.Month);
                } else {
                    out += (n == 3 ? kMonthAbbrev : kMonthNames)[p.Month - 1];
                }
                break;
            }
            case 'q':
                AppendInt(out, (p.Month - 1) / 3 + 1);
                break;
            case 'y': {
                const size_t run = RunLength(s, i, 'y');
                n = run >= 4 ? 4 : (run >= 2 ? 2 : 1);
                if (n == 1)
                    AppendInt(out, dayOfYear);
                else if (n == 2)
                    Append2(out, p.Year % 100);
                else
                    AppendInt(out, p.Year);
                break;
            }
            case 'h': {
                n = std::min<size_t>(RunLength(s, i, 'h'), 2);
                int h = p.Hour;
                if (twelveHour) h = h % 12 == 0 ? 12 : h % 12;
                if (n == 1)
                    AppendInt(out, h);
                else
                    Append2(out, h);
                hourToken = true;
                break;
            }
            case 'n':
            case 's': {
                n = std::min<size_t>(RunLength(s, i, lc), 2);
                const int v = lc == 'n' ? p.Minute : p.Second;
                if (n == 1)
                    AppendInt(out, v);
                else
                    Append2(out, v);
                break;
            }
            case 'c':
                out += DateToText(Date(serial));
                break;
            case 't':
                if (StartsWithNoCase(s, i, "ttttt")) {
                    n = 5;
                    AppendLongTime(out, p, loc);
                } else {
                    dateToken = false;
                    out += c;
                }
                break;
            case 'a': {
                const bool pm = p.Hour >= 12;
                if (StartsWithNoCase(s, i, "am/pm")) {
                    n = 5;
                    // The case of the pattern's letters is kept.
                    const bool lower = c == 'a';
                    out += pm ? (lower ? "pm" : "PM") : (lower ? "am" : "AM");
                } else if (StartsWithNoCase(s, i, "a/p")) {
                    n = 3;
                    out += pm ? (c == 'a' ? 'p' : 'P') : c;
                } else if (StartsWithNoCase(s, i, "ampm")) {
                    n = 4;
                    out += pm ? "PM" : "AM";
                } else {
                    dateToken = false;
                    out += c;
                }
                break;
            }
            case '/':
                dateToken = false;
                out += loc.dateSeparator;
                break;
            case ':':
                dateToken = false;
                out += loc.timeSeparator;
                break;
            default: {
                dateToken = false;
                n = std::min(Utf8Length(static_cast<unsigned char>(c)), s.size() - i);
                out.append(s.substr(i, n));
                break;
            }
        }
        if (dateToken) afterHour = hourToken;
        i += n;
    }
    return out;
}

// ---- Values ---------------------------------------------------------------

enum class Named { None, GeneralNumber, GeneralDate, YesNo, TrueFalse, OnOff };

// The named formats: a pattern of their own, or a rule (Named).
Named LookupNamed(std::string_view pattern, std::string& replacement, const LocaleInfo& loc) {
    auto is = [&](std::string_view name) {
        return pattern.size() == name.size() && StartsWithNoCase(pattern, 0, name);
    };
    if (is("general number")) return Named::GeneralNumber;
    if (is("general date")) return Named::GeneralDate;
    if (is("yes/no")) return Named::YesNo;
    if (is("true/false")) return Named::TrueFalse;
    if (is("on/off")) return Named::OnOff;
    if (is("currency")) {
        std::string sym = "\"" + loc.locale.CurrencySymbol + "\"";
        replacement = "#,##0.00 " + sym + ";-#,##0.00 " + sym;
    } else if (is("fixed")) {
        replacement = "0.00";
    } else if (is("standard")) {
        replacement = "#,##0.00";
    } else if (is("percent")) {
        replacement = "0.00%";
    } else if (is("scientific")) {
        replacement = "0.00E+00";
    } else if (is("long date")) {
        replacement = "dddddd";
    } else if (is("medium date")) {
        replacement = "dd-mmm-yy";
    } else if (is("short date")) {
        replacement = "ddddd";
    } else if (is("long time")) {
        replacement = "ttttt";
    } else if (is("medium time")) {
        replacement = "hh:nn AM/PM";
    } else if (is("short time")) {
        replacement = "hh:nn";
    }
    return Named::None;
}

struct FValue {
    enum Kind { Number, DateValue } kind = Number;
    Dec dec;            // the number (for a date: its serial)
    double num = 0.0;   // the same as a double
    bool empty = false;
};

}  // namespace

Variant Format(const Variant& v, std::string_view pattern) {
    const LocaleInfo& loc = CurrentLocale();
    if (v.IsObject()) RaisePlatform(ErrNum::TypeMismatch);

    std::string replacement;
    const Named named = pattern.empty() ? Named::None : LookupNamed(pattern, replacement, loc);
    if (!replacement.empty()) pattern = replacement;

    if (v.IsNull()) {
        // The fourth section, when there is one, is the text for Null.
        if (!pattern.empty() && named == Named::None) {
            std::vector<std::string_view> secs = SplitSections(pattern);
            if (secs.size() >= 4) return Variant(LiteralText(secs[3]));
        }
        return Variant::Null();
    }
    if (pattern.empty()) {
        // No pattern: the default text; text as it stands; Empty "".
        if (const std::string* s = v.GetIf<std::string>()) return Variant(*s);
        return Variant(CStr(v));
    }

    // The value as a number or a date. Text that reads as a number under the
    // locale is that number, text that reads as a date that date, and any
    // other text comes back unchanged.
    FValue val;
    if (v.IsEmpty()) {
        val.empty = true;
    } else if (const int16_t* p = v.GetIf<int16_t>()) {
        val.dec = DecFromInt(*p), val.num = *p;
    } else if (const int32_t* p = v.GetIf<int32_t>()) {
        val.dec = DecFromInt(*p), val.num = *p;
    } else if (const int64_t* p = v.GetIf<int64_t>()) {
        val.dec = DecFromInt(*p), val.num = static_cast<double>(*p);
    } else if (const bool* p = v.GetIf<bool>()) {
        val.dec = DecFromInt(*p ? -1 : 0), val.num = *p ? -1.0 : 0.0;
    } else if (const double* p = v.GetIf<double>()) {
        if (!std::isfinite(*p)) RaisePlatform(ErrNum::Overflow);
        val.dec = DecFromDouble(*p), val.num = *p;
    } else if (const Date* p = v.GetIf<Date>()) {
        val.kind = FValue::DateValue;
        val.dec = DecFromDouble(p->Serial()), val.num = p->Serial();
    } else {
        const std::string text = v.IsByteArray() ? CStr(v) : v.Get<std::string>();
        double x = 0.0;
        if (ParseNumber(text, loc.locale, &x) == NumStatus::Ok) {
            val.dec = DecFromDouble(x), val.num = x;
        } else if (double serial = 0.0; ParseDate(text, loc, serial)) {
            val.kind = FValue::DateValue;
            val.dec = DecFromDouble(serial), val.num = serial;
        } else {
            return Variant(text);
        }
    }

    switch (named) {
        case Named::GeneralNumber: {
            if (v.IsNumber()) return Variant(CStr(v));
            return Variant(CStr(Variant(val.num)));
        }
        case Named::GeneralDate:
            if (val.empty) return Variant(std::string());
            if (!datemath::SerialInRange(val.num)) RaisePlatform(ErrNum::Overflow);
            return Variant(DateToText(Date(val.num)));
        case Named::YesNo:
            return Variant(std::string(val.num != 0.0 ? "Yes" : "No"));
        case Named::TrueFalse:
            return Variant(std::string(val.num != 0.0 ? "True" : "False"));
        case Named::OnOff:
            return Variant(std::string(val.num != 0.0 ? "On" : "Off"));
        case Named::None:
            break;
    }

    const CompiledPattern& compiled = Compile(pattern);
    const std::vector<std::string>& secs = compiled.sections;
    // A date under a date pattern takes the first section.
    if (val.kind == FValue::DateValue && compiled.isDate[0]) return Variant(FormatDateSection(secs[0], val.num, loc));

    // Sections: positive;negative;zero. An empty or missing negative section
    // uses the first one with a "-"; an empty or missing zero section the first.
    // The section is chosen by the value before rounding.
    size_t index = 0;
    bool showMinus = val.dec.negative;
    if (val.dec.negative && secs.size() >= 2 && !secs[1].empty()) {
        index = 1;
        showMinus = false;
    } else if (val.dec.IsZero() && secs.size() >= 3 && !secs[2].empty()) {
        index = 2;
    }
    if (compiled.isDate[index]) {
        // Empty under a date pattern gives "" rather than the zero date.
        if (val.empty) return Variant(std::string());
        return Variant(FormatDateSection(secs[index], val.num, loc));
    }
    Dec magnitude = val.dec;
    magnitude.negative = false;
    // Empty under a number pattern counts as 0.
    return Variant(FormatNumberSection(compiled.numbers[index], magnitude, showMinus, loc));
}

}  // namespace OVT_ZARO
