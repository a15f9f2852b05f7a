#include "support/recorder.h"

namespace zaro_test {

using namespace OVT_ZARO;

void EventRecorder::Watch(const ControlRef& c) {
    const std::string n = c->GetName();
    auto plain = [this, n](const char* ev) { return [this, n, ev] { events_.push_back(n + "." + ev); }; };
    subscriptions_.emplace_back(c, &Control::Click, plain("Click"));
    subscriptions_.emplace_back(c, &Control::DblClick, plain("DblClick"));
    subscriptions_.emplace_back(c, &Control::EnterCell, plain("EnterCell"));
    subscriptions_.emplace_back(c, &Control::LeaveCell, plain("LeaveCell"));
    subscriptions_.emplace_back(c, &Control::GotFocus, plain("GotFocus"));
    subscriptions_.emplace_back(c, &Control::LostFocus, plain("LostFocus"));
    subscriptions_.emplace_back(c, &Control::KeyDown, [this, n](int16_t& k, int16_t& s) {
        events_.push_back(n + ".KeyDown(" + std::to_string(k) + "," + std::to_string(s) + ")");
    });
    subscriptions_.emplace_back(c, &Control::KeyUp, [this, n](int16_t& k, int16_t& s) {
        events_.push_back(n + ".KeyUp(" + std::to_string(k) + "," + std::to_string(s) + ")");
    });
    subscriptions_.emplace_back(c, &Control::KeyPress, [this, n](int16_t& k) {
        events_.push_back(n + ".KeyPress(" + std::to_string(k) + ")");
    });
    subscriptions_.emplace_back(c, &Control::MouseDown, [this, n](int16_t& b, int16_t&, float&, float&) {
        events_.push_back(n + ".MouseDown(" + std::to_string(b) + ")");
    });
    subscriptions_.emplace_back(c, &Control::MouseUp, [this, n](int16_t& b, int16_t&, float&, float&) {
        events_.push_back(n + ".MouseUp(" + std::to_string(b) + ")");
    });
    subscriptions_.emplace_back(c, &Control::DateClick, [this, n](Date& d) {
        events_.push_back(n + ".DateClick(" + std::to_string(static_cast<long>(d.Serial())) + ")");
    });
}

std::vector<std::string> EventRecorder::Take() {
    std::vector<std::string> out;
    out.swap(events_);
    return out;
}

}  // namespace zaro_test
