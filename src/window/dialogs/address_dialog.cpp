#include "window/dialogs/address_dialog.h"

#include "platform/qt/shown_text.h"
#include "servers/address_form.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/field_grid.h"
#include "window/widgets/follow.h"
#include "window/widgets/password_line.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kLineLetters = 30;

}  // namespace

AddressDialog::AddressDialog(AddressForm& form, QWidget* parent)
    : FormDialog("q3newip", form.q3newip, parent), form_(form) {
    follow(this, form.editing, [this](bool editing) {
        setWindowTitle(editing ? tr("Edit Server") : shownTitle(dialogInfo("q3newip").title));
    });

    auto* fields = new FieldGrid;
    for (TextField* field : {&form.ip1, &form.port, &form.q3pwd}) {
        auto* line = new QLineEdit(this);
        bind(*line, *field);
        line->setMinimumWidth(kLineLetters * line->fontMetrics().averageCharWidth());
        fields->addField(*field, *line);
        if (field == &form.q3pwd) hideBehindEye(*line);
    }
    listen(this, form.focusWanted, [this](const TextField& field) {
        auto* line = findChild<QLineEdit*>(QString::fromStdString(field.name()));
        line->setFocus();
        line->selectAll();
    });

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(QDialogButtonBox::Ok);
    describe(*ok, commandInfo("newipOK"));
    ok->setDefault(true);
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    describe(*cancel, commandInfo("newipCancel"));
    connect(ok, &QPushButton::clicked, this, [this] { form_.newipOK_Click(); });
    connect(cancel, &QPushButton::clicked, this, &AddressDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(fields);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    followForm();
}

void AddressDialog::reject() { form_.newipCancel_Click(); }

void AddressDialog::comeUp() {
    auto* line = findChild<QLineEdit*>("ip1");
    line->setFocus();
    line->selectAll();
}

}  // namespace gatehouse
