#pragma once

class QWidget;

namespace gatehouse {

class ServerFilter;

/// The line that filters a list of servers, with the other filters below it when they are wanted. Escape in the line
/// clears it. The filter must outlive it.
QWidget* makeFilterBar(ServerFilter& filter, QWidget* behind = nullptr);

}  // namespace gatehouse
