// The text readers on a string_view, for callers that read many cells.
#include "ZARODatos/platform/Conversions.h"
#include "platform/ConversionsDetail.h"

namespace OVT_ZARO {

bool IsNumericText(std::string_view text) {
    return convdetail::ParseNumber(text, convdetail::CurrentLocale().locale, nullptr) == convdetail::NumStatus::Ok;
}

namespace {
// The common "dd/mm/yyyy" of a day-first locale, read without the general
// reader; anything else (or an impossible day) goes to the general reader.
bool FechaCorta(std::string_view t, Date& out) {
    if (t.size() != 10 || convdetail::CurrentLocale().order != convdetail::DateOrder::DMY) return false;
    if (!(t[2] == '/' || t[2] == '-') || t[5] != t[2]) return false;
    for (size_t i : {0, 1, 3, 4, 6, 7, 8, 9})
        if (!convdetail::IsDigit(t[i])) return false;
    auto num = [&](size_t i, size_t n) {
        int v = 0;
        for (size_t k = i; k < i + n; ++k) v = v * 10 + (t[k] - '0');
        return v;
    };
    const int d = num(0, 2), m = num(3, 2), y = num(6, 4);
    if (y < 1000 || !Date::IsValidDate(y, m, d)) return false;
    out = Date::FromParts(y, m, d);
    return true;
}
}  // namespace

bool TryReadDate(std::string_view text, Date& out) {
    if (FechaCorta(text, out)) return true;
    double serial = 0.0;
    if (!convdetail::ParseDate(text, convdetail::CurrentLocale(), serial)) return false;
    out = Date(serial);
    return true;
}

}  // namespace OVT_ZARO
