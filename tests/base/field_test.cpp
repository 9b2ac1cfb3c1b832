#include "base/field.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(Field, ChangesFireOnlyWhenTheValueReallyChanges) {
    FieldGroup group{"g"};
    TextField text{group, {.name = "t"}, "5"};
    SliderField slider{group, {.name = "s"}, Range{1, 30, 1, 5}, 20};
    int changes = 0;
    for (Field* field : group.fields) field->changed.connect([&] { ++changes; });
    text.setText("5");
    slider.setPosition(20);
    EXPECT_EQ(changes, 0);
    slider.setPosition(99);
    EXPECT_EQ(slider.position(), 30);
    slider.setPosition(31);
    EXPECT_EQ(changes, 1);
}

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
