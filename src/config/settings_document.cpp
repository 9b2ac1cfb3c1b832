#include "config/settings_document.h"

namespace gatehouse {

namespace {

/// Two options of which at most one is set: setting one clears the other.
void exclude(CheckField& one, CheckField& other) {
    one.changed.connect([&one, &other] {
        if (one.value() != 0) other.setValue(0);
    });
}

}  // namespace

SettingsDocument::SettingsDocument() {
    exclude(q3sexmale, q3sexfemale);
    exclude(q3sexfemale, q3sexmale);
}

std::array<FieldGroup*, 7> SettingsDocument::groups() {
    return {&server, &bots, &player, &video, &tweak1, &tweak2, &limits};
}

void SettingsDocument::markChanges(RunState& run) {
    for (FieldGroup* group : groups()) {
        for (Field* field : group->fields) {
            if (field->spec().marksDocument) field->changed.connect([&run] { run.ConfigChanged = true; });
        }
    }
}

void SettingsDocument::restoreDesign() {
    // The limits stand last: until then the rules of the Server tab may still move them.
    for (FieldGroup* group : groups()) {
        for (Field* field : group->fields) field->restoreDesign();
    }
    maplist.clear();
    q3botlist.clear();
    bindlist.clear();
    LastGameType = 0;
    MapCount = 0;
}

}  // namespace gatehouse
