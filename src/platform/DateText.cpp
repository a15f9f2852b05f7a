// Date text: the locale's date reader (CDate, IsDate) and the default text
// of a date (short date, long time).
#include <charconv>
#include <cmath>
#include <ctime>

#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"
#include "platform/DateMath.h"

namespace OVT_ZARO::convdetail {

const char* const kMonthNames[12] = {"enero", "febrero", "marzo",      "abril",   "mayo",      "junio",
                                     "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
const char* const kMonthAbbrev[12] = {"ene", "feb", "mar", "abr", "may", "jun",
                                      "jul", "ago", "sep", "oct", "nov", "dic"};
const char* const kDayNames[7] = {"domingo", "lunes", "martes", "mi\303\251rcoles", "jueves", "viernes",
                                  "s\303\241bado"};
const char* const kDayAbbrev[7] = {"dom", "lun", "mar", "mi\303\251", "jue", "vie", "s\303\241b"};

namespace {

// Month names the reader knows: the Spanish ones written by Format, and the
// English ones, full or in three letters.
const char* const kEnglishMonths[12] = {"january", "february", "march",     "april",   "may",      "june",
                                        "july",    "august",   "september", "october", "november", "december"};

int MonthFromWord(std::string_view w) {
    for (int m = 0; m < 12; ++m) {
        if (w == kMonthNames[m] || w == kMonthAbbrev[m] || w == kEnglishMonths[m] ||
            w == std::string_view(kEnglishMonths[m], 3))
            return m + 1;
    }
    if (w == "setiembre" || w == "sept") return 9;
    return 0;
}

// ---- The reader -----------------------------------------------------------

enum class TokKind { Num, Month, Am, Pm, DateSep, Blank, Colon, T };
struct Tok {
    TokKind kind;
    int value = 0;
    int digits = 0;
};
constexpr int kMaxTokens = 24;

bool Tokenize(std::string_view s, const LocaleInfo& loc, Tok* toks, int& count) {
    count = 0;
    const std::string& locSep = loc.dateSeparator;
    size_t i = 0;
    while (i < s.size()) {
        if (count >= kMaxTokens) return false;
        const char c = s[i];
        Tok t{TokKind::Blank};
        if (IsDigit(c)) {
            size_t j = i;
            int v = 0;
            while (j < s.size() && IsDigit(s[j])) {
                if (j - i >= 9) return false;
                v = v * 10 + (s[j] - '0');
                ++j;
            }
            t = Tok{TokKind::Num, v, static_cast<int>(j - i)};
            i = j;
        } else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            char word[16];
            size_t j = i, n = 0;
            while (j < s.size() && ((s[j] >= 'a' && s[j] <= 'z') || (s[j] >= 'A' && s[j] <= 'Z'))) {
                if (n >= sizeof word) return false;
                word[n++] = AsciiLower(s[j++]);
            }
            const std::string_view w(word, n);
            if (w == "am" || w == "a")
                t = Tok{TokKind::Am};
            else if (w == "pm" || w == "p")
                t = Tok{TokKind::Pm};
            else if (w == "t")
                t = Tok{TokKind::T};
            else if (int m = MonthFromWord(w))
                t = Tok{TokKind::Month, m, 0};
            else
                return false;
            i = j;
        } else if (c == ' ' || c == '\t') {
            while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
            t = Tok{TokKind::Blank};
        } else if (c == ':') {
            t = Tok{TokKind::Colon};
            ++i;
        } else if (c == '/' || c == '-') {
            t = Tok{TokKind::DateSep};
            ++i;
        } else if (!locSep.empty() && s.compare(i, locSep.size(), locSep) == 0 && !IsDigit(locSep[0])) {
            // The locale's own date separator ("." in a "dd.mm.yyyy" locale).
            t = Tok{TokKind::DateSep};
            i += locSep.size();
        } else {
            return false;  // ".", ",", fractional seconds, anything else
        }
        toks[count++] = t;
    }
    return true;
}

int CurrentYear() {
    std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return tm.tm_year + 1900;
}

// A year as written: one or two digits take the window 00-29 -> 2000-2029,
// 30-99 -> 1930-1999; three or four digits stand as they are.
int YearOf(const Tok& t) {
    if (t.digits <= 2) return t.value < 30 ? 2000 + t.value : 1900 + t.value;
    if (t.digits <= 4) return t.value;
    return -1;
}
bool YearLike(const Tok& t) { return t.digits >= 3 || t.value > 31; }
// A day or month number: at most two digits.
int SmallOf(const Tok& t) { return t.digits <= 2 ? t.value : -1; }

bool TryDate(int y, int m, int d, int& oy, int& om, int& od) {
    if (!Date::IsValidDate(y, m, d)) return false;
    oy = y;
    om = m;
    od = d;
    return true;
}

// Resolves 2 or 3 date elements into a calendar day.
bool ResolveDate(const Tok* el, int n, DateOrder order, int& y, int& m, int& d) {
    int months = 0, monthIndex = -1;
    for (int i = 0; i < n; ++i)
        if (el[i].kind == TokKind::Month) ++months, monthIndex = i;
    if (months > 1) return false;
    if (months == 1) {
        const Tok* nums[2];
        int k = 0;
        for (int i = 0; i < n; ++i)
            if (i != monthIndex) nums[k++] = &el[i];
        const int month = el[monthIndex].value;
        if (n == 3) {
            if (YearLike(*nums[0]) && !YearLike(*nums[1]))
                return TryDate(YearOf(*nums[0]), month, SmallOf(*nums[1]), y, m, d);
            return TryDate(YearOf(*nums[1]), month, SmallOf(*nums[0]), y, m, d);
        }
        // A month name and one number: the year with day 1, or the day in the current year.
        if (YearLike(*nums[0])) return TryDate(YearOf(*nums[0]), month, 1, y, m, d);
        return TryDate(CurrentYear(), month, SmallOf(*nums[0]), y, m, d);
    }
    if (n == 3) {
        const Tok &a = el[0], &b = el[1], &c = el[2];
        if (YearLike(a))  // ISO: year first
            return TryDate(YearOf(a), SmallOf(b), SmallOf(c), y, m, d) ||
                   TryDate(YearOf(a), SmallOf(c), SmallOf(b), y, m, d);
        // The locale's order first; if that is no date, the other orders.
        switch (order) {
            case DateOrder::DMY:
                return TryDate(YearOf(c), SmallOf(b), SmallOf(a), y, m, d) ||
                       TryDate(YearOf(c), SmallOf(a), SmallOf(b), y, m, d) ||
                       TryDate(YearOf(a), SmallOf(b), SmallOf(c), y, m, d);
            case DateOrder::MDY:
                return TryDate(YearOf(c), SmallOf(a), SmallOf(b), y, m, d) ||
                       TryDate(YearOf(c), SmallOf(b), SmallOf(a), y, m, d) ||
                       TryDate(YearOf(a), SmallOf(b), SmallOf(c), y, m, d);
            case DateOrder::YMD:
                return TryDate(YearOf(a), SmallOf(b), SmallOf(c), y, m, d) ||
                       TryDate(YearOf(c), SmallOf(b), SmallOf(a), y, m, d) ||
                       TryDate(YearOf(c), SmallOf(a), SmallOf(b), y, m, d);
        }
        return false;
    }
    // Two numbers: month and year (day 1) when one of them is a year,
    // otherwise day and month of the current year.
    const Tok &a = el[0], &b = el[1];
    if (YearLike(b) && !YearLike(a)) return TryDate(YearOf(b), SmallOf(a), 1, y, m, d);
    if (YearLike(a) && !YearLike(b)) return TryDate(YearOf(a), SmallOf(b), 1, y, m, d);
    if (YearLike(a) || YearLike(b)) return false;
    const int year = CurrentYear();
    if (order == DateOrder::MDY)
        return TryDate(year, SmallOf(a), SmallOf(b), y, m, d) || TryDate(year, SmallOf(b), SmallOf(a), y, m, d);
    return TryDate(year, SmallOf(b), SmallOf(a), y, m, d) || TryDate(year, SmallOf(a), SmallOf(b), y, m, d);
}

bool IsTimeAt(const Tok* t, int n, int i) {
    return i + 1 < n && t[i].kind == TokKind::Num && t[i + 1].kind == TokKind::Colon;
}

// h:mm[:ss][ AM|PM]; hours 0-23 (1-12 with AM/PM), no fractions.
bool ParseTime(const Tok* t, int n, int& i, int& seconds) {
    if (!IsTimeAt(t, n, i)) return false;
    const Tok& h = t[i];
    if (i + 2 >= n || t[i + 2].kind != TokKind::Num) return false;
    const Tok& mi = t[i + 2];
    i += 3;
    int sec = 0;
    if (i + 1 < n && t[i].kind == TokKind::Colon && t[i + 1].kind == TokKind::Num) {
        if (t[i + 1].digits > 2) return false;
        sec = t[i + 1].value;
        i += 2;
    }
    if (h.digits > 2 || mi.digits > 2 || mi.value > 59 || sec > 59) return false;
    int hour = h.value;
    int j = i;
    if (j < n && t[j].kind == TokKind::Blank) ++j;
    if (j < n && (t[j].kind == TokKind::Am || t[j].kind == TokKind::Pm)) {
        if (hour > 12) return false;
        if (hour == 12) hour = 0;
        if (t[j].kind == TokKind::Pm) hour += 12;
        i = j + 1;
    } else if (hour > 23) {
        return false;  // "24:00" is no time
    }
    seconds = hour * 3600 + mi.value * 60 + sec;
    return true;
}

bool IsDateElement(const Tok& t) { return t.kind == TokKind::Num || t.kind == TokKind::Month; }

// Up to three date elements separated by "/", "-" or blanks.
bool ParseDateGroup(const Tok* t, int n, int& i, Tok* el, int& count) {
    count = 0;
    if (i >= n || !IsDateElement(t[i]) || IsTimeAt(t, n, i)) return false;
    el[count++] = t[i++];
    while (count < 3) {
        int j = i;
        bool sep = false;
        while (j < n && (t[j].kind == TokKind::Blank || t[j].kind == TokKind::DateSep)) {
            if (t[j].kind == TokKind::DateSep && sep && t[j - 1].kind == TokKind::DateSep) return false;
            sep = true;
            ++j;
        }
        if (!sep || j >= n || !IsDateElement(t[j]) || IsTimeAt(t, n, j)) break;
        el[count++] = t[j];
        i = j + 1;
    }
    return true;
}

}  // namespace

bool ParseDate(std::string_view text, const LocaleInfo& loc, double& serial) {
    size_t b = 0, e = text.size();
    while (b < e && IsBlank(text[b])) ++b;
    while (e > b && IsBlank(text[e - 1])) --e;
    if (b == e) return false;
    Tok toks[kMaxTokens];
    int n = 0;
    if (!Tokenize(text.substr(b, e - b), loc, toks, n)) return false;

    int i = 0;
    bool hasTime = false, hasDate = false;
    int seconds = 0;
    Tok el[3];
    int elCount = 0;
    if (IsTimeAt(toks, n, 0)) {
        // A time, then perhaps a date.
        if (!ParseTime(toks, n, i, seconds)) return false;
        hasTime = true;
        if (i < n) {
            if (toks[i].kind != TokKind::Blank) return false;
            ++i;
            if (!ParseDateGroup(toks, n, i, el, elCount)) return false;
            hasDate = true;
        }
    } else {
        // A date, then perhaps a time (after blanks or an ISO "T").
        if (!ParseDateGroup(toks, n, i, el, elCount)) return false;
        hasDate = true;
        if (i < n) {
            if (toks[i].kind != TokKind::Blank && toks[i].kind != TokKind::T) return false;
            ++i;
            if (!ParseTime(toks, n, i, seconds)) return false;
            hasTime = true;
        }
    }
    if (i != n) return false;

    int64_t day = 0;
    if (hasDate) {
        if (elCount < 2) return false;  // a lone number is no date
        int y = 0, m = 0, d = 0;
        if (!ResolveDate(el, elCount, loc.order, y, m, d)) return false;
        day = datemath::SerialDayFromCivil(y, m, d);
    }
    serial = datemath::SerialFromDayAndTime(day, hasTime ? seconds / 86400.0 : 0.0);
    return true;
}

int Weekday(const DateParts& p) {
    const int64_t day = datemath::SerialDayFromCivil(p.Year, p.Month, p.Day);
    // 1899-12-30 was a Saturday (7).
    return static_cast<int>(((day % 7) + 7 + 6) % 7) + 1;
}

void AppendShortDate(std::string& out, const DateParts& p, const LocaleInfo& loc) {
    const std::string& f = loc.locale.ShortDate;
    size_t i = 0;
    while (i < f.size()) {
        const char c = f[i];
        const char lc = AsciiLower(c);
        if (lc == 'd' || lc == 'm' || lc == 'y') {
            const size_t n = RunLength(f, i, lc);
            i += n;
            if (lc == 'd') {
                if (n == 1)
                    AppendInt(out, p.Day);
                else if (n == 2)
                    Append2(out, p.Day);
                else
                    out += (n == 3 ? kDayAbbrev : kDayNames)[Weekday(p) - 1];
            } else if (lc == 'm') {
                if (n == 1)
                    AppendInt(out, p.Month);
                else if (n == 2)
                    Append2(out, p.Month);
                else
                    out += (n == 3 ? kMonthAbbrev : kMonthNames)[p.Month - 1];
            } else {
                if (n <= 2)
                    Append2(out, p.Year % 100);
                else
                    AppendYear4(out, p.Year);
            }
        } else if (c == '\'') {
            size_t j = f.find('\'', i + 1);
            if (j == std::string::npos) j = f.size();
            out.append(f, i + 1, j - i - 1);
            i = j + 1;
        } else {
            out += c;
            ++i;
        }
    }
}

void AppendLongTime(std::string& out, const DateParts& p, const LocaleInfo& loc) {
    const std::string& f = loc.locale.LongTime;
    size_t i = 0;
    while (i < f.size()) {
        const char c = f[i];
        const char lc = AsciiLower(c);
        if (c == 'H' || c == 'h' || lc == 'm' || lc == 's' || lc == 't') {
            // H is the 24-hour clock, h the 12-hour one; t/tt the A/AM mark.
            size_t n = 0;
            if (c == 'H' || c == 'h') {
                while (i + n < f.size() && f[i + n] == c) ++n;
            } else {
                n = RunLength(f, i, lc);
            }
            i += n;
            int v = 0;
            if (c == 'H')
                v = p.Hour;
            else if (c == 'h')
                v = p.Hour % 12 == 0 ? 12 : p.Hour % 12;
            else if (lc == 'm')
                v = p.Minute;
            else if (lc == 's')
                v = p.Second;
            if (lc == 't') {
                out += p.Hour < 12 ? 'A' : 'P';
                if (n >= 2) out += 'M';
            } else if (n == 1) {
                AppendInt(out, v);
            } else {
                Append2(out, v);
            }
        } else if (c == '\'') {
            size_t j = f.find('\'', i + 1);
            if (j == std::string::npos) j = f.size();
            out.append(f, i + 1, j - i - 1);
            i = j + 1;
        } else {
            out += c;
            ++i;
        }
    }
}

std::string DateToText(Date d) {
    DateParts p;
    if (!datemath::SplitSerial(d.Serial(), p)) RaisePlatform(ErrNum::Overflow);
    const LocaleInfo& loc = CurrentLocale();
    const bool datePart = !(p.Year == 1899 && p.Month == 12 && p.Day == 30);
    const bool timePart = p.Hour != 0 || p.Minute != 0 || p.Second != 0;
    std::string out;
    out.reserve(24);
    // Short date when the time is 0; time only when the date is the zero day
    // (so the zero date itself gives "0:00:00"); otherwise both.
    if (datePart) {
        AppendShortDate(out, p, loc);
        if (timePart) {
            out += ' ';
            AppendLongTime(out, p, loc);
        }
    } else {
        AppendLongTime(out, p, loc);
    }
    return out;
}

}  // namespace OVT_ZARO::convdetail
