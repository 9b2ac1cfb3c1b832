#include "base/field.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(Signal, ListenersMayComeAndGoWhileItFires) {
    Signal<> signal;
    int calls = 0;
    int late = 0;
    int id = 0;
    id = signal.connect([&] {
        ++calls;
        signal.disconnect(id);
        signal.connect([&] { ++late; });
    });
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

}  // namespace
}  // namespace gatehouse
