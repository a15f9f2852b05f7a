// The library's own way into the members of the database objects that their
// users do not see: making a recordset's fields, reading a cell straight into
// a typed member, a connection's session.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ZARODatos/platform/ADODB.h"

namespace OVT_ZARO::ADODB::detail {

struct Access {
    using Read = Field::Read;

    static Field MakeField(std::string name, int type, ValueKind kind, int32_t definedSize, int32_t index,
                           const RowState* row) {
        return Field(std::move(name), type, kind, definedSize, index, row);
    }
    static Read ReadLong(const Field& f, int32_t& out) { return f.ReadLong(out); }
    static Read ReadDouble(const Field& f, double& out) { return f.ReadDouble(out); }
    static Read ReadDate(const Field& f, Date& out) { return f.ReadDate(out); }
    static Read ReadText(const Field& f, std::string& out) { return f.ReadText(out); }
    static bool HasValue(const Field& f) { return f.HasValue(); }

    static void Reset(Fields& fields, std::vector<Field> list) { fields.Reset(std::move(list)); }
    static const std::vector<int32_t>& PositionsFor(Fields& fields, const void* reader, size_t count,
                                                    std::string_view (*name)(const void* reader, size_t i)) {
        return fields.PositionsFor(reader, count, name);
    }

    static const std::shared_ptr<Session>& SessionOf(const Connection& c) { return c.session_; }
};

}  // namespace OVT_ZARO::ADODB::detail
