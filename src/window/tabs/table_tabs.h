#pragma once

#include "base/command_flags.h"

class QWidget;

namespace gatehouse {

class BotsRules;
class ContentRoom;
class PlayerRules;
class RotationRules;
class KeyRules;
class ServersRoom;
struct SettingsDocument;

// The tabs whose heart is a table. What they are given must outlive them.

/// The catalog of maps on the left, the rotation on the right.
QWidget* makeMapsTab(SettingsDocument& doc, ContentRoom& content, RotationRules& rules, CommandFlags& flags);
/// The actions and their keys.
QWidget* makeKeysTab(SettingsDocument& doc, KeyRules& rules);
/// The list of servers, the tool bar of its commands, the filter and the totals.
QWidget* makeServersTab(ServersRoom& servers, CommandFlags& flags);
/// The bots that join, named or random, and how they behave.
QWidget* makeBotsTab(SettingsDocument& doc, BotsRules& rules, CommandFlags& flags);
/// The player's name and looks beside the tree of models.
QWidget* makePlayerTab(SettingsDocument& doc, PlayerRules& rules, ContentRoom& content);

}  // namespace gatehouse
