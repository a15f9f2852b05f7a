#include "ZARODatos/platform/Screen.h"

#include <mutex>
#include <utility>

namespace OVT_ZARO {

namespace {
struct Current {
    std::mutex m;
    std::shared_ptr<ScreenServices> screen = std::make_shared<ScreenServices>();
};
Current& State() {
    static Current c;
    return c;
}
}  // namespace

std::shared_ptr<ScreenServices> Screen() {
    Current& c = State();
    std::lock_guard<std::mutex> lock(c.m);
    return c.screen;
}

void SetScreen(std::shared_ptr<ScreenServices> screen) {
    auto next = screen ? std::move(screen) : std::make_shared<ScreenServices>();
    Current& c = State();
    std::shared_ptr<ScreenServices> previous;  // released outside the lock
    {
        std::lock_guard<std::mutex> lock(c.m);
        previous = std::exchange(c.screen, std::move(next));
    }
}

}  // namespace OVT_ZARO
