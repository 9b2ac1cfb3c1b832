#pragma once

#include "window/dialogs/form_dialog.h"

class QScrollArea;

namespace gatehouse {

class KeyBoard;
class KeyRules;

/// The dialog `q3keyboard`: a keyboard and a mouse whose keys are buttons. Keys in use can't be pressed, and tell who
/// uses them.
class KeyboardDialog : public FormDialog {
    Q_OBJECT

public:
    /// The rules must outlive the dialog.
    explicit KeyboardDialog(KeyRules& rules, QWidget* parent = nullptr);

protected:
    void comeUp() override;

private:
    KeyRules& rules_;
    KeyBoard* board_ = nullptr;
    QScrollArea* room_ = nullptr;
};

}  // namespace gatehouse
