#pragma once

#include "servers/server_entry.h"

namespace gatehouse {

/// Numbers by which whoever asks servers finds them again, wherever they stand by then.
class ServerNumbers {
public:
    explicit ServerNumbers(ServerTable& iplist) : iplist_(iplist) {}

    /// The number of the server in that row, which gets one if it has none. Fails for a row that isn't there.
    std::uint32_t of(int row) {
        if (iplist_.at(row).number == 0) iplist_.update(row, [this](ServerEntry& server) { server.number = ++last_; });
        return iplist_.at(row).number;
    }
    /// Where that server stands now; 0 if it is gone.
    int rowOf(std::uint32_t number) const {
        for (int row = 1; row <= iplist_.count(); ++row)
            if (iplist_.at(row).number == number) return row;
        return 0;
    }

private:
    ServerTable& iplist_;
    std::uint32_t last_ = 0;
};

}  // namespace gatehouse
