#pragma once

class QWidget;

namespace gatehouse {

class Gatehouse;

/// The documents and the demos to choose from, how often and how long, and the buttons of the run. The program must
/// outlive it.
QWidget* makeBenchmarkTab(Gatehouse& program);

}  // namespace gatehouse
