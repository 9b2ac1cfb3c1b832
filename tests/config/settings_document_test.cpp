#include "config/settings_document.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace gatehouse {
namespace {

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

TEST(SettingsDocument, EveryEditMarksTheDocumentButThoseTwoClicksAndTheLimitsLabel) {
    SettingsDocument doc;
    RunState run;
    doc.markChanges(run);
    std::set<std::string> silent;
    for (FieldGroup* group : doc.groups()) {
        for (Field* field : group->fields) {
            run.ConfigChanged = false;
            edit(*field);
            if (!run.ConfigChanged) silent.insert(field->name());
        }
    }
    EXPECT_EQ(silent, (std::set<std::string>{"dowarmup", "sv_allowdownload", "fraglabel"}));
}

}  // namespace
}  // namespace gatehouse
