#include "window/dialogs/find_servers_dialog.h"

#include "platform/qt/shown_text.h"
#include "servers/server_order.h"
#include "servers/server_search.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/filter_bar.h"
#include "window/widgets/follow.h"
#include "window/widgets/server_list.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/table_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kLetters = 110;
constexpr int kLines = 32;
constexpr int kNumberLetters = 8;

}  // namespace

FindServersDialog::FindServersDialog(ServerSearch& search, const Favourites& favourites, QWidget* parent)
    : FormDialog("q3find", search.q3find, parent), search_(search) {
    setWindowTitle(shownTitle(dialogInfo("q3find").title));
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(makeQuestion());
    column->addWidget(makeFilterBar(search.filter));
    column->addWidget(makeFound(favourites), 1);
    auto* progress = new ElidedLabel(Qt::ElideRight, this);
    progress->setObjectName("findprogress");
    follow(progress, search.progress, [progress](const std::string& text) { progress->setText(shown(text)); });
    column->addWidget(progress);
    column->addLayout(makeButtons());
    const QFontMetrics letters = fontMetrics();
    resize(kLetters * letters.averageCharWidth(), kLines * letters.lineSpacing());
    followForm();
}

QLayout* FindServersDialog::makeQuestion() {
    auto* masters = new QHBoxLayout;
    auto* ask = new QCheckBox(shown(search_.askmasters.spec().caption), this);
    bind(*ask, search_.askmasters);
    auto* line = new QLineEdit(this);
    bind(*line, search_.masters);
    line->setCursorPosition(0);
    follow(line, search_.running, [line](bool running) { line->setReadOnly(running); });
    masters->addWidget(ask);
    masters->addWidget(line, 1);

    auto* rest = new QHBoxLayout;
    auto* version = new QComboBox(this);
    bind(*version, search_.protocol);
    auto* versionCaption = new QLabel(this);
    bindCaption(*versionCaption, *version, search_.protocol);
    auto* number = new SpinText(this);
    bind(*number, search_.protocolnumber, Typed::Number);
    number->setFixedWidth(kNumberLetters * fontMetrics().averageCharWidth() + number->sizeHint().height());
    auto* numberCaption = new QLabel(this);
    bindCaption(*numberCaption, *number, search_.protocolnumber);
    auto* local = new QCheckBox(shown(search_.searchlocal.spec().caption), this);
    bind(*local, search_.searchlocal);
    rest->addWidget(local);
    rest->addStretch(1);
    for (QWidget* one : {static_cast<QWidget*>(versionCaption), static_cast<QWidget*>(version),
                         static_cast<QWidget*>(numberCaption), static_cast<QWidget*>(number)})
        rest->addWidget(one);

    auto* rows = new QVBoxLayout;
    rows->addLayout(masters);
    rows->addLayout(rest);
    return rows;
}

QWidget* FindServersDialog::makeFound(const Favourites& favourites) {
    TableView* view = makeServerList({search_.found, favourites, nullptr, [&search = search_, &favourites](int column) {
                                          orderServers(search.found, column, favourites);
                                      }});
    view->setObjectName("found");
    view->setAccessibleName(tr("Found Servers"));
    view->setEmptyText(tr("Press Search. What is found can be taken into your list."));
    addHeaderMenus(*view);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(view, &TableView::rowOpened, this, [this] { search_.addSelected(); });
    return view;
}

QLayout* FindServersDialog::makeButtons() {
    auto* buttons = new QHBoxLayout;
    QPushButton* search = makeCommandButton("findsearch", this);
    connect(search, &QPushButton::clicked, this, [this] { search_.search(); });
    QPushButton* stop = makeCommandButton("findstop", this);
    connect(stop, &QPushButton::clicked, this, [this] { search_.stop(); });
    follow(stop, search_.running, [stop](bool running) { stop->setEnabled(running); });
    QPushButton* add = makeCommandButton("findadd", this);
    connect(add, &QPushButton::clicked, this, [this] { search_.addSelected(); });
    follow(add, search_.canAdd, [add](bool can) { add->setEnabled(can); });
    QPushButton* close = makeCommandButton("findclose", this);
    connect(close, &QPushButton::clicked, this, &FindServersDialog::reject);
    search->setDefault(true);
    for (QPushButton* button : {stop, add, close}) button->setAutoDefault(false);
    buttons->addWidget(search);
    buttons->addWidget(stop);
    buttons->addStretch(1);
    buttons->addWidget(add);
    buttons->addWidget(close);
    return buttons;
}

void FindServersDialog::reject() { search_.close(); }

void FindServersDialog::comeUp() { findChild<QPushButton*>("findsearch")->setFocus(); }

}  // namespace gatehouse
