#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTreeWidget;

namespace gatehouse {

class HelpRules;
class HelpView;
struct HelpPlace;

/// The help window `q3help`: the pages, their contents at the side, and a search in all of them. It stands beside the
/// other windows and holds up none; made when it is first wanted.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    /// The rules must outlive the window.
    explicit HelpWindow(HelpRules& rules);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeBeside(const QWidget* front);
    QWidget* makeSide();
    void fillContents();
    void search(const QString& text);
    void go(const HelpPlace& place);
    void comeToFront();

    HelpRules& rules_;
    HelpView* view_;
    QLineEdit* search_ = nullptr;
    QStackedWidget* lists_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QListWidget* hits_ = nullptr;
};

}  // namespace gatehouse
