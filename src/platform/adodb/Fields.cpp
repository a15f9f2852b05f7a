#include <array>
#include <charconv>
#include <cstring>
#include <iterator>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "platform/DateMath.h"
#include "platform/adodb/RecordsetImpl.h"

namespace OVT_ZARO::ADODB {

std::string AdoErrorText(int32_t number) {
    switch (number) {
        case AdoErr::InvalidArgument:
            return "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another.";
        case AdoErr::NoCurrentRecord:
            return "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires "
                   "a current record.";
        case AdoErr::NotAllowed: return "Operation is not allowed in this context.";
        case AdoErr::ItemNotFound:
            return "Item cannot be found in the collection corresponding to the requested name or ordinal.";
        case AdoErr::ObjectClosed: return "Operation is not allowed when the object is closed.";
        case AdoErr::ObjectOpen: return "Operation is not allowed when the object is open.";
        case AdoErr::ConnectionUnusable:
            return "The connection cannot be used to perform this operation. It is either closed or invalid in this "
                   "context.";
        case AdoErr::UsedByTwoThreads:
            return "The connection is in a call of another thread; a connection belongs to one thread at a time.";
        default: return {};
    }
}

namespace detail {

// ------------------------------------------------------------ the type table

namespace {

enum When : uint8_t {
    Always,
    Width1,    // declared width 1: TINYINT(1), BOOL, BIT(1)
    Unsigned,  // UNSIGNED
    Binary,    // binary character set: BINARY, VARBINARY, BLOB
};

struct TypeRule {
    enum_field_types mysql;
    When when;
    int ado;
    ValueKind kind;
};

// MariaDB column type -> ADO type code and value. The first rule that
// matches wins. Integers get the smallest signed code that holds their range.
// Text columns are reported as narrow text (129, 200, 201) whatever their
// character set; the wide codes (130, 202, 203) are not given.
constexpr TypeRule kTypeTable[] = {
    {MYSQL_TYPE_NULL, Always, adEmpty, ValueKind::Null},
    {MYSQL_TYPE_TINY, Width1, adBoolean, ValueKind::Boolean},          // TINYINT(1), BOOL
    {MYSQL_TYPE_TINY, Unsigned, adSmallInt, ValueKind::Long},          // TINYINT UNSIGNED
    {MYSQL_TYPE_TINY, Always, adTinyInt, ValueKind::Long},             // TINYINT
    {MYSQL_TYPE_SHORT, Unsigned, adInteger, ValueKind::Long},          // SMALLINT UNSIGNED
    {MYSQL_TYPE_SHORT, Always, adSmallInt, ValueKind::Long},           // SMALLINT
    {MYSQL_TYPE_YEAR, Always, adSmallInt, ValueKind::Long},            // YEAR
    {MYSQL_TYPE_INT24, Always, adInteger, ValueKind::Long},            // MEDIUMINT
    {MYSQL_TYPE_LONG, Unsigned, adBigInt, ValueKind::LongLong},        // INT UNSIGNED
    {MYSQL_TYPE_LONG, Always, adInteger, ValueKind::Long},             // INT
    {MYSQL_TYPE_LONGLONG, Unsigned, adBigInt, ValueKind::UnsignedLongLong},  // BIGINT UNSIGNED
    {MYSQL_TYPE_LONGLONG, Always, adBigInt, ValueKind::LongLong},      // BIGINT, count(*)
    {MYSQL_TYPE_FLOAT, Always, adSingle, ValueKind::Double},           // FLOAT
    {MYSQL_TYPE_DOUBLE, Always, adDouble, ValueKind::Double},          // DOUBLE
    {MYSQL_TYPE_NEWDECIMAL, Always, adNumeric, ValueKind::Double},     // DECIMAL, sum()
    {MYSQL_TYPE_DECIMAL, Always, adNumeric, ValueKind::Double},        // old DECIMAL
    {MYSQL_TYPE_DATE, Always, adDBDate, ValueKind::Date},              // DATE
    {MYSQL_TYPE_NEWDATE, Always, adDBDate, ValueKind::Date},
    {MYSQL_TYPE_DATETIME, Always, adDBTimeStamp, ValueKind::DateTime},  // DATETIME
    {MYSQL_TYPE_DATETIME2, Always, adDBTimeStamp, ValueKind::DateTime},
    {MYSQL_TYPE_TIMESTAMP, Always, adDBTimeStamp, ValueKind::DateTime},  // TIMESTAMP
    {MYSQL_TYPE_TIMESTAMP2, Always, adDBTimeStamp, ValueKind::DateTime},
    {MYSQL_TYPE_TIME, Always, adDBTime, ValueKind::Time},              // TIME
    {MYSQL_TYPE_TIME2, Always, adDBTime, ValueKind::Time},
    {MYSQL_TYPE_BIT, Width1, adBoolean, ValueKind::Bit},               // BIT(1)
    {MYSQL_TYPE_BIT, Always, adBigInt, ValueKind::Bit},                // BIT(n)
    {MYSQL_TYPE_VARCHAR, Binary, adVarBinary, ValueKind::Bytes},
    {MYSQL_TYPE_VARCHAR, Always, adVarChar, ValueKind::String},
    {MYSQL_TYPE_VAR_STRING, Binary, adVarBinary, ValueKind::Bytes},    // VARBINARY
    {MYSQL_TYPE_VAR_STRING, Always, adVarChar, ValueKind::String},     // VARCHAR
    {MYSQL_TYPE_STRING, Binary, adBinary, ValueKind::Bytes},           // BINARY
    {MYSQL_TYPE_STRING, Always, adChar, ValueKind::String},            // CHAR, ENUM, SET
    {MYSQL_TYPE_ENUM, Always, adChar, ValueKind::String},
    {MYSQL_TYPE_SET, Always, adChar, ValueKind::String},
    {MYSQL_TYPE_TINY_BLOB, Binary, adLongVarBinary, ValueKind::Bytes},  // TINYBLOB ... LONGBLOB
    {MYSQL_TYPE_TINY_BLOB, Always, adLongVarChar, ValueKind::String},   // TINYTEXT ... LONGTEXT
    {MYSQL_TYPE_BLOB, Binary, adLongVarBinary, ValueKind::Bytes},
    {MYSQL_TYPE_BLOB, Always, adLongVarChar, ValueKind::String},
    {MYSQL_TYPE_MEDIUM_BLOB, Binary, adLongVarBinary, ValueKind::Bytes},
    {MYSQL_TYPE_MEDIUM_BLOB, Always, adLongVarChar, ValueKind::String},
    {MYSQL_TYPE_LONG_BLOB, Binary, adLongVarBinary, ValueKind::Bytes},
    {MYSQL_TYPE_LONG_BLOB, Always, adLongVarChar, ValueKind::String},
    {MYSQL_TYPE_GEOMETRY, Always, adLongVarBinary, ValueKind::Bytes},
};

constexpr unsigned kBinaryCharset = 63;

}  // namespace

ColumnType MapColumnType(const MYSQL_FIELD& f) {
    // The scan starts at the first rule of the column's type.
    static const auto first = [] {
        std::array<uint8_t, 256> at;
        at.fill(static_cast<uint8_t>(std::size(kTypeTable)));
        for (size_t i = std::size(kTypeTable); i-- > 0;) at[kTypeTable[i].mysql & 0xFF] = static_cast<uint8_t>(i);
        return at;
    }();
    for (size_t i = first[static_cast<unsigned>(f.type) & 0xFF]; i < std::size(kTypeTable); ++i) {
        const TypeRule& r = kTypeTable[i];
        if (r.mysql != f.type) continue;
        bool ok = true;
        switch (r.when) {
            case Always: break;
            case Width1: ok = f.length == 1; break;
            case Unsigned: ok = (f.flags & UNSIGNED_FLAG) != 0; break;
            case Binary: ok = f.charsetnr == kBinaryCharset && !(f.flags & (ENUM_FLAG | SET_FLAG)); break;
        }
        if (ok) return {r.ado, r.kind};
    }
    return {adVarChar, ValueKind::String};
}

// ------------------------------------------------------------ values

namespace {

inline bool Digits(const char* p, size_t n, int& out) {
    int v = 0;
    for (size_t i = 0; i < n; ++i) {
        const unsigned d = static_cast<unsigned char>(p[i]) - '0';
        if (d > 9) return false;
        v = v * 10 + static_cast<int>(d);
    }
    out = v;
    return true;
}

// Seconds and their fraction, from "SS[.ffffff]".
inline bool Seconds(const char* p, size_t n, double& out) {
    int s = 0;
    if (n < 2 || !Digits(p, 2, s)) return false;
    double frac = 0;
    if (n > 2) {
        if (p[2] != '.') return false;
        double scale = 0.1;
        for (size_t i = 3; i < n; ++i) {
            const unsigned d = static_cast<unsigned char>(p[i]) - '0';
            if (d > 9) return false;
            frac += d * scale;
            scale /= 10;
        }
    }
    out = s + frac;
    return true;
}

// "YYYY-MM-DD[ HH:MM:SS[.ffffff]]" to a Date; false for the zero date, a
// date with a zero month or day, or text that is no date.
bool DateOf(const char* p, size_t n, Date& out) {
    int y, mo, d;
    if (n < 10 || p[4] != '-' || p[7] != '-' || !Digits(p, 4, y) || !Digits(p + 5, 2, mo) || !Digits(p + 8, 2, d))
        return false;
    if (mo < 1 || mo > 12 || d < 1 || d > datemath::DaysInMonth(y, mo) || y < 1) return false;
    double secs = 0;
    if (n > 10) {
        int h, mi;
        if (n < 19 || p[10] != ' ' || p[13] != ':' || p[16] != ':' || !Digits(p + 11, 2, h) || !Digits(p + 14, 2, mi) ||
            !Seconds(p + 17, n - 17, secs))
            return false;
        secs += h * 3600.0 + mi * 60.0;
    }
    const int64_t day = datemath::SerialDayFromCivil(y, mo, d);
    out = Date(datemath::SerialFromDayAndTime(day, secs / 86400.0));
    return true;
}

// The same as a value: Null where DateOf gives false.
Variant DateValue(const char* p, size_t n) {
    Date d;
    return DateOf(p, n, d) ? Variant(d) : Variant::Null();
}

// "[-]H+:MM:SS[.ffffff]" to a Date that holds a time (hours over 24 count days).
Variant TimeValue(const char* p, size_t n) {
    bool neg = false;
    if (n && *p == '-') {
        neg = true;
        ++p;
        --n;
    }
    const char* colon = static_cast<const char*>(std::memchr(p, ':', n));
    if (!colon) return Variant::Null();
    const size_t hl = static_cast<size_t>(colon - p);
    int h, mi;
    double secs;
    if (hl == 0 || hl > 4 || !Digits(p, hl, h) || n < hl + 6 || colon[3] != ':' || !Digits(colon + 1, 2, mi) ||
        !Seconds(colon + 4, n - hl - 4, secs))
        return Variant::Null();
    const double serial = (h * 3600.0 + mi * 60.0 + secs) / 86400.0;
    return Variant(Date(neg ? -serial : serial));
}

template <class T>
inline bool Whole(const char* p, size_t n, T& out) {
    auto [end, ec] = std::from_chars(p, p + n, out);
    return ec == std::errc() && end == p + n;
}

[[noreturn]] void RaiseField(int32_t number) { throw Error(number, "ADODB.Field", AdoErrorText(number)); }

}  // namespace

}  // namespace detail

namespace detail {
namespace {
// The text of a field's cell in the current row (null for SQL NULL); raises
// as Value does without a current row.
inline const char* CellOf(const RowState& r, int32_t index, size_t& n) {
    if (!r.open) RaiseField(AdoErr::ObjectClosed);
    if (!r.hasRow) RaiseField(AdoErr::NoCurrentRecord);
    const char* p = r.cells[index];
    n = p ? r.lengths[index] : 0;
    return p;
}
}  // namespace
}  // namespace detail

Variant Field::Value() const {
    using detail::ValueKind;
    size_t n;
    const char* p = detail::CellOf(*row_, index_, n);
    if (!p) return Variant::Null();
    switch (kind_) {
        case ValueKind::Null: return Variant::Null();
        case ValueKind::Long: {
            int32_t v;
            if (detail::Whole(p, n, v)) return Variant(v);
            break;
        }
        case ValueKind::LongLong: {
            int64_t v;
            if (detail::Whole(p, n, v)) return Variant(v);
            break;
        }
        case ValueKind::UnsignedLongLong: {
            uint64_t v;
            if (detail::Whole(p, n, v))
                return v <= static_cast<uint64_t>(INT64_MAX) ? Variant(static_cast<int64_t>(v))
                                                             : Variant(static_cast<double>(v));
            break;
        }
        case ValueKind::Double: {
            double v;
            if (detail::Whole(p, n, v)) return Variant(v);
            break;
        }
        case ValueKind::Boolean: {
            int64_t v;
            if (detail::Whole(p, n, v)) return Variant(v != 0);
            break;
        }
        case ValueKind::Date:
        case ValueKind::DateTime: return detail::DateValue(p, n);
        case ValueKind::Time: return detail::TimeValue(p, n);
        case ValueKind::Bit: {
            uint64_t v = 0;
            for (size_t i = 0; i < n; ++i) v = (v << 8) | static_cast<unsigned char>(p[i]);
            if (type_ == adBoolean) return Variant(v != 0);
            return Variant(static_cast<int64_t>(v));
        }
        case ValueKind::Bytes: return Variant(ByteArray(p, p + n));
        case ValueKind::String: return Variant(std::string(p, n));
    }
    // Text the column's type does not explain reaches the caller as it is.
    return Variant(std::string(p, n));
}

// Each read gives what Value gives, of one type: Value's case of the kind,
// without the Variant.
Field::Read Field::ReadLong(int32_t& out) const {
    size_t n;
    const char* p = detail::CellOf(*row_, index_, n);
    if (!p || kind_ == detail::ValueKind::Null) return Read::Null;
    if (kind_ == detail::ValueKind::Long && detail::Whole(p, n, out)) return Read::Done;
    return Read::Other;
}

Field::Read Field::ReadDouble(double& out) const {
    size_t n;
    const char* p = detail::CellOf(*row_, index_, n);
    if (!p || kind_ == detail::ValueKind::Null) return Read::Null;
    if (kind_ == detail::ValueKind::Double && detail::Whole(p, n, out)) return Read::Done;
    if (kind_ == detail::ValueKind::Long) {
        int32_t v;
        if (detail::Whole(p, n, v)) {
            out = v;
            return Read::Done;
        }
    }
    return Read::Other;
}

Field::Read Field::ReadDate(Date& out) const {
    size_t n;
    const char* p = detail::CellOf(*row_, index_, n);
    if (!p || kind_ == detail::ValueKind::Null) return Read::Null;
    if (kind_ == detail::ValueKind::Date || kind_ == detail::ValueKind::DateTime)
        return detail::DateOf(p, n, out) ? Read::Done : Read::Null;
    return Read::Other;
}

Field::Read Field::ReadText(std::string& out) const {
    size_t n;
    const char* p = detail::CellOf(*row_, index_, n);
    if (!p || kind_ == detail::ValueKind::Null) return Read::Null;
    if (kind_ != detail::ValueKind::String) return Read::Other;
    out.assign(p, n);
    return Read::Done;
}

// ------------------------------------------------------------ Fields

namespace {

inline unsigned char FoldAscii(unsigned char c) { return (c >= 'A' && c <= 'Z') ? static_cast<unsigned char>(c + 32) : c; }

inline uint32_t HashFolded(std::string_view s) {
    uint32_t h = 2166136261u;
    for (unsigned char c : s) {
        h ^= FoldAscii(c);
        h *= 16777619u;
    }
    return h;
}

inline bool EqualsFolded(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (FoldAscii(static_cast<unsigned char>(a[i])) != FoldAscii(static_cast<unsigned char>(b[i]))) return false;
    return true;
}

inline bool HasNonAscii(std::string_view s) {
    for (unsigned char c : s)
        if (c >= 0x80) return true;
    return false;
}

[[noreturn]] void RaiseFields(int32_t number) { throw Error(number, "ADODB.Fields", AdoErrorText(number)); }

}  // namespace

void Fields::Reset(std::vector<Field> fields) {
    fields_ = std::move(fields);
    positionsReader_ = nullptr;
    positions_.clear();
    indexed_ = false;
    uint32_t size = 8;
    while (size < fields_.size() * 2) size <<= 1;
    slots_.assign(size, -1);
    mask_ = size - 1;
}

// The index by name is filled by the first look-up by name (its room is made
// when the columns are set, so that a look-up allocates nothing): a recordset
// read by position needs none.
void Fields::BuildIndex() const {
    indexed_ = true;
    for (int32_t i = 0; i < static_cast<int32_t>(fields_.size()); ++i) {
        const std::string& name = fields_[static_cast<size_t>(i)].Name();
        uint32_t s = HashFolded(name) & mask_;
        bool dup = false;
        while (slots_[s] >= 0) {
            if (EqualsFolded(fields_[static_cast<size_t>(slots_[s])].Name(), name)) {
                dup = true;  // the first column of a name is the one found
                break;
            }
            s = (s + 1) & mask_;
        }
        if (!dup) slots_[s] = i;
    }
}

int32_t Fields::IndexOf(std::string_view name) const {
    if (fields_.empty()) return -1;
    if (!indexed_) BuildIndex();
    uint32_t s = HashFolded(name) & mask_;
    while (slots_[s] >= 0) {
        if (EqualsFolded(fields_[static_cast<size_t>(slots_[s])].Name(), name)) return slots_[s];
        s = (s + 1) & mask_;
    }
    // Letters beyond ASCII are compared as the platform compares text.
    if (HasNonAscii(name)) {
        for (size_t i = 0; i < fields_.size(); ++i)
            if (TextEquals(fields_[i].Name(), name)) return static_cast<int32_t>(i);
    }
    return -1;
}

const std::vector<int32_t>& Fields::PositionsFor(const void* reader, size_t count,
                                                  std::string_view (*name)(const void* reader, size_t i)) {
    if (reader == positionsReader_ && positions_.size() == count) return positions_;
    positions_.clear();
    positionsReader_ = reader;
    // Most often the columns are the names themselves, in their order: then
    // name i is at column i, unless an earlier name is the same.
    bool inOrder = count <= fields_.size();
    for (size_t i = 0; inOrder && i < count; ++i) inOrder = EqualsFolded(fields_[i].Name(), name(reader, i));
    for (size_t i = 0; inOrder && i < count; ++i)
        for (size_t j = 0; inOrder && j < i; ++j) inOrder = !EqualsFolded(fields_[j].Name(), fields_[i].Name());
    for (size_t i = 0; i < count; ++i)
        positions_.push_back(inOrder ? static_cast<int32_t>(i) : IndexOf(name(reader, i)));
    return positions_;
}

Field& Fields::Item(int32_t index) {
    if (index < 0 || index >= Count()) RaiseFields(AdoErr::ItemNotFound);
    return fields_[static_cast<size_t>(index)];
}

Field& Fields::Item(std::string_view name) {
    const int32_t i = IndexOf(name);
    if (i < 0) RaiseFields(AdoErr::ItemNotFound);
    return fields_[static_cast<size_t>(i)];
}

Field& Fields::Item(const Variant& index) {
    if (const std::string* s = index.GetIf<std::string>()) return Item(std::string_view(*s));
    if (index.IsNumber()) {
        int32_t pos;
        try {
            pos = CLng(index);
        } catch (const Error&) {
            RaiseFields(AdoErr::ItemNotFound);
        }
        return Item(pos);
    }
    RaiseFields(AdoErr::ItemNotFound);
}

}  // namespace OVT_ZARO::ADODB
