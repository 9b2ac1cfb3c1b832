#include "startup/version.h"

#include "base/text.h"

namespace gatehouse {

std::string versionString() {
    return zeroPadded(GATEHOUSE_VERSION_MAJOR, 2) + "." + zeroPadded(GATEHOUSE_VERSION_MINOR, 2) + "." +
           zeroPadded(GATEHOUSE_VERSION_REVISION, 2);
}

}  // namespace gatehouse
