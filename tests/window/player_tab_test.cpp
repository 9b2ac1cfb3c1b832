#include "support/core/started_program.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/icons.h"
#include "window/widgets/table_view.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

namespace gatehouse {
namespace {

class PlayerTabTest : public testing::Test {
protected:
    PlayerTabTest() {
        program.StartupDriver();
        tab.reset(makePlayerTab(program.config.doc, program.rules.playerRules, program.content));
        tab->resize(900, 600);
        tab->show();
    }
    template <class T = QWidget>
    T& find(const char* name) {
        auto* found = tab->findChild<T*>(name);
        if (!found) throw std::runtime_error(std::string("no ") + name);
        return *found;
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    std::unique_ptr<QWidget> tab;
};

TEST_F(PlayerTabTest, EveryCrosshairHasItsPictureAndPreviewsShowWhatTheFieldsSay) {
    QImage earlier;
    for (int crosshair = 0; crosshair <= program.config.doc.chindex.range()->max + 3; ++crosshair) {
        program.config.doc.chindex.setText(std::to_string(crosshair));
        EXPECT_EQ(hasPicture("crosshair-" + QString::number(crosshair + 1)), crosshair < 12) << crosshair;
        const QImage now = find("chpic").grab().toImage();
        if (crosshair <= 12) {
            EXPECT_NE(now, earlier) << crosshair;
        }
        earlier = now;
    }
    program.config.doc.q3playername.setText("^1Red ^4Blue");
    EXPECT_EQ(find("nc").accessibleDescription(), "Red Blue");
    program.config.doc.q3fxcolor.setText("4");
    EXPECT_EQ(find("fxpreview").grab().toImage().pixelColor(20, 20), QColor(Qt::red));
}

TEST_F(PlayerTabTest, AChosenModelIsOneStepThatCanBeUndone) {
    auto& tree = find<TableView>("mdltree");
    const std::string before = program.content.models.selectedModel();
    tree.expandAll();
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Down);
    const std::string chosen = program.content.models.selectedModel();
    EXPECT_NE(chosen, before);
    EXPECT_EQ(program.config.history.undoName.get(), "Model/Skin");
    program.meditundo_Click();
    EXPECT_EQ(program.content.models.selectedModel(), before);
    EXPECT_FALSE(program.config.history.canUndo.get());
    program.meditredo_Click();
    EXPECT_EQ(program.content.models.selectedModel(), chosen);
    while (program.content.models.mdltree.at(program.content.models.mdltree.current()).parent != 0)
        QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_TRUE(program.config.doc.currmodel.text().ends_with("/Default")) << "what the document holds for a model alone";
}

}  // namespace
}  // namespace gatehouse
