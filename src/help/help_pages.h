#pragma once

#include "platform/resources.h"

#include <array>
#include <string>
#include <string_view>

namespace gatehouse {

/// The pages of the help by their places in the table: the first, then the start page of each mode, then the reference
/// of each frame. The names of the pages of frame 0 and 1 stand crossed; what they tell goes by the frame.
inline constexpr std::array<std::string_view, 15> kHelpPages = {
    "introduction.htm", "startconnect.htm", "startlisten.htm", "startded.htm",  "startbench.htm",
    "refservers.htm",   "refserver.htm",    "refmaps.htm",     "refplayer.htm", "refkeys.htm",
    "refbots.htm",      "refvideo.htm",     "reftweak1.htm",   "reftweak2.htm", "refbench.htm"};
inline constexpr int kFirstHelpPage = 0;
inline constexpr int kReferencePages = 5;  ///< the reference of a frame is this page plus the frame

/// The pages as they are written, before what they refer to is put in.
class HelpPages {
public:
    explicit HelpPages(const Resources& resources) : resources_(resources) {}

    /// Fails for a page that the table doesn't have.
    std::string source(int page) const;
    /// The heading of a page, as plain text.
    std::string title(int page) const;

private:
    const Resources& resources_;
};

}  // namespace gatehouse
