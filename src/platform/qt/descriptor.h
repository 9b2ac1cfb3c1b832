#pragma once

#include <dirent.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace gatehouse {

/// Owner of an open file descriptor.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    explicit operator bool() const { return number_ >= 0; }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }

private:
    int number_;
};

struct FolderCloser {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using FolderStream = std::unique_ptr<DIR, FolderCloser>;

}  // namespace gatehouse
