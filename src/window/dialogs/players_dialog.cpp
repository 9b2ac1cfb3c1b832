#include "window/dialogs/players_dialog.h"

#include "platform/qt/shown_text.h"
#include "servers/players_form.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"
#include "window/widgets/table_view.h"

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
                                                                                  {"Frags", &PlayerRow::Frags},
                                                                                  {"Ping", &PlayerRow::Ping}}}));
    view->setObjectName("playerlist");
    view->setAccessibleName(QObject::tr("Players"));
    view->setRootIsDecorated(false);
    view->setColumnLetters({kNameLetters, kNumberLetters});
    view->setEmptyText(QObject::tr("Nobody plays here."));
    const int letter = view->fontMetrics().averageCharWidth();
    view->setMinimumSize((kNameLetters + 3 * kNumberLetters) * letter, kLines * view->fontMetrics().lineSpacing());
    return view;
}

}  // namespace

PlayersDialog::PlayersDialog(PlayersForm& form, QWidget* parent)
    : FormDialog("q3players", form.q3players, parent), form_(form) {
    follow(this, form.caption, [this](const std::string& caption) { setWindowTitle(shownTitle(caption)); });

    QPushButton* close = makeCommandButton("plistclose", this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &PlayersDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addWidget(makePlayerList(form.playerlist), 1);
    column->addWidget(close, 0, Qt::AlignRight);
    followForm();
}

void PlayersDialog::reject() { form_.plistclose_Click(); }

}  // namespace gatehouse
