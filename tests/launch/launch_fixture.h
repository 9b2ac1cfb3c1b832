#pragma once

#include "launch/filesout.h"
#include "support/core/fake_host.h"
#include "support/core/fakes.h"
#include "support/core/golden.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace gatehouse {

/// A text that shows which field it came from and holds all that could be mistaken for syntax.
inline std::string patternText(const std::string& field) { return " " + field + " \"50%\" \x80\xff "; }
/// A number that tells one field from another: the sum of its name's bytes.
inline std::int16_t patternNumber(const std::string& field) {
    return static_cast<std::int16_t>(std::accumulate(field.begin(), field.end(), 0));
}

/// A document in which every text and number tells its field, and what stands around it.
class LaunchFixture : public testing::Test {
protected:
    LaunchFixture() {
        for (FieldGroup* group : doc.groups()) {
            for (Field* field : group->fields) {
                const std::string name = field->name();
                if (field->kind() == Field::Kind::Check || field->kind() == Field::Kind::Number)
                    field->setValueText(std::to_string(patternNumber(name)));
                else if (field->kind() == Field::Kind::Text || field->kind() == Field::Kind::Label)
                    field->setValueText(patternText(name));
            }
        }
        doc.chindex.setText("7");
        doc.q3sexfemale.setValue(1);
        doc.invertmouse.setValue(1);
        doc.q3brass.setValue(1);
        doc.q3trilinear.setValue(0);
        doc.q3soundquality.setValue(0);
        doc.q3snaps.setPosition(17);
        doc.q3texdetail.setPosition(1);
        doc.q3screensize.setPosition(90);
        doc.q3brightness.setPosition(130);
        doc.q3effectsvol.setPosition(35);
        doc.q3musicvol.setPosition(100);
        doc.q3vidres.setIndex(11);
        doc.cg_shadows.setIndex(3);
        doc.q3texquality.setIndex(2);
        doc.q3colordepth.setIndex(1);
        doc.q3lighting.setIndex(1);
        doc.q3geometry.setIndex(1);
        doc.q3gametype.setChoices({{"Free For All", 0}, {"Tournament", 1}, {"Team DM", 3}, {"CTF", 4}, {"Rocket", 5}});
        fillBindings(doc.bindlist);

        run.AppDir = "C:\\gh\\";
        run.GameDir = "C:\\Quake III Arena\\";
        world.files.put("C:\\gh\\aliases.txt", "");
        world.files.addFolder("C:\\Quake III Arena\\baseq3");
        host.model = "Sarge\\Krusade Red";
    }

    static ModOption modOption(const std::string& type, const std::string& name, const std::string& value, bool server,
                               bool client) {
        ModOption option;
        option.type = type;
        option.name = name;
        option.value = value;
        option.server = server;
        option.client = client;
        return option;
    }

    /// Adds a mod and chooses it.
    void chooseMod(const std::string& name, const std::string& dir, std::vector<ModOption> options = {}) {
        ModEntry entry;
        entry.name = name;
        entry.dir = dir;
        entry.cvars = static_cast<std::int16_t>(options.size());
        entry.options = std::move(options);
        mods.setCurrentMod(mods.add(entry));
    }

    void setTag(const std::string& action, const std::string& tag) {
        const int position = findBinding(doc.bindlist, action);
        ASSERT_NE(position, 0) << action;
        doc.bindlist.update(position, [&tag](KeyBinding& row) { row.tag = tag; });
    }

    fake::World world;
    RunState& run = world.run;
    SettingsDocument doc;
    ModTable mods;
    fake::FakeHost host;
    AliasBook aliases{world.ground, doc.bindlist};
    GameConfig gameConfig{{doc, mods, host, aliases, world.random, world.log}};
};

}  // namespace gatehouse
