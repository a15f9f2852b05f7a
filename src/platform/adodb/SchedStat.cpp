#include "platform/adodb/SchedStat.h"

#include <unistd.h>

#include <charconv>
#include <chrono>
#include <system_error>

namespace OVT_ZARO::ADODB::detail {

namespace {
// A number at the start of text, followed by a space; -1 when there is none.
int64_t Leading(std::string_view text, size_t* used) {
    int64_t n = -1;
    const char* end = text.data() + text.size();
    const auto [next, ec] = std::from_chars(text.data(), end, n);
    if (ec != std::errc() || next == end || *next != ' ' || n < 0) return -1;
    *used = static_cast<size_t>(next - text.data()) + 1;
    return n;
}
}  // namespace

std::optional<SchedStat> ParseSchedStat(std::string_view text) {
    size_t used = 0;
    SchedStat s;
    s.runNs = Leading(text, &used);
    if (s.runNs < 0) return std::nullopt;
    text.remove_prefix(used);
    s.queuedNs = Leading(text, &used);
    if (s.queuedNs < 0) return std::nullopt;
    return s;
}

std::optional<SchedStat> ReadSchedStat(int fd) {
    if (fd < 0) return std::nullopt;
    char text[96];
    const ssize_t n = pread(fd, text, sizeof text, 0);
    if (n <= 0) return std::nullopt;
    return ParseSchedStat(std::string_view(text, static_cast<size_t>(n)));
}

int64_t SteadyNowNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}  // namespace OVT_ZARO::ADODB::detail
