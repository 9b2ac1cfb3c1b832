#include "help/help_viewer.h"

namespace gatehouse {

void HelpViewer::navigate(const HelpPlace& to) {
    if (way_.empty() || way_[at_] != to) {
        if (!way_.empty()) way_.resize(at_ + 1);  // what was gone back from is given up
        way_.push_back(to);
        at_ = way_.size() - 1;
    }
    show();
}

void HelpViewer::walk(int step) {
    if (step < 0 ? !canGoBack.get() : !canGoForward.get()) return;
    at_ = step < 0 ? at_ - 1 : at_ + 1;
    show();
}

void HelpViewer::show() {
    canGoBack.set(at_ > 0);
    canGoForward.set(at_ + 1 < way_.size());
    place.set(way_[at_]);
    shown.emit();
}

void HelpViewer::restoreDesign() {
    way_.clear();
    at_ = 0;
    canGoBack.set(false);
    canGoForward.set(false);
    place.set({});
}

}  // namespace gatehouse
