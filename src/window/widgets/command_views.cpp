#include "window/widgets/command_views.h"

#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/widgets/icons.h"

#include <QAction>
#include <QPushButton>

namespace gatehouse {

namespace {

QList<QKeySequence> keysOf(const CommandInfo& command) { return QKeySequence::listFromString(shown(command.keys)); }

}  // namespace

QString shownHint(const CommandInfo& command) {
    const QList<QKeySequence> keys = keysOf(command);
    const QString hint = shown(command.hint.empty() ? command.plainCaption() : command.hint);
    return keys.isEmpty() ? hint : QStringLiteral("%1 (%2)").arg(hint, keys.first().toString(QKeySequence::NativeText));
}

void describe(QAction& action, const CommandInfo& command) {
    action.setObjectName(shown(command.objectName()));
    action.setText(shown(command.caption));
    action.setShortcuts(keysOf(command));
    action.setToolTip(shownHint(command));
    if (!command.icon.empty()) action.setIcon(icon(shown(command.icon)));
}

void describe(QAbstractButton& button, const CommandInfo& command) {
    button.setObjectName(shown(command.objectName()));
    button.setText(shown(command.caption));
    if (!command.icon.empty()) button.setIcon(icon(shown(command.icon)));
    if (command.hint.empty()) return;
    button.setToolTip(shownHint(command));
    button.setAccessibleDescription(shown(command.hint));
}

QPushButton* makeCommandButton(std::string_view name, QWidget* parent) {
    auto* button = new QPushButton(parent);
    describe(*button, commandInfo(name));
    return button;
}

}  // namespace gatehouse
