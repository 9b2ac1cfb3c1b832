#pragma once

#include "base/form.h"
#include "base/observable.h"

#include <string>
#include <string_view>

namespace gatehouse {

/// What the window of a scan shows while the scan goes on: where it is, how far, and a button that ends it. It comes up
/// before there is a main window, too.
class ScanView {
public:
    struct Names {
        std::string_view form;      ///< such as "q3getmaps"
        std::string_view place;     ///< of the label for the archive or phase
        std::string_view entry;     ///< of the label for the entry
        std::string_view progress;  ///< of the bar
    };
    ScanView(const Names& viewNames, std::string_view title)
        : q3scan(viewNames.form), names(viewNames), caption(title) {}

    Form q3scan;
    const Names names;
    const std::string_view caption;
    Observable<std::string> place;
    Observable<std::string> entry;
    Observable<double> progress{0};
    Observable<double> extent{100};

    /// Escape and the close button as well: the scan ends after the entry in hand.
    void stop_Click() { stopped_ = true; }
    bool stopped() const { return stopped_; }

    /// The bar from its start, with this extent.
    void startBar(double newExtent) {
        extent.set(newExtent);
        progress.set(0);
    }
    /// One small step of a bar that knows no end: behind its end it starts again.
    void pulse();

private:
    friend class Showing;
    void begin();

    bool stopped_ = false;
};

/// What the log says of a scan that somebody has stopped.
inline constexpr std::string_view kScanStopped = "scan stopped by user";

/// Puts the window of a scan up for as long as the scan goes on, however it ends.
class Showing {
public:
    explicit Showing(ScanView& view) : view_(view) { view_.begin(); }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    ~Showing() { view_.q3scan.set(false); }

private:
    ScanView& view_;
};

}  // namespace gatehouse
