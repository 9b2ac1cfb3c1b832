#include "platform/clock.h"

#include "base/text.h"

namespace gatehouse {

std::string dateTimeText(const DateTime& time) {
    return zeroPadded(time.year, 4) + "-" + zeroPadded(time.month, 2) + "-" + zeroPadded(time.day, 2) + " " +
           zeroPadded(time.hour, 2) + ":" + zeroPadded(time.minute, 2) + ":" + zeroPadded(time.second, 2);
}

std::string dateTimeStamp(const DateTime& time) {
    return zeroPadded(time.year, 4) + zeroPadded(time.month, 2) + zeroPadded(time.day, 2) + zeroPadded(time.hour, 2) +
           zeroPadded(time.minute, 2) + zeroPadded(time.second, 2);
}

}  // namespace gatehouse
