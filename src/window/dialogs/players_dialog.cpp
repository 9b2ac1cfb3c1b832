#include "window/dialogs/players_dialog.h"

#include "platform/qt/shown_text.h"
#include "servers/players_form.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"
#include "window/widgets/table_view.h"

#include <QCheckBox>
#include <QLabel>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kNameLetters = 28;
constexpr int kNumberLetters = 8;
constexpr int kLines = 14;

TableView* makePlayerList(PlayerTable& playerlist) {
    auto* view =
        new TableView(new TableModel(playerlist, TableLook<PlayerRow>{.columns = {{"Name", &PlayerRow::Name},
                                                                                  {"Frags", &PlayerRow::Frags, true},
                                                                                  {"Ping", &PlayerRow::Ping, true}}}));
    view->setObjectName("playerlist");
    view->setAccessibleName(QObject::tr("Players"));
    view->setRootIsDecorated(false);
    view->setColumnLetters({kNameLetters, kNumberLetters});
    view->header()->setStretchLastSection(false);
    view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    view->setEmptyText(QObject::tr("Nobody plays here."));
    const int letter = view->fontMetrics().averageCharWidth();
    view->setMinimumSize((kNameLetters + 3 * kNumberLetters) * letter, kLines * view->fontMetrics().lineSpacing());
    return view;
}

}  // namespace

PlayersDialog::PlayersDialog(PlayersForm& form, QWidget* parent)
    : FormDialog("q3players", form.q3players, parent), form_(form) {
    follow(this, form.caption, [this](const std::string& caption) { setWindowTitle(shownTitle(caption)); });

    auto* again = new QCheckBox(shown(form.playersagain.spec().caption), this);
    bind(*again, form.playersagain);
    QPushButton* refresh = makeCommandButton("plistrefresh", this);
    refresh->setShortcut(QKeySequence(shown(commandInfo("plistrefresh").keys)));
    refresh->setAutoDefault(false);
    connect(refresh, &QPushButton::clicked, this, [&form] { form.plistrefresh_Click(); });
    auto* silence = new QLabel(this);
    silence->setObjectName("silence");
    follow(silence, form.silence, [silence](const std::string& since) {
        silence->setText(tr("Silent since %1: these are the last known players.").arg(shown(since)));
        silence->setVisible(!since.empty());
    });
    QPushButton* close = makeCommandButton("plistclose", this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &PlayersDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addWidget(makePlayerList(form.playerlist), 1);
    column->addWidget(silence);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(again);
    buttons->addStretch(1);
    buttons->addWidget(refresh);
    buttons->addWidget(close);
    column->addLayout(buttons);
    followForm();
}

void PlayersDialog::reject() { form_.plistclose_Click(); }

}  // namespace gatehouse
