#pragma once

#include "window/dialogs/form_dialog.h"

class QComboBox;

namespace gatehouse {

class BotsRules;
class Field;

/// The dialog `q3newbot`: who is to join, how good and on which side. Escape is a cancel.
class NewBotDialog : public FormDialog {
    Q_OBJECT

public:
    /// The rules must outlive the dialog.
    explicit NewBotDialog(BotsRules& rules, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:

    BotsRules& rules_;
    QComboBox* name_;
};

}  // namespace gatehouse
