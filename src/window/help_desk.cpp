#include "window/help_desk.h"

#include "platform/qt/shown_text.h"
#include "window/help_window.h"
#include "window/rules/help_rules.h"
#include "window/widgets/follow.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QWhatsThis>

namespace gatehouse {

namespace {

/// What a widget may be called in the help.
QStringList namesOf(const QWidget& widget) {
    if (const auto* menu = qobject_cast<const QMenu*>(&widget); menu && menu->activeAction())
        return {menu->activeAction()->objectName()};
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->buddy()) return namesOf(*label->buddy());
    const auto* button = qobject_cast<const QToolButton*>(&widget);
    const QAction* action = button ? button->defaultAction() : nullptr;
    if (!action) return {widget.objectName()};
    // Of one name there may be several, in bars of different names.
    return {widget.parentWidget()->objectName() + '.' + action->objectName(), action->objectName()};
}

bool isHelpKey(const QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && (key.modifiers() & ~Qt::ShiftModifier) == 0;
}

}  // namespace

HelpDesk::HelpDesk(HelpRules& rules) : rules_(rules) {
    qApp->installEventFilter(this);
    listen(this, rules.window.wanted, [this] {
        if (!window_) window_ = std::make_unique<HelpWindow>(rules_);
    });
}

HelpDesk::~HelpDesk() = default;

std::string HelpDesk::topicOf(const QWidget* widget) const {
    for (; widget; widget = widget->parentWidget())
        for (const QString& name : namesOf(*widget))
            if (const std::string topic = name.toStdString(); !topic.empty() && rules_.book.placeOf(topic))
                return topic;
    return {};
}

void HelpDesk::helpOn(const QWidget& asked) {
    const std::string topic = topicOf(&asked);
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    rules_.helpOn(topic);
}

bool HelpDesk::showWhatsThis(QWidget& widget, const QHelpEvent& event) {
    const std::string topic = topicOf(&widget);
    if (topic.empty()) return false;
    QWhatsThis::showText(event.globalPos(), "<qt>" + shown(rules_.book.paragraphOf(topic)) + "</qt>", &widget);
    return true;
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // The key is the desk's, wherever the keyboard is: a menu's own would not reach into a dialog.
            if (isHelpKey(*event)) event->accept();
            return isHelpKey(*event);
        case QEvent::KeyPress:
            if (!isHelpKey(*event)) return false;
            if (static_cast<QKeyEvent*>(event)->modifiers() & Qt::ShiftModifier)
                QWhatsThis::enterWhatsThisMode();
            else
                helpOn(*widget);
            return true;
        case QEvent::QueryWhatsThis:
            event->setAccepted(!topicOf(widget).empty());
            return true;
        case QEvent::WhatsThis:
            return showWhatsThis(*widget, static_cast<const QHelpEvent&>(*event));
        default:
            return false;
    }
}

}  // namespace gatehouse
