// Writes down every event of the controls it watches, in order, as
// "Name.Event" or "Name.Event(arguments)", for tests that assert sequences.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Controls.h"

namespace zaro_test {

class EventRecorder {
public:
    // Watches every event of c; mouse moves are written with their button only.
    void Watch(const OVT_ZARO::ControlRef& c);
    const std::vector<std::string>& Events() const { return events_; }
    // The events since the last Take, and forgets them.
    std::vector<std::string> Take();
    void Note(const std::string& s) { events_.push_back(s); }

private:
    std::vector<std::string> events_;
    std::vector<OVT_ZARO::Subscription> subscriptions_;
};

}  // namespace zaro_test
