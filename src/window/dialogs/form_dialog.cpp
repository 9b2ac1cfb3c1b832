#include "window/dialogs/form_dialog.h"

#include "window/widgets/follow.h"

namespace gatehouse {

FormDialog::FormDialog(const QString& name, Observable<bool>& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName(name);
    setModal(true);
}

void FormDialog::followForm() {
    follow(this, form_, [this](bool shown) {
        if (shown) comeUp();
        setVisible(shown);
    });
}

}  // namespace gatehouse
