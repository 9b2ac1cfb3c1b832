#pragma once

#include "window/dialogs/form_dialog.h"

class QPushButton;

namespace gatehouse {

class StaleForm;

/// The dialog `waitwindow`: a game that has come to no result.
class StaleDialog : public FormDialog {
    Q_OBJECT

public:
    /// The form must outlive the dialog.
    explicit StaleDialog(StaleForm& form, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:
    StaleForm& form_;
    QPushButton* retry_;
    QPushButton* next_;
};

}  // namespace gatehouse
