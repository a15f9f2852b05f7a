// Event<Args...>: the handler list of one event of an object.
//
// Handlers run synchronously, in order of attachment, on the raising
// thread, and receive the event's arguments by reference: what a handler
// writes reaches the raiser and the handlers after it. A handler may attach
// or detach handlers while it runs; the raise in progress goes on with the
// list as it was when it began. An event with no handler costs a test.
// Thread: the thread of the object that owns the event.
#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace OVT_ZARO {

template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args&...)>;

    // Attaches a handler; the number returned detaches it.
    int Attach(Handler handler) {
        auto next = std::make_shared<List>(handlers_ ? *handlers_ : List{});
        next->emplace_back(++lastId_, std::move(handler));
        handlers_ = std::move(next);
        return lastId_;
    }
    void Detach(int id) {
        if (!handlers_) return;
        auto next = std::make_shared<List>(*handlers_);
        std::erase_if(*next, [id](const auto& h) { return h.first == id; });
        handlers_ = next->empty() ? nullptr : std::move(next);
    }
    void Clear() { handlers_.reset(); }
    size_t HandlerCount() const { return handlers_ ? handlers_->size() : 0; }

    void Raise(Args&... args) const {
        if (!handlers_) return;
        // The list as it is now: attaching or detaching replaces it, never changes it.
        std::shared_ptr<const List> handlers = handlers_;
        for (const auto& h : *handlers) h.second(args...);
    }

private:
    using List = std::vector<std::pair<int, Handler>>;
    std::shared_ptr<const List> handlers_;
    int lastId_ = 0;
};

// A handler attached for as long as this object lives. It holds the event's
// owner weakly: when the owner has gone first, there is nothing to detach.
class Subscription {
public:
    Subscription() = default;
    template <class Owner, class Base, class... Args>
    Subscription(const std::shared_ptr<Owner>& owner, Event<Args...> Base::*event,
                 typename Event<Args...>::Handler handler) {
        static_assert(std::is_base_of_v<Base, Owner>);
        Event<Args...>& ev = static_cast<Base&>(*owner).*event;
        const int id = ev.Attach(std::move(handler));
        std::weak_ptr<Base> weak = owner;
        detach_ = [weak, event, id] {
            if (auto o = weak.lock()) ((*o).*event).Detach(id);
        };
    }
    Subscription(Subscription&& other) noexcept : detach_(std::move(other.detach_)) { other.detach_ = nullptr; }
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            Reset();
            detach_ = std::move(other.detach_);
            other.detach_ = nullptr;
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { Reset(); }

    // Detaches now.
    void Reset() {
        if (detach_) {
            auto d = std::move(detach_);
            detach_ = nullptr;
            d();
        }
    }

private:
    std::function<void()> detach_;
};

}  // namespace OVT_ZARO
