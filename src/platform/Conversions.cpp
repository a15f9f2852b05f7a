// The platform's conversions of a Variant: CStr, CDbl, CLng, CInt, CDate,
// CBool, IsNumeric, IsDate, the host locale they read, and the index rule
// of the Collection.
#include "ZARODatos/platform/Conversions.h"

#include <atomic>
#include <charconv>
#include <cmath>
#include <limits>
#include <mutex>

#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Error.h"
#include "platform/Overloaded.h"
#include "platform/ConversionsDetail.h"
#include "platform/DateMath.h"

namespace OVT_ZARO {

using detail::Overloaded;

namespace convdetail {

namespace {

LocaleInfo Derive(const HostLocale& l) {
    LocaleInfo info;
    info.locale = l;
    auto firstSeparator = [](const std::string& f, const char* fallback) {
        for (size_t i = 0; i < f.size(); ++i) {
            const char c = f[i];
            if (c == '\'') {
                size_t j = f.find('\'', i + 1);
                if (j == std::string::npos) break;
                i = j;
                continue;
            }
            const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
            if (!letter && !IsDigit(c) && static_cast<unsigned char>(c) < 0x80) return std::string(1, c);
        }
        return std::string(fallback);
    };
    const std::string& f = l.ShortDate;
    size_t pd = std::string::npos, pm = std::string::npos, py = std::string::npos;
    for (size_t i = 0; i < f.size(); ++i) {
        const char lc = AsciiLower(f[i]);
        if (lc == 'd' && pd == std::string::npos) pd = i;
        if (lc == 'm' && pm == std::string::npos) pm = i;
        if (lc == 'y' && py == std::string::npos) py = i;
    }
    if (py < pd && py < pm)
        info.order = DateOrder::YMD;
    else if (pm < pd)
        info.order = DateOrder::MDY;
    else
        info.order = DateOrder::DMY;
    info.dateSeparator = firstSeparator(l.ShortDate, "/");
    info.timeSeparator = firstSeparator(l.LongTime, ":");
    return info;
}

// The settings in force: an immutable snapshot, replaced as a whole by Set.
// The snapshots a Set replaces are kept for the life of the process, so that
// a conversion running on another thread keeps reading the one it took (a
// host sets the locale a few times at most).
std::atomic<const LocaleInfo*>& InForce() {
    static std::atomic<const LocaleInfo*> current{new LocaleInfo(Derive(HostLocale{}))};
    return current;
}

void KeepForever(const LocaleInfo* replaced) {
    static std::mutex m;
    static auto* kept = new std::vector<const LocaleInfo*>();
    std::lock_guard<std::mutex> lock(m);
    kept->push_back(replaced);
}

bool BadSeparator(char c) {
    return IsDigit(c) || c == '+' || c == '-' || c == '(' || c == ')' || c == 'e' || c == 'E' || c == '&' ||
           c == '\0' || static_cast<unsigned char>(c) >= 0x80;
}

bool HasLetter(const std::string& f, char lower) {
    for (char c : f)
        if (AsciiLower(c) == lower) return true;
    return false;
}

[[noreturn]] void RaiseForNumber(NumStatus s) {
    RaisePlatform(s == NumStatus::Overflow ? ErrNum::Overflow : ErrNum::TypeMismatch);
}


double RoundedInRange(double x, double lo, double hi) {
    const double r = RoundHalfEven(x);
    if (!(r >= lo && r <= hi)) RaisePlatform(ErrNum::Overflow);
    return r;
}

// CLng and CInt: the value rounded half to even, then its range checked.
template <class Int>
Int ToInteger(const Variant& v) {
    constexpr double lo = static_cast<double>(std::numeric_limits<Int>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<Int>::max());
    auto fromInt64 = [](int64_t x) -> Int {
        if (x < std::numeric_limits<Int>::min() || x > std::numeric_limits<Int>::max())
            RaisePlatform(ErrNum::Overflow);
        return static_cast<Int>(x);
    };
    return std::visit(Overloaded{
                          [](EmptyValue) -> Int { return 0; },
                          [](NullValue) -> Int { RaisePlatform(ErrNum::InvalidUseOfNull); },
                          [&](int16_t x) -> Int { return fromInt64(x); },
                          [&](int32_t x) -> Int { return fromInt64(x); },
                          [&](int64_t x) -> Int { return fromInt64(x); },
                          [&](double x) -> Int { return static_cast<Int>(RoundedInRange(x, lo, hi)); },
                          [&](Date d) -> Int { return static_cast<Int>(RoundedInRange(d.Serial(), lo, hi)); },
                          [&](const std::string& s) -> Int {
                              double x = 0.0;
                              NumStatus st = ParseNumber(s, CurrentLocale().locale, &x);
                              if (st != NumStatus::Ok) RaiseForNumber(st);
                              return static_cast<Int>(RoundedInRange(x, lo, hi));
                          },
                          [](bool b) -> Int { return b ? Int(-1) : Int(0); },
                          [](const ObjectRef&) -> Int { RaisePlatform(ErrNum::TypeMismatch); },
                          [](const ByteArray&) -> Int { RaisePlatform(ErrNum::TypeMismatch); },
                      },
                      v.Raw());
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
    return true;
}

}  // namespace

const LocaleInfo& CurrentLocale() { return *InForce().load(std::memory_order_acquire); }

}  // namespace convdetail

using namespace convdetail;

const HostLocale& HostLocale::Current() { return CurrentLocale().locale; }

void HostLocale::Set(const HostLocale& locale) {
    if (locale.DecimalSeparator == locale.GroupSeparator || BadSeparator(locale.DecimalSeparator) ||
        BadSeparator(locale.GroupSeparator) || IsBlank(locale.DecimalSeparator) ||
        !HasLetter(locale.ShortDate, 'd') || !HasLetter(locale.ShortDate, 'm') ||
        !HasLetter(locale.ShortDate, 'y') || !HasLetter(locale.LongTime, 'h'))
        RaisePlatform(ErrNum::InvalidCall);
    KeepForever(InForce().exchange(new LocaleInfo(Derive(locale)), std::memory_order_acq_rel));
}

std::string CStr(const Variant& v) {
    return std::visit(Overloaded{
                          [](EmptyValue) { return std::string(); },
                          [](NullValue) -> std::string { RaisePlatform(ErrNum::InvalidUseOfNull); },
                          [](int16_t x) {
                              char buf[8];
                              return std::string(buf, std::to_chars(buf, buf + sizeof buf, x).ptr);
                          },
                          [](int32_t x) {
                              char buf[16];
                              return std::string(buf, std::to_chars(buf, buf + sizeof buf, x).ptr);
                          },
                          [](int64_t x) {
                              char buf[24];
                              return std::string(buf, std::to_chars(buf, buf + sizeof buf, x).ptr);
                          },
                          [](double x) {
                              // The platform has no infinity or NaN: such a double overflows.
                              if (!std::isfinite(x)) RaisePlatform(ErrNum::Overflow);
                              char buf[32];
                              return std::string(buf, FormatDouble(x, CurrentLocale().locale.DecimalSeparator, buf));
                          },
                          [](Date d) { return DateToText(d); },
                          [](const std::string& s) { return s; },
                          [](bool b) { return std::string(b ? "True" : "False"); },
                          // An object has no default text here.
                          [](const ObjectRef&) -> std::string { RaisePlatform(ErrNum::TypeMismatch); },
                          // A byte array becomes the text made of its bytes.
                          [](const ByteArray& a) { return std::string(a.begin(), a.end()); },
                      },
                      v.Raw());
}

double CDbl(const Variant& v) {
    return std::visit(Overloaded{
                          [](EmptyValue) { return 0.0; },
                          [](NullValue) -> double { RaisePlatform(ErrNum::InvalidUseOfNull); },
                          [](int16_t x) { return static_cast<double>(x); },
                          [](int32_t x) { return static_cast<double>(x); },
                          [](int64_t x) { return static_cast<double>(x); },
                          [](double x) { return x; },
                          [](Date d) { return d.Serial(); },
                          [](const std::string& s) {
                              double x = 0.0;
                              NumStatus st = ParseNumber(s, CurrentLocale().locale, &x);
                              if (st != NumStatus::Ok) RaiseForNumber(st);
                              return x;
                          },
                          [](bool b) { return b ? -1.0 : 0.0; },
                          [](const ObjectRef&) -> double { RaisePlatform(ErrNum::TypeMismatch); },
                          [](const ByteArray&) -> double { RaisePlatform(ErrNum::TypeMismatch); },
                      },
                      v.Raw());
}

int32_t CLng(const Variant& v) { return ToInteger<int32_t>(v); }

int16_t CInt(const Variant& v) { return ToInteger<int16_t>(v); }

Date CDate(const Variant& v) {
    auto fromSerial = [](double serial) {
        if (!datemath::SerialInRange(serial)) RaisePlatform(ErrNum::Overflow);
        return Date(serial);
    };
    return std::visit(Overloaded{
                          [](EmptyValue) { return Date(); },
                          [](NullValue) -> Date { RaisePlatform(ErrNum::InvalidUseOfNull); },
                          [&](int16_t x) { return fromSerial(x); },
                          [&](int32_t x) { return fromSerial(x); },
                          [&](int64_t x) { return fromSerial(static_cast<double>(x)); },
                          [&](double x) { return fromSerial(x); },
                          [](Date d) { return d; },
                          [](const std::string& s) {
                              double serial = 0.0;
                              if (!ParseDate(s, CurrentLocale(), serial)) RaisePlatform(ErrNum::TypeMismatch);
                              return Date(serial);
                          },
                          [](bool b) { return Date(b ? -1.0 : 0.0); },
                          [](const ObjectRef&) -> Date { RaisePlatform(ErrNum::TypeMismatch); },
                          [](const ByteArray&) -> Date { RaisePlatform(ErrNum::TypeMismatch); },
                      },
                      v.Raw());
}

bool CBool(const Variant& v) {
    return std::visit(Overloaded{
                          [](EmptyValue) { return false; },
                          [](NullValue) -> bool { RaisePlatform(ErrNum::InvalidUseOfNull); },
                          [](int16_t x) { return x != 0; },
                          [](int32_t x) { return x != 0; },
                          [](int64_t x) { return x != 0; },
                          [](double x) { return x != 0.0; },
                          [](Date d) { return d.Serial() != 0.0; },
                          [](const std::string& s) {
                              // "True"/"False" in English or Spanish, any case, or a number.
                              const std::string_view t = Trim(s);
                              if (EqualsIgnoringCase(t, "true") || EqualsIgnoringCase(t, "verdadero")) return true;
                              if (EqualsIgnoringCase(t, "false") || EqualsIgnoringCase(t, "falso")) return false;
                              double x = 0.0;
                              NumStatus st = ParseNumber(s, CurrentLocale().locale, &x);
                              if (st != NumStatus::Ok) RaiseForNumber(st);
                              return x != 0.0;
                          },
                          [](bool b) { return b; },
                          [](const ObjectRef&) -> bool { RaisePlatform(ErrNum::TypeMismatch); },
                          [](const ByteArray&) -> bool { RaisePlatform(ErrNum::TypeMismatch); },
                      },
                      v.Raw());
}

bool IsNumeric(const Variant& v) {
    if (const std::string* s = v.GetIf<std::string>())
        return ParseNumber(*s, CurrentLocale().locale, nullptr) == NumStatus::Ok;
    // Empty, numbers and Booleans are numeric; Null, dates, objects and byte arrays are not.
    return v.IsEmpty() || v.IsNumber() || v.IsBoolean();
}

bool IsDate(const Variant& v) {
    if (v.IsDate()) return true;
    if (const std::string* s = v.GetIf<std::string>()) {
        double serial = 0.0;
        return ParseDate(*s, CurrentLocale(), serial);
    }
    return false;
}

std::string_view Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && s[b] == ' ') ++b;
    while (e > b && s[e - 1] == ' ') --e;
    return s.substr(b, e - b);
}

namespace detail {

bool CollectionIndexIsKey(const Variant& index) { return index.IsString(); }

// A number is a position (a Double rounded half to even); a position that is
// no int32 is simply out of range (9). Null raises 94; Empty, Boolean, Date,
// objects and byte arrays raise 13.
int32_t CollectionPosition(const Variant& index) {
    if (const int16_t* p = index.GetIf<int16_t>()) return *p;
    if (const int32_t* p = index.GetIf<int32_t>()) return *p;
    if (const int64_t* p = index.GetIf<int64_t>())
        return (*p < 0 || *p > std::numeric_limits<int32_t>::max()) ? 0 : static_cast<int32_t>(*p);
    if (const double* p = index.GetIf<double>()) {
        const double r = RoundHalfEven(*p);
        return (r >= 1.0 && r <= 2147483647.0) ? static_cast<int32_t>(r) : 0;
    }
    if (index.IsNull()) RaisePlatform(ErrNum::InvalidUseOfNull);
    RaisePlatform(ErrNum::TypeMismatch);
}

}  // namespace detail

namespace {
LateBoundList& LateBound(const ObjectRef& list) {
    if (!list) RaisePlatform(ErrNum::ObjectNotSet);
    auto* l = dynamic_cast<LateBoundList*>(list.get());
    if (!l) RaisePlatform(ErrNum::MemberNotFound, list->TypeName());
    return *l;
}
}  // namespace

int32_t CountOf(const ObjectRef& list) { return LateBound(list).LateCount(); }

Variant ItemOf(const ObjectRef& list, int32_t position) { return LateBound(list).LateItem(position); }

}  // namespace OVT_ZARO
