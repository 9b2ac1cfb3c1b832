#include "window/widgets/side_bar.h"

#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"
#include "window/widgets/icons.h"
#include "window/widgets/twips.h"

#include <QAction>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace gatehouse {

namespace {

constexpr int kWidth = 1420;  // twips
constexpr int kLargeIcon = 28;
constexpr int kSmallIcon = 18;

/// Drawings by the number of a tab's icon, from 1.
constexpr std::array kTabIcons = {"server", "servers", "maps",  "player",    "keys",
                                  "bots",   "video",   "tweak", "benchmark", "help"};

/// Large icons stand above their captions, small ones in front.
class TabDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const int text = option.fontMetrics.height();
        return {0, large(option) ? kLargeIcon + text + 10 : qMax(kSmallIcon, text) + 10};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!large(*option)) return;
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->decorationAlignment = Qt::AlignCenter;
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    }

private:
    static bool large(const QStyleOptionViewItem& option) { return option.decorationSize.height() == kLargeIcon; }
};

}  // namespace

TabList::TabList(const ModeInfo& mode, QWidget* parent)
    : QListView(parent), tabs_(mode.tabs), model_(new QStandardItemModel(this)) {
    for (const Frame frame : tabs_) {
        const TabInfo& tab = tabInfo(frame);
        auto* item = new QStandardItem(icon(kTabIcons.at(static_cast<std::size_t>(tab.icon - 1))), shown(tab.caption));
        item->setEditable(false);
        model_->appendRow(item);
    }
    setModel(model_);
    setItemDelegate(new TabDelegate(this));
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideRight);
    setAccessibleName(tr("Tabs of %1").arg(shown(mode.caption)));
    setLargeIcons(true);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &TabList::chooseSelected);
}

void TabList::showFrame(Frame frame) {
    const auto found = std::find(tabs_.begin(), tabs_.end(), frame);
    rowOnShow_ = found == tabs_.end() ? -1 : static_cast<int>(found - tabs_.begin());
    const QModelIndex index = model_->index(rowOnShow_, 0);
    selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
    if (!index.isValid()) return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
}

void TabList::setLargeIcons(bool large) {
    const int side = large ? kLargeIcon : kSmallIcon;
    setIconSize({side, side});
    scheduleDelayedItemsLayout();
}

QItemSelectionModel::SelectionFlags TabList::selectionCommand(const QModelIndex&, const QEvent*) const {
    // What is selected is the tab on show, and that is for the rules to say.
    return QItemSelectionModel::NoUpdate;
}

void TabList::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)
        choose(currentIndex());
    else
        QListView::keyPressEvent(event);
}

void TabList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index == currentIndex()) choose(index);
}

void TabList::choose(const QModelIndex& index) {
    if (index.isValid()) Q_EMIT chosen(index.row() + 1);
}

void TabList::chooseSelected() {
    // Neither mouse nor keyboard selects by itself, but a screen reader does.
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (!isHidden() && !selected.isEmpty() && selected.first().row() != rowOnShow_) choose(selected.first());
}

SideBar::SideBar(ModeRules& rules, RunState& run, QWidget* parent) : QWidget(parent), rules_(rules), run_(run) {
    setObjectName("sbar");
    setAccessibleName(tr("Modes"));
    setFixedWidth(pixels(kWidth));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    for (std::size_t i = 0; i < modes().size(); ++i) addMode(static_cast<std::int16_t>(i + 1));
    makeMenu();
    follow(this, run_.CurrentMode, [this](std::int16_t mode) { showMode(mode); });
    follow(this, rules_.FrameShown, [this](std::int16_t frame) {
        for (TabList* list : lists_) list->showFrame(static_cast<Frame>(frame));
    });
}

void SideBar::addMode(std::int16_t mode) {
    const auto position = static_cast<std::size_t>(mode - 1);
    const ModeInfo& info = modes()[position];
    const QString caption = shown(info.caption);
    auto* header = new QToolButton(this);
    const CommandInfo& command = commandInfo("sbar" + std::to_string(mode));
    describe(*header, command);
    header->setText(caption);
    const QKeySequence keys(shown(command.keys));
    header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    header->setIconSize({kSmallIcon, kSmallIcon});
    header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    header->setMinimumHeight(header->fontMetrics().height() + 14);
    header->setFocusPolicy(Qt::StrongFocus);
    header->setCheckable(true);
    // Not the click: a screen reader turns the header over without one.
    connect(header, &QToolButton::toggled, this, [this, mode](bool down) {
        if (down == (run_.CurrentMode.get() == mode)) return;  // shown, not chosen
        rules_.sbar_GroupClick(mode);
        showMode(run_.CurrentMode.get());  // the header of the mode on show stays down
    });
    // The keyboard follows to the tabs, also where the one that it was in has gone.
    connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, header, mode] {
        header->click();
        lists_[static_cast<std::size_t>(mode - 1)]->setFocus(Qt::ShortcutFocusReason);
    });
    layout()->addWidget(header);
    headers_.push_back(header);

    auto* list = new TabList(info, this);
    list->setObjectName("sbarlist" + QString::number(mode));
    connect(list, &TabList::chosen, this,
            [this](int item) { rules_.sbar_ListItemClick(static_cast<std::int16_t>(item)); });
    layout()->addWidget(list);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    lists_.push_back(list);
}

void SideBar::makeMenu() {
    sbarmenu_ = new QMenu(this);
    sbarmenu_->setObjectName("sbarmenu");
    auto* sizes = new QActionGroup(this);
    const auto addSize = [&](std::string_view name, bool large) {
        QAction* action = sbarmenu_->addAction(QString());
        describe(*action, commandInfo(name));
        action->setCheckable(true);
        action->setChecked(large);
        sizes->addAction(action);
        connect(action, &QAction::triggered, this, [this, large] { setLargeIcons(large); });
    };
    addSize("sbariconlarge", true);
    addSize("msiconsmall", false);
}

void SideBar::showMode(std::int16_t mode) {
    const auto current = static_cast<std::size_t>(mode - 1);
    if (current >= lists_.size()) return;
    bool hadFocus = false;
    for (std::size_t i = 0; i < headers_.size(); ++i) {
        headers_[i]->setChecked(i == current);
        QFont caption = font();
        caption.setBold(i == current);
        headers_[i]->setFont(caption);
        if (i == current) continue;
        hadFocus |= lists_[i]->hasFocus();
        lists_[i]->hide();
    }
    lists_[current]->show();
    if (hadFocus) lists_[current]->setFocus();
}

void SideBar::setLargeIcons(bool large) {
    for (TabList* list : lists_) list->setLargeIcons(large);
}

void SideBar::contextMenuEvent(QContextMenuEvent* event) { sbarmenu_->popup(event->globalPos()); }

}  // namespace gatehouse
