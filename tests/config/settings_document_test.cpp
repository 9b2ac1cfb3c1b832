#include "config/settings_document.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace gatehouse {
namespace {

template <class Visit>
void forEachField(SettingsDocument& doc, Visit&& visit) {
    for (FieldGroup* group : doc.groups()) {
        for (Field* field : group->fields) visit(*field);
    }
}

/// Another value than the present one, whatever the kind.
void edit(Field& field) {
    if (auto* text = dynamic_cast<TextField*>(&field)) text->setText(text->text() + "1");
    if (auto* check = dynamic_cast<CheckField*>(&field)) check->setValue(static_cast<std::int16_t>(1 - check->value()));
    if (auto* slider = dynamic_cast<SliderField*>(&field)) slider->setPosition(slider->range()->max);
    if (auto* number = dynamic_cast<NumberField*>(&field)) number->setValue(7);
    if (auto* list = dynamic_cast<ListField*>(&field)) {
        if (list->choices().empty()) list->setChoices({{"One", 0}, {"Two", 1}});
        list->setIndex(1);
    }
}

TEST(SettingsDocument, FieldsHaveNamesOfTheirOwnAndHints) {
    SettingsDocument doc;
    std::set<std::string> names;
    int hints = 0;
    forEachField(doc, [&](Field& field) {
        EXPECT_TRUE(names.insert(field.name()).second) << field.name();
        if (!field.spec().hint.empty()) ++hints;
        EXPECT_EQ(field.spec().caption.empty(), field.kind() == Field::Kind::Number) << field.name();
    });
    EXPECT_EQ(hints, 73);
}

TEST(SettingsDocument, EveryEditMarksTheDocumentButThoseTwoClicksAndTheLimitsLabel) {
    SettingsDocument doc;
    RunState run;
    doc.markChanges(run);
    std::set<std::string> silent;
    forEachField(doc, [&](Field& field) {
        run.ConfigChanged = false;
        edit(field);
        if (!run.ConfigChanged) silent.insert(field.name());
    });
    EXPECT_EQ(silent, (std::set<std::string>{"dowarmup", "sv_allowdownload", "fraglabel"}));
}

TEST(SettingsDocument, TheOptionPairExcludes) {
    SettingsDocument doc;
    doc.q3sexfemale.setValue(1);
    EXPECT_EQ(doc.q3sexmale.value(), 0);
    doc.q3sexmale.setValue(1);
    EXPECT_EQ(doc.q3sexfemale.value(), 0);
}

TEST(SettingsDocument, RestoreGoesBackToBeforeAnyDocument) {
    SettingsDocument doc;
    std::map<std::string, std::string> before;
    forEachField(doc, [&](Field& field) { before[field.name()] = field.valueText(); });
    forEachField(doc, [&](Field& field) {
        edit(field);
        field.enabled.set(false);
        field.visible.set(false);
    });
    fillBindings(doc.bindlist);
    doc.maplist.append({"001", "Q3DM1", "Arena Gate"});
    doc.q3botlist.append({"Sarge", "1", "Red"});
    doc.LastGameType = 2;
    doc.MapCount = 1;

    doc.restoreDesign();

    forEachField(doc, [&](Field& field) {
        EXPECT_EQ(field.valueText(), before[field.name()]) << field.name();
        EXPECT_TRUE(field.enabled.get() && field.visible.get()) << field.name();
    });
    EXPECT_TRUE(doc.bindlist.empty() && doc.maplist.empty() && doc.q3botlist.empty());
    EXPECT_EQ(doc.LastGameType, 0);
    EXPECT_EQ(doc.MapCount, 0);
}

}  // namespace
}  // namespace gatehouse
