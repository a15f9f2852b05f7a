#include "ZARODatos/platform/Screen.h"

namespace OVT_ZARO {

namespace {
std::shared_ptr<ScreenServices>& CurrentScreen() {
    static std::shared_ptr<ScreenServices> screen = std::make_shared<ScreenServices>();
    return screen;
}
}  // namespace

ScreenServices& Screen() { return *CurrentScreen(); }

void SetScreen(std::shared_ptr<ScreenServices> screen) {
    CurrentScreen() = screen ? std::move(screen) : std::make_shared<ScreenServices>();
}

}  // namespace OVT_ZARO
