#pragma once

#include "base/log.h"
#include "base/run_state.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace gatehouse {

/// The about box `q3about`: what this program is, where its files are, and its licence.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    /// Run and log must outlive the box.
    AboutDialog(const RunState& run, Log& log, QWidget* parent = nullptr);

    void mhelpabout_Click();
    /// Hides the box, as Escape does.
    void q3aboutOK_Click();
    void reject() override { q3aboutOK_Click(); }

private:
    QLabel* makeText(const QString& name, const QString& text, double size, bool bold);
    QPushButton* makeLink(const QString& name, const QString& text, const QString& hint);
    void openProgramFolder();
    void toggleLicence();

    const RunState& run_;
    Log& log_;
    QPlainTextEdit* licence_;
};

}  // namespace gatehouse
