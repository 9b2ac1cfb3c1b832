#include "base/scan_view.h"

namespace gatehouse {

namespace {

constexpr double kPulseEnd = 99.9;
constexpr double kPulseStep = 0.03;

}  // namespace

void ScanView::begin() {
    stopped_ = false;
    place.set("");
    entry.set("");
    startBar(100);
    q3scan.set(true);
}

void ScanView::pulse() {
    const double now = progress.get();
    progress.set((now >= kPulseEnd ? 0 : now) + kPulseStep);
}

}  // namespace gatehouse
