#pragma once

#include "startup/gatehouse.h"
#include "support/core/fakes.h"

#include <string>

namespace gatehouse::fake {

/// A world with a game, a second mod, and the files of a program that was used before, ready to be started.
struct UsedWorld : World {
    UsedWorld() {
        for (const char* file : {"aliases.txt", "default.ghs", "usermaps.txt", "usermdls.txt"})
            files.put(std::string("C:\\gh\\") + file, "");
        files.put("C:\\gh\\mods\\00-baseq3.ghm",
                  "name Quake 3: Arena\r\ndir baseq3\r\ngtype 0 Free For All\r\ngtype 1 Tournament\r\n"
                  "gtype 3 Teamplay\r\ngtype 4 CTF!\r\n");
        files.put("C:\\gh\\mods\\01-other.ghm",
                  "name Other\r\ndir other\r\ngtype 0 Melee\r\ngtype 3 Teams\r\nkeys 1\r\nkey Jump\r\ncmd +jump\r\n");
        files.put("C:\\Q3\\quake3.exe", "");
        files.put("C:\\Q3\\baseq3\\q3config.cfg", "");
        files.addFolder("C:\\Q3\\other");
        settings.values = {{"exepath", "C:\\Q3\\quake3.exe"},
                           {"basedir", "C:\\Q3\\"},
                           {"ghcdir", "C:\\gh\\"},
                           {"ghversion", "00.03.03"}};
    }
};

}  // namespace gatehouse::fake
