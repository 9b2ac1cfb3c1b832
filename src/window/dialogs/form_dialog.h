#pragma once

#include "base/observable.h"

#include <QDialog>

namespace gatehouse {

/// One of the program's own forms: modal, and on show while its value holds. Hidden, never destroyed.
class FormDialog : public QDialog {
    Q_OBJECT

public:
    /// `form` must outlive the dialog.
    FormDialog(const QString& name, Observable<bool>& form, QWidget* parent);

    /// Escape and the title bar's close button. Hides the form unless it has a better way to end.
    void reject() override { form_.set(false); }

protected:
    /// To be called last in a form's constructor: from now on the dialog comes and goes with the value.
    void followForm();
    /// Each time the form comes up, before it is seen.
    virtual void comeUp() {}

private:
    Observable<bool>& form_;
};

}  // namespace gatehouse
