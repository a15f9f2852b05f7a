// Event<Args...>: the handler list of one event of an object.
//
// Handlers run synchronously, in order of attachment, on the raising
// thread, and receive the event's arguments by reference: what a handler
// writes reaches the raiser and the handlers after it.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace OVT_ZARO {

template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args&...)>;

    // Attaches a handler; the number returned detaches it.
    int Attach(Handler handler) {
        handlers_.emplace_back(++lastId_, std::move(handler));
        return lastId_;
    }
    void Detach(int id) {
        std::erase_if(handlers_, [id](const auto& h) { return h.first == id; });
    }
    void Clear() { handlers_.clear(); }
    size_t HandlerCount() const { return handlers_.size(); }

    void Raise(Args&... args) const {
        // A copy, so that a handler may attach or detach while it runs.
        auto handlers = handlers_;
        for (auto& h : handlers) h.second(args...);
    }

private:
    std::vector<std::pair<int, Handler>> handlers_;
    int lastId_ = 0;
};

}  // namespace OVT_ZARO
