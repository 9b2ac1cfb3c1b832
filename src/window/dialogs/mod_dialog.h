#pragma once

#include "window/dialogs/form_dialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QUrl;

namespace gatehouse {

class ModOptions;
struct ModField;
struct ModLink;

/// The dialog `q3mod`: the options of a mod, in columns of twelve. The editors are made anew at each showing.
class ModDialog : public FormDialog {
    Q_OBJECT

public:
    /// The rules must outlive the dialog.
    explicit ModDialog(ModOptions& rules, QWidget* parent = nullptr);

protected:
    void comeUp() override;

private:
    QPushButton* makeLink(const QString& name);
    void showLink(QPushButton& button, const ModLink& link, const QUrl& address);
    void makeFields();
    void dropFields();
    QWidget* makeEditor(const ModField& field);
    QWidget* makeCheck(const ModField& field);
    QWidget* makeList(const ModField& field);
    QWidget* makeText(const ModField& field);
    QWidget* makeSpin(const ModField& field);
    /// Fills a line, and from then on hands on what is typed into it. `box` is the line, or what it is a part of.
    void followLine(QLineEdit& line, QWidget& box, const ModField& field);
    QSize mostSize() const;
    void fitIntoScreen();

    ModOptions& rules_;
    QLabel* modname_;
    QPushButton* modurl_;
    QPushButton* modemail_;
    QLabel* modkeys_;
    QScrollArea* options_;
    QPushButton* modclose_;
};

}  // namespace gatehouse
