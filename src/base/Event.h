#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarvex {

/// Keeps one handler on one event; the handler leaves when the subscription dies or is reset.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<bool> active) : active_(std::move(active)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept
    {
        Reset();
        active_ = std::move(other.active_);
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { Reset(); }

    void Reset() noexcept
    {
        if (active_)
            *active_ = false;
        active_.reset();
    }

private:
    std::shared_ptr<bool> active_;
};

/// A synchronous event that only its owner raises: handlers run in order of subscription before Raise returns.
/// A handler may subscribe, unsubscribe or destroy the event while it is raised; one subscribed meanwhile is first
/// called by the next raise. An error in a handler reaches the raiser.
template <class Owner, class... Args> class Event {
public:
    using Handler = std::function<void(Args...)>;

    [[nodiscard]] Subscription Subscribe(Handler handler)
    {
        if (list_->raising == 0)
            list_->Sweep();
        auto active = std::make_shared<bool>(true);
        list_->entries.push_back(std::make_shared<Entry>(Entry{active, std::move(handler)}));
        return Subscription(std::move(active));
    }

private:
    friend Owner;

    struct Entry {
        std::shared_ptr<bool> active;
        Handler handler;
    };

    struct List {
        std::vector<std::shared_ptr<Entry>> entries;
        int raising = 0;

        void Sweep()
        {
            std::erase_if(entries, [](const auto& entry) { return !*entry->active; });
        }
    };

    struct Raising {
        explicit Raising(List& raised) : list(raised) { ++list.raising; }
        ~Raising()
        {
            if (--list.raising == 0)
                list.Sweep();
        }
        List& list;
    };

    void Raise(Args... args)
    {
        const std::shared_ptr<List> list = list_; // a handler may destroy this event
        const Raising raising(*list);
        const std::size_t count = list->entries.size();
        for (std::size_t i = 0; i < count; ++i) {
            const std::shared_ptr<Entry> entry = list->entries[i];
            if (*entry->active)
                entry->handler(args...);
        }
    }

    std::shared_ptr<List> list_ = std::make_shared<List>();
};

}
