#include "base/field.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(Signal, ListenersMayComeAndGoWhileItFires) {
    Signal<> signal;
    int calls = 0;
    int late = 0;
    Connection once;
    once = Connection(signal, std::function<void()>([&] {
        ++calls;
        once.release();
        signal.connect([&] { ++late; });
    }));
    signal.emit();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(late, 0);
    signal.emit();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(late, 1);
    {
        Connection scoped(signal, std::function<void()>([&] { ++calls; }));
        signal.emit();
    }
    signal.emit();
    EXPECT_EQ(calls, 2);
}

TEST(Signal, EitherSideOfAConnectionMayGoFirst) {
    auto gone = std::make_unique<Signal<>>();
    Signal<> stays;
    int calls = 0;
    Connection connection(*gone, std::function<void()>([&] { ++calls; }));
    gone.reset();
    connection = Connection(stays, std::function<void()>([&] { ++calls; }));
    stays.emit();
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace gatehouse
