#pragma once

#include "base/observable.h"

#include <string>
#include <vector>

namespace gatehouse {

/// A place in the help: a page of the table, and where in it.
struct HelpPlace {
    int page = -1;
    std::string anchor = {};  ///< the top of the page if empty
    friend bool operator==(const HelpPlace&, const HelpPlace&) = default;
};

/// What a help view shows, with the way that led there.
class HelpViewer {
public:
    Observable<HelpPlace> place;
    Observable<bool> canGoBack, canGoForward;
    /// A place was gone to, even if it is the one on show: it comes back into sight.
    Signal<> shown;

    void navigate(const HelpPlace& to);
    void back() { walk(-1); }
    void forward() { walk(1); }
    void restoreDesign();

private:
    void walk(int step);
    void show();

    std::vector<HelpPlace> way_;
    std::size_t at_ = 0;
};

}  // namespace gatehouse
