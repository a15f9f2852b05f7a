// Screen services of the host: the mouse pointer, yielding to the screen and
// the system beep. Headless by default (the pointer is remembered, DoEvents
// and Beep do nothing but count); a host replaces them with SetScreen.
//
// Ownership: shared. Screen() hands out the services in force; a holder
// keeps them alive, also when a host sets others meanwhile.
// Thread: Screen() and SetScreen may be called from any thread; the services
// themselves belong to the user-interface thread (their counts are not
// atomic). They raise nothing.
#pragma once

#include <memory>

namespace OVT_ZARO {

class ScreenServices {
public:
    virtual ~ScreenServices() = default;
    virtual int GetMousePointer() { return mousePointer_; }
    virtual void SetMousePointer(int shape) { mousePointer_ = shape; ++pointerChanges_; }
    virtual void DoEvents() { ++doEventsCalls_; }
    virtual void Beep() { ++beeps_; }

    // What the headless screen has seen, for tests.
    int PointerChanges() const { return pointerChanges_; }
    int DoEventsCalls() const { return doEventsCalls_; }
    int Beeps() const { return beeps_; }

private:
    int mousePointer_ = 0;
    int pointerChanges_ = 0;
    int doEventsCalls_ = 0;
    int beeps_ = 0;
};

// The current screen services (the headless default until a host sets one).
std::shared_ptr<ScreenServices> Screen();
// Replaces the screen services; nullptr restores the headless default.
void SetScreen(std::shared_ptr<ScreenServices> screen);

// The shapes the library uses.
inline constexpr int vbDefault = 0;
inline constexpr int vbHourglass = 11;

}  // namespace OVT_ZARO
