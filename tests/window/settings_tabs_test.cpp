#include "window/tabs/settings_tabs.h"

#include "config/settings_document.h"
#include "support/core/fakes.h"
#include "window/rules/mod_options.h"
#include "window/widgets/spin_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace gatehouse {
namespace {

/// What a widget shows, in the field's own text form.
std::string shownBy(const QWidget& widget) {
    if (auto* box = qobject_cast<const QCheckBox*>(&widget)) return box->isChecked() ? "1" : "0";
    if (auto* list = qobject_cast<const QComboBox*>(&widget)) return std::to_string(list->currentIndex());
    if (auto* slider = qobject_cast<const QSlider*>(&widget)) return std::to_string(slider->value());
    if (auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
    if (auto* spin = qobject_cast<const SpinText*>(&widget)) return spin->text().toStdString();
    return dynamic_cast<const QLineEdit&>(widget).text().toStdString();
}

class SettingsTabsTest : public testing::Test {
protected:
    SettingsTabsTest() {
        doc.modcombo.setChoices({{"one", 0}, {"two", 1}});
        doc.q3gametype.setChoices({{"one", 0}, {"two", 1}});
        tabs.emplace_back(makeServerTab(doc, modOptions));
        for (const FieldGroup* group : {&doc.video, &doc.tweak1, &doc.tweak2}) tabs.emplace_back(makeSettingsTab(*group));
        for (const auto& tab : tabs) {
            tab->resize(400, 200);
            tab->show();
        }
    }

    template <class Check>
    void forEachField(Check check) {
        FieldGroup* groups[] = {&doc.server, &doc.video, &doc.tweak1, &doc.tweak2};
        for (std::size_t i = 0; i < tabs.size(); ++i) {
            tabs[i]->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(tabs[i].get()));
            for (Field* field : groups[i]->fields) {
                SCOPED_TRACE(field->name());
                const auto widgets = tabs[i]->findChildren<QWidget*>(QString::fromStdString(field->name()));
                ASSERT_EQ(widgets.size(), 1);
                check(*field, *widgets.front());
            }
        }
    }

    fake::World world;
    RunState& run = world.run;
    ModTable mods;
    SettingsDocument doc;
    ModOptions modOptions{world.ground, mods, doc.edits};
    std::vector<std::unique_ptr<QWidget>> tabs;
};

TEST_F(SettingsTabsTest, EveryFieldIsOnItsTabOnceAndFollowsItsWidgetAndTheOtherWayRound) {
    forEachField([](Field& field, QWidget& widget) {
        const std::string before = field.valueText();
        if (field.kind() == Field::Kind::Check) {
            QTest::keyClick(&widget, Qt::Key_Space);
        } else if (field.kind() == Field::Kind::Text) {
            QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(&widget, "321");
            EXPECT_EQ(field.valueText() == before, field.spec().takenWhenLeft);
            QTest::keyClick(&widget, Qt::Key_Return);
        } else if (field.kind() != Field::Kind::Label) {
            QTest::keyClick(&widget, Qt::Key_End);
            if (field.valueText() == before) QTest::keyClick(&widget, Qt::Key_Home);
        }
        EXPECT_EQ(field.valueText() == before, field.kind() == Field::Kind::Label);
        EXPECT_EQ(shownBy(widget), field.valueText());
        field.setValueText(field.kind() == Field::Kind::Label ? "Caps:" : "1");
        EXPECT_EQ(shownBy(widget), field.valueText());
    });
}

TEST_F(SettingsTabsTest, TheTabsComeToRest) {
    // Layouts that ask for each other without end would keep a processor busy for as long as the window stands.
    struct Counter : QObject {
        int asked = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            asked += event->type() == QEvent::LayoutRequest;
            return false;
        }
    } counter;
    for (const auto& tab : tabs) tab->resize(1200, 600);
    QTest::qWait(1);
    qApp->installEventFilter(&counter);
    for (int i = 0; i < 100; ++i) QCoreApplication::processEvents();
    EXPECT_LT(counter.asked, 10);
}

}  // namespace
}  // namespace gatehouse
