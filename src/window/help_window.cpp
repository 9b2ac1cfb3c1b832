#include "window/help_window.h"

#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/rules/help_rules.h"
#include "window/tabs/help_tab.h"
#include "window/widgets/follow.h"
#include "window/widgets/help_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

namespace gatehouse {

namespace {

constexpr QSize kSize{900, 640};
constexpr QSize kFrame{8, 36};  // what the window manager may draw around it
constexpr int kGap = 8;
constexpr int kSideLetters = 20;
constexpr std::size_t kLongestHit = 140;
constexpr std::size_t kMostHits = 200;

enum Role { kPage = Qt::UserRole, kAnchor };

void keepPlace(QTreeWidgetItem& item, const HelpPlace& place) {
    item.setData(0, kPage, place.page);
    item.setData(0, kAnchor, shown(place.anchor));
}

}  // namespace

HelpWindow::HelpWindow(HelpRules& rules) : rules_(rules), view_(new HelpView(rules.window.viewer, rules)) {
    setObjectName("q3help");
    setWindowTitle(shownTitle(dialogInfo("q3help").title));
    view_->setObjectName("helpview");
    auto* right = new QWidget;
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins({});
    column->addWidget(makeHelpBar(rules.window.viewer, rules, *view_, false));
    column->addWidget(view_, 1);
    auto* split = new QSplitter(Qt::Horizontal);
    split->setChildrenCollapsible(false);
    split->addWidget(makeSide());
    split->addWidget(right);
    split->setStretchFactor(1, 1);
    split->setSizes({kSize.width() / 3, kSize.width() * 2 / 3});
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(kGap, kGap, kGap, kGap);
    whole->addWidget(split);
    fillContents();
    placeBeside(QApplication::activeWindow());
    view_->setFocus();
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        search_->setFocus(Qt::ShortcutFocusReason);
        search_->selectAll();
    });
    listen(this, rules.window.wanted, [this] { comeToFront(); });
    listen(this, rules.window.shown.changed, [this] {
        if (!rules_.window.shown.get()) hide();
    });
    comeToFront();
}

void HelpWindow::placeBeside(const QWidget* front) {
    const QRect room = (front ? front : this)->screen()->availableGeometry();
    resize(kSize.boundedTo(room.size() - kFrame));
    // At the right, so that of the window that it tells about as much as possible is to be seen.
    const int top = front ? front->frameGeometry().top() : room.top();
    const int lowest = room.bottom() - height() - kFrame.height();
    move(room.right() - width() - kFrame.width(), qBound(room.top(), top, qMax(room.top(), lowest)));
}

QWidget* HelpWindow::makeSide() {
    search_ = new QLineEdit;
    search_->setObjectName("helpsearch");
    search_->setAccessibleName(tr("Search the help"));
    search_->setPlaceholderText(tr("Search (Ctrl+F)"));
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (hits_->count() == 0) return;
        hits_->setFocus();
        hits_->setCurrentRow(0);
    });
    contents_ = new QTreeWidget;
    contents_->setObjectName("helpcontents");
    contents_->setAccessibleName(tr("Contents"));
    contents_->setHeaderHidden(true);
    const auto goTo = [this](QTreeWidgetItem* item) {
        if (item) go({item->data(0, kPage).toInt(), typedBytes(item->data(0, kAnchor).toString())});
    };
    connect(contents_, &QTreeWidget::currentItemChanged, this, goTo);
    connect(contents_, &QTreeWidget::itemClicked, this, goTo);
    hits_ = new QListWidget;
    hits_->setObjectName("helphits");
    hits_->setAccessibleName(tr("Found"));
    hits_->setWordWrap(true);
    hits_->setAlternatingRowColors(true);
    const auto goToHit = [this](QListWidgetItem* item) {
        if (item && item->data(kPage).isValid())
            go({item->data(kPage).toInt(), typedBytes(item->data(kAnchor).toString())});
    };
    connect(hits_, &QListWidget::currentItemChanged, this, goToHit);
    connect(hits_, &QListWidget::itemClicked, this, goToHit);
    lists_ = new QStackedWidget;
    lists_->addWidget(contents_);
    lists_->addWidget(hits_);
    auto* side = new QWidget;
    side->setMinimumWidth(kSideLetters * fontMetrics().averageCharWidth());
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->addWidget(search_);
    column->addWidget(lists_, 1);
    return side;
}

void HelpWindow::fillContents() {
    QTreeWidgetItem* page = nullptr;
    for (const HelpHeading& heading : rules_.book.contents()) {
        auto* item = heading.depth == 0 ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(page);
        if (heading.depth == 0) page = item;
        item->setText(0, shown(heading.text));
        keepPlace(*item, heading.place);
    }
}

void HelpWindow::search(const QString& text) {
    lists_->setCurrentWidget(text.trimmed().isEmpty() ? static_cast<QWidget*>(contents_) : hits_);
    hits_->clear();
    std::size_t count = 0;
    for (const HelpHit& hit : rules_.book.search(typedBytes(text))) {
        if (++count > kMostHits) break;
        const bool cut = hit.text.size() > kLongestHit;
        auto* item = new QListWidgetItem(
            shown(hit.heading) + '\n' + shown(hit.text.substr(0, kLongestHit)) + (cut ? "..." : ""), hits_);
        item->setData(kPage, hit.place.page);
        item->setData(kAnchor, shown(hit.place.anchor));
    }
    if (count == 0 && !text.trimmed().isEmpty()) {
        auto* none = new QListWidgetItem(tr("Nothing found. Fewer words, or a part of one, find more."), hits_);
        none->setFlags(Qt::NoItemFlags);
    }
}

void HelpWindow::go(const HelpPlace& place) { rules_.window.viewer.navigate(place); }

void HelpWindow::comeToFront() {
    // In front of a dialog it belongs to that: otherwise the dialog would keep all keys from it.
    QWidget* dialog = QApplication::activeModalWidget();
    create();
    QWindow* front = dialog ? dialog->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != front) {
        hide();
        windowHandle()->setTransientParent(front);
    }
    show();
    raise();
    activateWindow();
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    rules_.window.shown.set(false);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return rules_.window.shown.set(false);
    QWidget::keyPressEvent(event);
}

}  // namespace gatehouse
