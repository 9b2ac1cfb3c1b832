#pragma once

#include "base/observable.h"
#include "base/signal.h"

#include <QObject>

#include <functional>
#include <utility>

namespace gatehouse {

/// Listens to a signal as long as `owner` lives. The signal must outlive the owner.
template <class... Args, class Slot>
void listen(QObject* owner, Signal<Args...>& signal, Slot slot) {
    struct Listener : QObject {
        Listener(QObject* parent, Connection made) : QObject(parent), connection(std::move(made)) {}
        Connection connection;
    };
    new Listener(owner, Connection(signal, std::function<void(Args...)>(std::move(slot))));
}

/// Hands a value to `show` now and whenever it changes, as long as `owner` lives.
template <class T, class Show>
void follow(QObject* owner, Observable<T>& value, Show show) {
    show(value.get());
    listen(owner, value.changed, [&value, show = std::move(show)] { show(value.get()); });
}

}  // namespace gatehouse
