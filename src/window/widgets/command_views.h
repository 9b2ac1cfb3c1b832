#pragma once

#include <string_view>

class QAction;
class QAbstractButton;
class QPushButton;
class QString;
class QWidget;

namespace gatehouse {

struct CommandInfo;

// What a person is shown of a command, read from its declaration.

/// Its hint, with the key that reaches it.
QString shownHint(const CommandInfo& command);
/// Name, caption, icon, keys and hint.
void describe(QAction& action, const CommandInfo& command);
void describe(QAbstractButton& button, const CommandInfo& command);
/// A button for the command of that name.
QPushButton* makeCommandButton(std::string_view name, QWidget* parent = nullptr);

}  // namespace gatehouse
