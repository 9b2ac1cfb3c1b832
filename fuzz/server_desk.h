#pragma once

#include "servers/filesmisc.h"
#include "servers/status_query.h"

#include "base/text.h"
#include "fuzz.h"
#include "support/core/fakes.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace gatehouse::fuzz {

inline constexpr int kServerColumns = 8;

/// The table of servers with its file and its query over fake services; every box is answered with OK.
struct ServerDesk {
    ServerDesk() {
        ghcdir.setText("C:\\gh\\");
        world.files.addFolder(ghcdir.text());
        world.dialogs.onShow = [this](const MessageBox& box) { world.dialogs.answer(box.title, Answer::Ok); };
    }

    void load(const std::string& text) {
        std::string name = "mine.ghs";
        world.files.put(ghcdir.text() + name, text);
        lists.LoadServerList(name);
    }
    std::string save() {
        lists.SaveServerList("mine.ghs");
        return world.files.content(ghcdir.text() + "mine.ghs");
    }

    std::vector<std::string> columnsOf(int position) const {
        std::vector<std::string> all;
        for (int column = 0; column < kServerColumns; ++column)
            all.push_back(serverColumn(iplist.at(position), column));
        return all;
    }

    /// Nothing is awaited, and the commands that need rows can run if there are any.
    bool idle() const {
        const bool rows = !iplist.empty();
        return query.QueryRow == 0 && !world.socket.open && flags.tbservers[3].get() == rows &&
               flags.tbservers[4].get() == rows;
    }
    /// As time goes by nothing more happens.
    bool staysIdle() {
        const std::size_t before = world.log.lines.size();
        world.events.advance(std::numeric_limits<int>::max());
        return idle() && world.log.lines.size() == before;
    }

    fake::World world;
    RunState& run = world.run;
    CommandFlags& flags = world.flags;
    ModTable mods;
    FieldGroup group{"options"};
    TextField ghcdir{group, {.name = "ghcdir"}};
    TextField q3pingwait{group, {.name = "q3pingwait"}, "3"};
    ServerTable iplist;
    ServerLists lists{world.ground, ghcdir, iplist};
    ServerNumbers numbers{iplist};
    StatusQuery query{{world.ground, world.socket, world.clock, iplist, numbers, mods, q3pingwait}};
};

inline bool isOneLine(const std::string& text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) < 0x20) return false;
    return true;
}

/// Ends the process unless all columns of all rows are one line, and the saved list has one for each row.
inline void requireOneLineEach(ServerDesk& desk) {
    static const std::size_t headerLines = splitLines(ServerDesk().save()).size();
    for (int position = 1; position <= desk.iplist.count(); ++position)
        for (const std::string& text : desk.columnsOf(position)) require(isOneLine(text), "a row is one line");
    require(splitLines(desk.save()).size() == headerLines + static_cast<std::size_t>(desk.iplist.count()),
            "a saved list has a line for each row");
}

}  // namespace gatehouse::fuzz
