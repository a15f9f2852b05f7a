#include "exchange.h"

namespace zaro {

std::string SaveResult::StopReport() const {
    if (stopSignal)
        return "line " + std::to_string(stoppedLine) + ": interrupted by " + SignalName(stopSignal) + "; " +
               std::to_string(Saved()) + (Saved() == 1 ? " row" : " rows") + " saved before it " +
               (Saved() == 1 ? "stays" : "stay") + " saved, it and the lines after it were not tried";
    if (!failure) return {};
    return "line " + std::to_string(failedLine) + ": " + DescribeError(*failure) + "; " +
           FateReport(fate, failedLine, Saved(), fateWhy);
}

std::string ExchangeText(std::string texto) {
    if (texto.rfind("\xEF\xBB\xBF", 0) == 0) texto.erase(0, 3);
    if (texto.find('\n') == std::string::npos) return texto;
    std::string out;
    out.reserve(texto.size() + texto.size() / 32);
    for (size_t i = 0; i < texto.size(); ++i) {
        if (texto[i] == '\n' && (i == 0 || texto[i - 1] != '\r')) out += '\r';
        out += texto[i];
    }
    return out;
}

std::vector<bool> EmptyPieces(const std::string& texto) {
    std::vector<bool> empty;
    if (texto.empty()) return empty;
    size_t start = 0;
    for (;;) {
        const size_t end = texto.find("\r\n", start);
        if (end == std::string::npos) {
            empty.push_back(start == texto.size());
            return empty;
        }
        empty.push_back(end == start);
        start = end + 2;
    }
}

}  // namespace zaro
