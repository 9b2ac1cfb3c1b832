#pragma once

#include "window/dialogs/form_dialog.h"

class QBoxLayout;
class QLayout;

namespace gatehouse {

class PakMapsForm;
class TableView;

/// The dialog `q3pakmaps`: which of an archive's maps is meant.
class PakMapsDialog : public FormDialog {
    Q_OBJECT

public:
    /// The form must outlive the dialog.
    explicit PakMapsDialog(PakMapsForm& form, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:
    void addList(QBoxLayout& column);
    QLayout* makeButtons();

    PakMapsForm& form_;
    TableView* list_ = nullptr;
};

}  // namespace gatehouse
