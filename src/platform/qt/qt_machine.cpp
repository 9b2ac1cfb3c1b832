#include "platform/qt/qt_machine.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QSysInfo>

#include <sys/utsname.h>

namespace gatehouse {

namespace {

constexpr qint64 kLargestFile = 8 << 20;

QStringList linesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.read(kLargestFile)).split('\n');
}

/// What stands behind the mark in the first line that begins with `key`.
QString valueOf(const QStringList& lines, const QString& key, QChar mark) {
    for (const QString& line : lines)
        if (line.startsWith(key)) return line.section(mark, 1).trimmed();
    return {};
}

/// "10DE:1C03" by the names that the system keeps of such numbers; empty where it keeps none.
QString nameOfDevice(const QString& id) {
    const QString vendor = id.section(':', 0, 0).toLower();
    const QString device = '\t' + id.section(':', 1, 1).toLower() + "  ";
    for (const char* path : {"/usr/share/misc/pci.ids", "/usr/share/hwdata/pci.ids"}) {
        QString vendorName;
        for (const QString& line : linesOf(path)) {
            if (vendorName.isEmpty() && line.startsWith(vendor + "  "))
                vendorName = line.mid(vendor.size()).trimmed();
            else if (!vendorName.isEmpty() && line.startsWith(device))
                return vendorName + ' ' + line.mid(device.size()).trimmed();
            else if (!vendorName.isEmpty() && !line.startsWith('\t'))
                break;
        }
    }
    return {};
}

QString graphics() {
    QStringList adapters;
    const QDir drm("/sys/class/drm");
    for (const QString& card : drm.entryList({"card?", "card??"}, QDir::AllEntries, QDir::Name)) {
        const QStringList event = linesOf(drm.filePath(card + "/device/uevent"));
        const QString driver = valueOf(event, "DRIVER=", '=');
        const QString id = valueOf(event, "PCI_ID=", '=');
        const QString name = id.isEmpty() ? QString() : nameOfDevice(id);
        const QString shown = !name.isEmpty() ? name : id;
        if (!shown.isEmpty() || !driver.isEmpty())
            adapters += driver.isEmpty() ? shown : (shown + " (" + driver + ')').trimmed();
    }
    return adapters.join(", ");
}

}  // namespace

MachineInfo QtMachine::info() const {
    QString processor = valueOf(linesOf("/proc/cpuinfo"), "model name", ':');
    if (processor.isEmpty()) processor = QSysInfo::currentCpuArchitecture();
    utsname system{};
    ::uname(&system);
    return {processor.toStdString(), graphics().toStdString(),
            std::string(system.sysname) + " " + system.release + " " + system.machine};
}

}  // namespace gatehouse
