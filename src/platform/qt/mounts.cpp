#include "platform/qt/mounts.h"

#include <array>
#include <algorithm>
#include <fstream>
#include <sstream>
#include <string_view>

namespace gatehouse {

namespace {

constexpr std::array<std::string_view, 46> kForeignTypes{
    // made up by the system
    "proc", "sysfs", "devtmpfs", "devpts", "cgroup", "cgroup2", "securityfs", "debugfs", "tracefs", "configfs",
    "pstore", "bpf", "mqueue", "hugetlbfs", "fusectl", "binfmt_misc", "efivarfs", "selinuxfs", "nsfs", "rpc_pipefs",
    "autofs", "fuse.gvfsd-fuse", "fuse.portal", "fuse.lxcfs",
    // of other machines
    "nfs", "nfs4", "cifs", "smb3", "smbfs", "afs", "ceph", "coda", "9p", "lustre", "glusterfs", "fuse", "fuse.sshfs",
    "fuse.rclone", "fuse.davfs", "fuse.davfs2", "fuse.s3fs", "fuse.curlftpfs", "fuse.glusterfs", "fuse.ceph-fuse",
    "fuse.smbnetfs", "fuse.google-drive-ocamlfuse"};

/// Blanks, tabs, line ends and backslashes stand as `\` and three octal digits.
std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view digits = text.substr(i + 1 < text.size() ? i + 1 : text.size(), 3);
        const bool code = text[i] == '\\' && digits.size() == 3 &&
                          std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '7'; });
        if (!code) {
            result += text[i];
            continue;
        }
        result += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
        i += 3;
    }
    return result;
}

}  // namespace

std::set<std::string> foreignMounts() {
    std::ifstream file("/proc/self/mountinfo");
    std::ostringstream text;
    text << file.rdbuf();
    return foreignMounts(text.str());
}

std::set<std::string> foreignMounts(const std::string& mountInfo) {
    std::set<std::string> result;
    std::istringstream lines(mountInfo);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string field;
        std::string place;
        for (int i = 0; i < 5; ++i) fields >> place;
        while (fields >> field && field != "-") {
        }
        std::string type;
        if (!(fields >> type)) continue;
        place = unescaped(place);
        // Mounts can lie on top of each other; the last one is what is seen.
        result.erase(place);
        if (std::find(kForeignTypes.begin(), kForeignTypes.end(), type) != kForeignTypes.end()) result.insert(place);
    }
    return result;
}

}  // namespace gatehouse
