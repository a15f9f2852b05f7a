// SchedStat (internal): a thread's scheduler figures, from its /proc
// schedstat file ("<ns on a processor> <ns waiting for one> <time slices>").
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace OVT_ZARO::ADODB::detail {

struct SchedStat {
    int64_t runNs = 0;     // time on a processor so far
    int64_t queuedNs = 0;  // time waiting in the run queue so far
};

// The figures of a schedstat text; none when the text does not give them.
std::optional<SchedStat> ParseSchedStat(std::string_view text);
// The figures of an open schedstat file, read from its start.
std::optional<SchedStat> ReadSchedStat(int fd);

// The steady clock, in nanoseconds.
int64_t SteadyNowNs();

}  // namespace OVT_ZARO::ADODB::detail
