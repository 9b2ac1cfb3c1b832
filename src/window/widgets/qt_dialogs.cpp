#include "window/widgets/qt_dialogs.h"

#include "base/text.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/shown_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <iostream>

namespace gatehouse {

namespace {

struct ButtonAnswer {
    QMessageBox::StandardButton button;
    Answer answer;
    const char* name;
};

constexpr ButtonAnswer kAnswers[] = {{QMessageBox::Ok, Answer::Ok, "ok"},
                                     {QMessageBox::Yes, Answer::Yes, "yes"},
                                     {QMessageBox::No, Answer::No, "no"},
                                     {QMessageBox::Cancel, Answer::Cancel, "cancel"}};

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Stop:
            return QMessageBox::Critical;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

Answer safeAnswer(const MessageBox& box) {
    if (box.buttons == Buttons::Ok) return Answer::Ok;
    // A question without that button is refused.
    return box.buttons == Buttons::YesNo && box.safeAnswer != Answer::Yes ? Answer::No : box.safeAnswer;
}

QMessageBox::StandardButton escapeButton(Buttons buttons) {
    if (buttons == Buttons::Ok) return QMessageBox::Ok;
    return buttons == Buttons::YesNo ? QMessageBox::No : QMessageBox::Cancel;
}

/// What fits on a screen: a text may quote a line of a damaged file.
QString boxText(const std::string& text) {
    constexpr std::size_t kLongestText = 4000;
    const std::string cutOff = text.size() > kLongestText ? left(text, kLongestText) + "..." : text;
    return shown(cutOff).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// The window that a new one belongs to.
QWidget* frontWindow() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QString pathShown(const std::string& native) { return QFile::decodeName(QByteArray::fromStdString(native)); }
std::string pathBytes(const QString& path) { return QFile::encodeName(path).toStdString(); }

/// The folder, or the nearest one above it, that the toolkit can name: it knows names in UTF-8 only.
QString folderShown(std::string native) {
    while (pathBytes(pathShown(native)) != native) native = nativeFolder(native);
    return pathShown(native);
}

/// Prints the lines without what a terminal would obey.
void print(const std::string& title, const std::string& text) {
    for (const std::string& line : splitLines(text)) {
        if (trim(line).empty()) continue;
        QString printed = shown(title) + QStringLiteral(": ") + shown(line);
        printed.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
        std::cerr << printed.toStdString() << '\n';
    }
}

}  // namespace

QString toolkitFilter(const std::string& filter) {
    QStringList filters;
    const QStringList parts = shown(filter).split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString caption = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        filters +=
            QStringLiteral("%1 (%2)").arg(caption, QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));
    }
#ifndef Q_OS_WIN
    filters += QStringLiteral("All files (*)");
#endif
    return filters.join(QStringLiteral(";;"));
}

Answer QtDialogs::show(const MessageBox& box) {
    if (!interactive_) {
        print(box.title, box.text);
        return safeAnswer(box);
    }
    throwIfEnded();
    QMessageBox window(iconOf(box.icon), shown(box.title), boxText(box.text), buttonsOf(box.buttons), frontWindow());
    window.setTextFormat(Qt::PlainText);
    window.setObjectName(QStringLiteral("messageBox"));
    for (const ButtonAnswer& one : kAnswers)
        if (QAbstractButton* button = window.button(one.button)) button->setObjectName(QLatin1String(one.name));
    window.setDefaultButton(box.buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::Yes);
    window.setEscapeButton(escapeButton(box.buttons));
    const int pressed = window.exec();
    throwIfEnded();
    for (const ButtonAnswer& one : kAnswers)
        if (pressed == one.button) return one.answer;
    return safeAnswer(box);  // the loop was ended from elsewhere
}

void QtDialogs::throwIfEnded() const {
    if (events_ && events_->ended()) throw Shutdown{};
}

std::optional<std::string> QtDialogs::openFile(const FileDialog& dialog) { return chooseFile(dialog, false); }
std::optional<std::string> QtDialogs::saveFile(const FileDialog& dialog) { return chooseFile(dialog, true); }

std::optional<std::string> QtDialogs::chooseFile(const FileDialog& dialog, bool saving) const {
    const std::string title = !dialog.title.empty() ? dialog.title : saving ? "Save" : "Open";
    if (!interactive_) {
        print(title, "No file can be chosen without a display.");
        return std::nullopt;
    }
    throwIfEnded();
    QFileDialog window(frontWindow(), shown(title), QString(), toolkitFilter(dialog.filter));
    window.setObjectName(QStringLiteral("fileDialog"));
    // A name that does not exist is taken, and an existing one without a question: the caller asks about both. The
    // desktops' own dialogs insist.
    window.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    window.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(QFileDialog::AnyFile);

    const std::string preset = toNativePath(dialog.fileName);
    for (const std::string& path : {dialog.startFolder, toProgramPath(nativeFolder(preset))})
        if (const auto folder = resolveExisting(path)) window.setDirectory(folderShown(*folder));
    const std::string name = nativeName(preset);
    window.selectFile(shown(name));

    const bool accepted = window.exec() == QDialog::Accepted;
    throwIfEnded();
    if (!accepted || window.selectedFiles().isEmpty()) return std::nullopt;
    const QFileInfo chosen(QDir::cleanPath(window.selectedFiles().constFirst()));
    // A preset name that isn't in UTF-8 comes back as it was.
    const bool asPreset = chosen.fileName() == shown(name) && !chosen.exists();
    const std::string chosenName = asPreset ? name : pathBytes(chosen.fileName());
    return toProgramPath(joinNative(pathBytes(chosen.path()), chosenName));
}

}  // namespace gatehouse
