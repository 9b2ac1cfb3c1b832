#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace gatehouse {

/// A synchronous event with listeners. Listeners run in the order in which they were connected, inside `emit`; one
/// that is connected or disconnected while the event runs takes effect for the next event.
template <class... Args>
class Signal {
public:
    using Slot = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    /// Adds a listener for as long as the signal lives.
    void connect(Slot slot) { add(std::move(slot)); }

    void emit(Args... args) const {
        const auto now = *entries_;
        for (const auto& entry : now) (*entry.slot)(args...);
    }

private:
    friend class Connection;
    struct Entry {
        int id;
        std::shared_ptr<Slot> slot;
    };
    using Entries = std::vector<Entry>;

    int add(Slot slot) {
        entries_->push_back({++lastId_, std::make_shared<Slot>(std::move(slot))});
        return lastId_;
    }

    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
    int lastId_ = 0;
};

/// Takes a listener off its signal when it goes out of scope. Either of the two may go first.
class Connection {
public:
    Connection() = default;
    template <class... Args>
    Connection(Signal<Args...>& signal, std::function<void(Args...)> slot) {
        using Entries = typename Signal<Args...>::Entries;
        const int id = signal.add(std::move(slot));
        off_ = [entries = std::weak_ptr<Entries>(signal.entries_), id] {
            if (const auto left = entries.lock()) std::erase_if(*left, [id](const auto& entry) { return entry.id == id; });
        };
    }
    Connection(Connection&& other) noexcept : off_(std::exchange(other.off_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            release();
            off_ = std::exchange(other.off_, nullptr);
        }
        return *this;
    }
    ~Connection() { release(); }

    void release() {
        if (off_) std::exchange(off_, nullptr)();
    }

private:
    std::function<void()> off_;
};

/// The listeners of one owner: they are taken off when it goes.
class Connections {
public:
    /// `slot` takes what the signal tells, or nothing.
    template <class... Args, class Slot>
    void on(Signal<Args...>& signal, Slot slot) {
        all_.emplace_back(signal, std::function<void(Args...)>([slot = std::move(slot)](Args... args) mutable {
                              if constexpr (std::is_invocable_v<Slot&, Args...>)
                                  slot(args...);
                              else
                                  slot();
                          }));
    }

private:
    std::vector<Connection> all_;
};

}  // namespace gatehouse
