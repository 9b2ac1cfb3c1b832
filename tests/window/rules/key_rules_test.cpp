#include "window/rules/key_rules.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(KeyRules, AKeyInUseByAnyRowCannotBePickedAgain) {
    BindingTable bindlist;
    RunState run;
    fake::RecordingLog log;
    KeyRules rules{bindlist, run, log};
    fillBindings(bindlist);
    bindlist.append({"Alias: wave", "a1", "T", "KT", BindingKind::Alias});
    bindlist.append({"Of a strange document", "a2", "?", "nosuchkey", BindingKind::Alias});
    const auto press = [&](const char* name) {
        KeyQuestion asked;
        run.ConfigChanged = false;
        rules.askKey = [&](const KeyQuestion& question) {
            asked = question;
            return name ? &keyButton(name) : nullptr;
        };
        rules.bindlist_DblClick();
        EXPECT_TRUE(run.ConfigChanged);
        return asked;
    };
    const KeyQuestion first = press("pagedown");
    EXPECT_EQ(first.caption, "Pick a key for \"Move Forward\"");
    EXPECT_EQ(first.inUse, (std::map<std::string_view, std::string>{{"kt", "Alias: wave"}}));
    EXPECT_EQ(bindlist.at(1).label + bindlist.at(1).tag, "PageDownpagedown");
    EXPECT_EQ(log.lines, (std::vector<std::string>{"choosing key for Move Forward", "keyboard dialog opened",
                                                   "user chose key pagedown"}));
    EXPECT_EQ(press(nullptr).inUse.at("pagedown"), "Move Forward") << "the row's own key too";
    EXPECT_EQ(log.lines.back(), "user chose key ");
    EXPECT_EQ(bindlist.at(1).tag, "pagedown");
    press("nothing");
    EXPECT_EQ(bindlist.at(1).label + bindlist.at(1).tag, "UnboundNOTHING");
    EXPECT_EQ(press("kw").inUse.size(), 1u);
    rules.ResetKeyBindings();
    EXPECT_EQ(log.lines.back(), "unbound 42 commands OK") << "one more than there are";
    EXPECT_TRUE(rules.keysInUse().empty());
    EXPECT_EQ(bindlist.at(40).label + bindlist.at(40).tag, "UnboundNOTHING");
}

}  // namespace
}  // namespace gatehouse
