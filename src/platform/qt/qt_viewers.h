#pragma once

#include "platform/qt/child_programs.h"
#include "platform/viewers.h"

namespace gatehouse {

/// Shows text files in the user's viewer. Where nobody can see one (not `interactive`), the path is printed.
class QtViewers : public Viewers {
public:
    explicit QtViewers(bool interactive) : interactive_(interactive) {}

    void viewText(const std::string& path) override;

private:
    bool interactive_;
    ChildPrograms viewers_;
};

}  // namespace gatehouse
