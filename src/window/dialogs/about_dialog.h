#pragma once

#include "window/dialogs/form_dialog.h"

class QLabel;
class QPlainTextEdit;

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
    void openHomePage();
    void openProgramFolder();
    void toggleLicence();

    Gatehouse& program_;
    QPlainTextEdit* licence_;
};

}  // namespace gatehouse
