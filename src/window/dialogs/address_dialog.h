#pragma once

#include "window/dialogs/form_dialog.h"

namespace gatehouse {

class AddressForm;

/// The dialog `q3newip`: address and password of one server.
class AddressDialog : public FormDialog {
    Q_OBJECT

public:
    /// The form must outlive the dialog.
    explicit AddressDialog(AddressForm& form, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:
    AddressForm& form_;
};

}  // namespace gatehouse
