#pragma once

class QToolBar;
class QWidget;

namespace gatehouse {

class HelpRules;
class HelpViewer;

/// The buttons that walk through the pages of a viewer: back, forward, home, and with `expand` one for the help window.
QToolBar* makeHelpBar(HelpViewer& viewer, HelpRules& rules, QWidget& view, bool expand);

/// Frame of the help: the view `hwin` with its tool bar `hwinbar`.
QWidget* makeHelpTab(HelpViewer& hwin, HelpRules& rules);

}  // namespace gatehouse
