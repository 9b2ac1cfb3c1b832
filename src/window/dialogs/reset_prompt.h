#pragma once

#include "window/dialogs/form_dialog.h"

#include <string_view>

class QPushButton;

namespace gatehouse {

class TabReset;

/// The dialog `q3resetprompt`: asks whether all tabs are to be reset or the current one. Comes up with the focus on the
/// button that does nothing.
class ResetPrompt : public FormDialog {
    Q_OBJECT

public:
    /// The commands must outlive the prompt.
    explicit ResetPrompt(TabReset& reset, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:
    QPushButton* makeButton(std::string_view name, std::string_view word);

    TabReset& reset_;
    QPushButton* cancel_ = nullptr;
};

}  // namespace gatehouse
