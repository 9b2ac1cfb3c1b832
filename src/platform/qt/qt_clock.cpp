#include "platform/qt/qt_clock.h"

#include <QDateTime>

namespace gatehouse {

double QtClock::tickCount() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
}

DateTime QtClock::now() const {
    const QDateTime time = QDateTime::currentDateTime();
    return {time.date().year(), time.date().month(),  time.date().day(),
            time.time().hour(), time.time().minute(), time.time().second()};
}

}  // namespace gatehouse
