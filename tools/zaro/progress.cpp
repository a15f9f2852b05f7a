#include "progress.h"

#include <unistd.h>

#include <cstdio>

#include "process.h"

namespace zaro {

namespace {
constexpr size_t kWidth = 30;
}

Progress::Progress(std::string what, size_t total)
    : what_(std::move(what)), total_(total), shown_(total > kProgressThreshold && isatty(MessageFd()) == 1) {}

Progress::~Progress() { Finish(); }

void Progress::Update(size_t done) {
    if (!shown_) return;
    const auto now = std::chrono::steady_clock::now();
    if (drawn_ && done < total_ && now - last_ < std::chrono::milliseconds(100)) return;
    last_ = now;
    Draw(done);
}

void Progress::Draw(size_t done) {
    const size_t filled = total_ ? done * kWidth / total_ : kWidth;
    std::string bar(filled, '#');
    bar.append(kWidth - filled, '.');
    dprintf(MessageFd(), "\r%s [%s] %3zu%% %zu/%zu", what_.c_str(), bar.c_str(), total_ ? done * 100 / total_ : 100,
            done, total_);
    drawn_ = true;
}

void Progress::Finish() {
    if (!drawn_) return;
    // Clear the line, so that what follows starts clean.
    dprintf(MessageFd(), "\r\033[K");
    drawn_ = false;
}

}  // namespace zaro
