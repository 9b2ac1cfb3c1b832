#pragma once

#include "window/dialogs/form_dialog.h"

namespace gatehouse {

class PlayersForm;

/// The dialog `q3players`: who plays on a server.
class PlayersDialog : public FormDialog {
    Q_OBJECT

public:
    /// The form must outlive the dialog.
    explicit PlayersDialog(PlayersForm& form, QWidget* parent = nullptr);

    void reject() override;

private:
    PlayersForm& form_;
};

}  // namespace gatehouse
