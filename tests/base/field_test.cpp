#include "base/field.h"

#include "base/runtime_failure.h"

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
    text.setText("");
    EXPECT_EQ(changes, 2);
}

TEST(Field, ReplacingTheChoicesIsSilentAndSelectsNothing) {
    FieldGroup group{"g"};
    ListField list{group, {.name = "l"}, {"a", "b"}, 1};
    int changes = 0;
    list.changed.connect([&] { ++changes; });
    list.setChoices({{"x", 3}, {"y", 4}});
    EXPECT_EQ(list.index(), -1);
    EXPECT_EQ(list.data(), -1);
    EXPECT_EQ(changes, 0);
    list.setIndex(1);
    EXPECT_EQ(list.data(), 4);
    EXPECT_EQ(changes, 1);
    EXPECT_THROW(list.setIndex(2), RuntimeFailure);
    EXPECT_THROW(list.setIndex(-2), RuntimeFailure);
}

TEST(Field, DesignValuesComeBackWithEnabledAndVisible) {
    FieldGroup group{"g"};
    CheckField check{group, {.name = "c"}, 1};
    check.setValueText("0");
    check.enabled.set(false);
    check.visible.set(false);
    check.restoreDesign();
    EXPECT_EQ(check.value(), 1);
    EXPECT_TRUE(check.enabled.get());
    EXPECT_TRUE(check.visible.get());
    EXPECT_THROW(check.setValueText("on"), RuntimeFailure);
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
