#pragma once

#include "help/help_viewer.h"

#include <QTextBrowser>

namespace gatehouse {

class HelpRules;

/// Shows the pages that a viewer goes to, in the palette's colours. Nothing is fetched: a link of the web goes to the
/// user's browser, and only by a click or a key.
class HelpView : public QTextBrowser {
    Q_OBJECT

public:
    /// Both must outlive the view.
    HelpView(HelpViewer& viewer, HelpRules& rules, QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showPage();
    void showAnchor();
    void follow(const QUrl& link);
    void fitLines();

    HelpViewer& viewer_;
    HelpRules& rules_;
    int page_ = -1;  ///< the page in the document
};

}  // namespace gatehouse
