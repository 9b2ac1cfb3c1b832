#pragma once

#include "platform/qt/native_paths.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace gatehouse::testing {

/// A folder of its own for one test, gone afterwards.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "gatehouse-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no scratch folder");
        root_ = name;
        ::chmod(name.c_str(), 0777);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        namespace fs = std::filesystem;
        std::error_code ignored;
        // A folder that a test has closed is opened before the walk goes into it.
        for (const auto& entry : fs::recursive_directory_iterator(root_))
            if (!entry.is_symlink() && entry.is_directory())
                fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        fs::remove_all(root_, ignored);
    }

    std::string native(const std::string& name = "") const { return joinNative(root_, name); }
    /// In the program's form; `name` may hold backslashes.
    std::string path(const std::string& name = "") const { return toProgramPath(root_) + "\\" + name; }

    void put(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(std::filesystem::path(native(name)).parent_path());
        std::ofstream(native(name), std::ios::binary) << content;
    }
    void makeFolder(const std::string& name) const { std::filesystem::create_directories(native(name)); }
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, native(name));
    }
    std::string content(const std::string& name) const {
        std::ifstream file(native(name), std::ios::binary);
        if (!file) return "<missing>";
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    bool has(const std::string& name) const {
        return std::filesystem::exists(std::filesystem::symlink_status(native(name)));
    }

private:
    std::string root_;
};

/// Gives up the rights of the superuser for a while, so that permissions count.
class OrdinaryUser {
public:
    OrdinaryUser() : before_(::geteuid()) {
        constexpr uid_t kNobody = 65534;
        if (before_ == 0 && ::seteuid(kNobody) != 0) throw std::runtime_error("can't change the user");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(before_), 0); }

private:
    uid_t before_;
};

}  // namespace gatehouse::testing
