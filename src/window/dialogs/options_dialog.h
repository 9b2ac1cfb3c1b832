#pragma once

#include "window/dialogs/form_dialog.h"


#include <string_view>

class QBoxLayout;
class QLineEdit;
class QPushButton;

namespace gatehouse {

class Field;
class ListField;
class OptionsRules;
class TextField;
struct OptionsForm;

/// The dialog `q3options`. What is changed in it holds at once: there is nothing to cancel but a folder half typed, and
/// apart from that Escape is as good as OK.
class OptionsDialog : public FormDialog {
    Q_OBJECT

public:
    /// Form and rules must outlive the dialog.
    OptionsDialog(OptionsForm& form, OptionsRules& rules, QWidget* parent = nullptr);

    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Command = void (OptionsRules::*)();

    QWidget* makeFields();
    QLineEdit* makeLine(TextField& field);
    QWidget* makeSpin(TextField& field);
    QWidget* makeList(ListField& field);
    QBoxLayout* makeButtons();
    QPushButton* makeButton(std::string_view name, Command command);

    /// Runs a command, once the folder is one.
    void run(Command command);
    /// False if the folder that was left is none; the focus is back in its line.
    bool settleFolder();
    void settleFolderSoon();
    void browseFolder();

    OptionsForm& form_;
    OptionsRules& rules_;
    QLineEdit* ghcdir_ = nullptr;
    bool folderOpen_ = false;  ///< the line of the folder has the focus, or had it and was not looked at since
};

}  // namespace gatehouse
