#include "window/dialogs/pak_maps_dialog.h"

#include "content/pak_maps_form.h"
#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/widgets/command_views.h"
#include "window/widgets/table_view.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kLetters = 40;
constexpr int kLines = 12;

}  // namespace

PakMapsDialog::PakMapsDialog(PakMapsForm& form, QWidget* parent)
    : FormDialog("q3pakmaps", form.q3pakmaps, parent), form_(form) {
    setWindowTitle(shownTitle(dialogInfo("q3pakmaps").title));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    addList(*column);
    column->addLayout(makeButtons());
    followForm();
}

void PakMapsDialog::addList(QBoxLayout& column) {
    list_ = new TableView(new TableModel(
        form_.paklist, TableLook<PakMap>{.columns = {{"Map", [](const PakMap& map) { return map.name; }}}}));
    list_->setObjectName("paklist");
    list_->setAccessibleName(tr("Maps in the archive"));
    list_->setRootIsDecorated(false);
    list_->setHeaderHidden(true);
    list_->setEmptyText(tr("There is no map in this archive."));
    const QFontMetrics letters = list_->fontMetrics();
    list_->setMinimumSize(kLetters * letters.averageCharWidth(), kLines * letters.lineSpacing());
    connect(list_, &TableView::rowOpened, this, [this] { form_.pakOK_Click(); });
    auto* label = new QLabel(tr("&Which map shall be added?"), this);
    label->setBuddy(list_);
    column.addWidget(label);
    column.addWidget(list_, 1);
}

QLayout* PakMapsDialog::makeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const auto& [name, command] :
         {std::pair{"pakOK", &PakMapsForm::pakOK_Click}, std::pair{"pakcancel", &PakMapsForm::pakcancel_Click}}) {
        QPushButton* button = makeCommandButton(name, this);
        connect(button, &QPushButton::clicked, this, [&form = form_, run = command] { (form.*run)(); });
        buttons->addWidget(button);
    }
    findChild<QPushButton*>("pakOK")->setDefault(true);
    return buttons;
}

void PakMapsDialog::reject() { form_.pakcancel_Click(); }

void PakMapsDialog::comeUp() { list_->setFocus(); }

}  // namespace gatehouse
