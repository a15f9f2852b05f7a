#include "ZARODatos/platform/Strings.h"

#include <algorithm>

#include "ZARODatos/platform/Conversions.h"

namespace OVT_ZARO {

namespace {
// The byte length of the UTF-8 sequence at s[i], 1 for an invalid byte.
size_t SequenceLength(std::string_view s, size_t i) {
    const auto lead = static_cast<unsigned char>(s[i]);
    size_t n = lead < 0x80 ? 1 : (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 1;
    if (i + n > s.size()) return 1;
    for (size_t k = 1; k < n; ++k)
        if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return 1;
    return n;
}

// The byte offset of character position pos (from 0), or the size.
size_t ByteOffset(std::string_view s, int32_t pos) {
    size_t i = 0;
    for (int32_t k = 0; k < pos && i < s.size(); ++k) i += SequenceLength(s, i);
    return i;
}
}  // namespace

std::u32string CodePoints(std::string_view s) {
    std::u32string out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        const size_t n = SequenceLength(s, i);
        const auto lead = static_cast<unsigned char>(s[i]);
        char32_t c = n == 1 ? lead : n == 2 ? (lead & 0x1F) : n == 3 ? (lead & 0x0F) : (lead & 0x07);
        for (size_t k = 1; k < n; ++k) c = (c << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
        out.push_back(c);
        i += n;
    }
    return out;
}

std::string Utf8Of(char32_t c) {
    std::string out;
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | ((c >> 18) & 0x07));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
    return out;
}

std::string Chr(int32_t code) {
    // A 16-bit key value below 0 stands for the code above 0x7FFF it holds.
    if (code < 0) code &= 0xFFFF;
    return Utf8Of(static_cast<char32_t>(code));
}

int32_t Len(std::string_view s) {
    int32_t n = 0;
    for (size_t i = 0; i < s.size(); i += SequenceLength(s, i)) ++n;
    return n;
}

std::string Mid(std::string_view s, int32_t start, int32_t length) {
    if (start < 1) start = 1;
    const size_t from = ByteOffset(s, start - 1);
    if (length < 0) return std::string(s.substr(from));
    const size_t to = from + ByteOffset(s.substr(from), length);
    return std::string(s.substr(from, to - from));
}

int32_t InStr(std::string_view haystack, std::string_view needle) {
    if (needle.empty()) return 1;
    const int32_t n = Len(needle);
    int32_t pos = 1;
    for (size_t i = 0; i < haystack.size(); i += SequenceLength(haystack, i), ++pos) {
        const std::string_view rest = haystack.substr(i);
        const size_t bytes = ByteOffset(rest, n);
        if (bytes < needle.size() / 4) continue;
        if (TextEquals(rest.substr(0, bytes), needle)) return pos;
    }
    return 0;
}

std::string Replace(std::string_view s, std::string_view find, std::string_view with) {
    if (find.empty()) return std::string(s);
    std::string out;
    out.reserve(s.size());
    size_t i = 0;
    for (size_t at; (at = s.find(find, i)) != std::string_view::npos; i = at + find.size()) {
        out.append(s.substr(i, at - i));
        out.append(with);
    }
    out.append(s.substr(i));
    return out;
}

}  // namespace OVT_ZARO
