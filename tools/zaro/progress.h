// A progress bar on standard error for the long imports and exports.
//
// It shows only for more than kProgressThreshold rows and only when standard
// error is a terminal: a piped or redirected run gets none of it.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace zaro {

// "More than a few thousand rows".
inline constexpr size_t kProgressThreshold = 5000;

class Progress {
public:
    Progress(std::string what, size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // done rows of total; redraws at most ten times a second.
    void Update(size_t done);
    // Clears the bar (also done by the destructor).
    void Finish();
    bool Shown() const { return shown_; }

private:
    void Draw(size_t done);
    std::string what_;
    size_t total_;
    bool shown_;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point last_{};
};

}  // namespace zaro
