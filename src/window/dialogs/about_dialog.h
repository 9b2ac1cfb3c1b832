#pragma once

#include "window/dialogs/form_dialog.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace gatehouse {

class Gatehouse;

/// The about box `q3about`: what this program is, where its files are, and its licence.
class AboutDialog : public FormDialog {
    Q_OBJECT

public:
    /// The program must outlive the box.
    explicit AboutDialog(Gatehouse& program, QWidget* parent = nullptr);

    void reject() override;

private:
    QLabel* makeText(const QString& name, const QString& text, double size, bool bold);
    QPushButton* makeLink(const QString& name, const QString& text, const QString& hint);
    void openProgramFolder();
    void toggleLicence();

    Gatehouse& program_;
    QPlainTextEdit* licence_;
};

}  // namespace gatehouse
