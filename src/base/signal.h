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

    /// Adds a listener and returns the number by which it can be taken off again.
    int connect(Slot slot) {
        slots_.push_back({++lastId_, std::make_shared<Slot>(std::move(slot))});
        return lastId_;
    }

    void disconnect(int id) {
        std::erase_if(slots_, [id](const Entry& entry) { return entry.id == id; });
    }

    void emit(Args... args) const {
        const auto now = slots_;
        for (const auto& entry : now) (*entry.slot)(args...);
    }

private:
    struct Entry {
        int id;
        std::shared_ptr<Slot> slot;
    };
    std::vector<Entry> slots_;
    int lastId_ = 0;
};

/// Takes a listener off its signal when it goes out of scope.
class Connection {
public:
    Connection() = default;
    template <class... Args>
    Connection(Signal<Args...>& signal, std::function<void(Args...)> slot) {
        const int id = signal.connect(std::move(slot));
        off_ = [&signal, id] { signal.disconnect(id); };
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
