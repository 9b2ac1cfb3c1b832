#pragma once

#include "base/signal.h"

#include <utility>

namespace gatehouse {

/// One value that tells when it really changes, whoever changed it.
template <class T>
class Observable {
public:
    Observable() = default;
    explicit Observable(T value) : value_(std::move(value)) {}

    const T& get() const { return value_; }
    void set(T value) {
        if (value == value_) return;
        value_ = std::move(value);
        changed.emit();
    }

    Signal<> changed;

private:
    T value_{};
};

}  // namespace gatehouse
