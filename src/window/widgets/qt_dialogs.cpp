#include "window/widgets/qt_dialogs.h"

#include "base/text.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/shown_text.h"
#include "window/widgets/list_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <system_error>

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

/// A box that only its buttons end.
class InsistingBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        const bool must = windowHandle() && windowHandle()->property(QtEventLoop::kMustClose).toBool();
        must ? QMessageBox::closeEvent(event) : event->ignore();
    }
};

/// A file dialog that stays open for a path that is refused.
class CheckedFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;
    std::function<bool(const QString& path)> refuses;

protected:
    void accept() override {
        const QStringList chosen = selectedFiles();
        if (chosen.isEmpty() || !refuses(chosen.constFirst())) QFileDialog::accept();
    }
};

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

bool isFolder(std::string_view native) {
    const auto found = resolveExisting(toProgramPath(native));
    std::error_code failed;
    return found && std::filesystem::is_directory(*found, failed);
}

bool isReadable(std::string_view native) {
    const auto found = resolveExisting(toProgramPath(native));
    return found && QFileInfo(pathShown(*found)).isReadable();
}

/// The name with the ending of the chosen filter, unless it fits the filter as it is.
std::string withEnding(const std::string& name, const QString& filter) {
    const QStringList patterns = filter.section('(', -1).chopped(1).split(' ', Qt::SkipEmptyParts);
    if (patterns.isEmpty() || QDir::match(patterns, pathShown(name))) return name;
    const QString& first = patterns.constFirst();
    return first.startsWith("*.") ? name + pathBytes(first.mid(1)) : name;
}

void startIn(QFileDialog& window, const std::string& programPath) {
    if (const auto folder = resolveExisting(programPath)) window.setDirectory(folderShown(*folder));
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
    const bool insists = box.noLoses && box.buttons == Buttons::YesNo;
    const std::unique_ptr<QMessageBox> made(insists ? new InsistingBox(frontWindow()) : new QMessageBox(frontWindow()));
    QMessageBox& window = *made;
    window.setIcon(iconOf(box.icon));
    window.setWindowTitle(shown(box.title));
    // Not as the toolkit's own second text, which takes what looks like markup for that.
    window.setText(boxText(box.about.empty() ? box.text : box.text + "\r\n\r\n" + box.about));
    window.setStandardButtons(buttonsOf(box.buttons));
    window.setTextFormat(Qt::PlainText);
    window.setObjectName(QStringLiteral("messageBox"));
    for (const ButtonAnswer& one : kAnswers)
        if (QAbstractButton* button = window.button(one.button)) button->setObjectName(QLatin1String(one.name));
    const QAbstractButton* other = nullptr;
    if (!box.other.empty()) {
        QPushButton* button = window.addButton(shown(box.other), QMessageBox::ActionRole);
        button->setObjectName(QStringLiteral("other"));
        other = button;
    }
    window.setDefaultButton(box.buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::Yes);
    window.setEscapeButton(escapeButton(box.buttons));
    const int pressed = window.exec();
    throwIfEnded();
    if (other && window.clickedButton() == other) return Answer::Other;
    for (const ButtonAnswer& one : kAnswers)
        if (pressed == one.button) return one.answer;
    return safeAnswer(box);  // the loop was ended from elsewhere
}

void QtDialogs::showList(const ListBox& list) {
    if (!interactive_) {
        for (const std::string& line : list.lines) print(list.title, line);
        return;
    }
    throwIfEnded();
    ListWindow(list, frontWindow()).exec();
    throwIfEnded();
}

void QtDialogs::throwIfEnded() const {
    if (events_ && events_->ended()) throw Shutdown{};
}

std::optional<std::string> QtDialogs::openFile(const FileDialog& dialog) { return chooseFile(dialog, false); }
std::optional<std::string> QtDialogs::saveFile(const FileDialog& dialog) { return chooseFile(dialog, true); }

std::optional<std::string> QtDialogs::chooseFile(const FileDialog& dialog, bool saving) {
    const std::string title = !dialog.title.empty() ? dialog.title : saving ? "Save" : "Open";
    if (!canChoose(title)) return std::nullopt;
    throwIfEnded();
    CheckedFileDialog window(frontWindow(), shown(title), QString(), toolkitFilter(dialog.filter));
    window.setObjectName(QStringLiteral("fileDialog"));
    // A name that does not exist is taken, and an existing one without a question: the caller asks about both. The
    // desktops' own dialogs insist.
    window.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    window.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(QFileDialog::AnyFile);
    window.refuses = [&](const QString& path) { return refuses(dialog, saving, title, pathBytes(path)); };

    const std::string preset = toNativePath(dialog.fileName);
    for (const std::string& path : {dialog.startFolder, toProgramPath(nativeFolder(preset))}) startIn(window, path);
    const std::string name = nativeName(preset);
    window.selectFile(shown(name));

    const bool accepted = window.exec() == QDialog::Accepted;
    throwIfEnded();
    if (!accepted || window.selectedFiles().isEmpty()) return std::nullopt;
    const QFileInfo chosen(QDir::cleanPath(window.selectedFiles().constFirst()));
    const std::string folder = pathBytes(chosen.path());
    const bool asPreset = chosen.fileName() == shown(name);
    // A preset name that isn't in UTF-8 comes back as it was.
    const std::string chosenName = asPreset && !chosen.exists() ? name : pathBytes(chosen.fileName());
    const std::string path = toProgramPath(joinNative(folder, chosenName));
    // The file in use keeps its name, whatever its ending.
    if (!saving || (asPreset && resolveExisting(path))) return path;
    return toProgramPath(joinNative(folder, withEnding(chosenName, window.selectedNameFilter())));
}

std::optional<std::string> QtDialogs::chooseFolder(const std::string& title, const std::string& startFolder) {
    if (!canChoose(title)) return std::nullopt;
    QFileDialog window(frontWindow(), shown(title));
    window.setObjectName(QStringLiteral("fileDialog"));
    window.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ShowDirsOnly);
    window.setFileMode(QFileDialog::Directory);
    startIn(window, startFolder);
    throwIfEnded();
    const bool accepted = window.exec() == QDialog::Accepted;
    throwIfEnded();
    if (!accepted || window.selectedFiles().isEmpty()) return std::nullopt;
    const std::string chosen = toProgramPath(pathBytes(QDir::cleanPath(window.selectedFiles().constFirst())));
    return chosen.ends_with('\\') ? chosen : chosen + '\\';
}

bool QtDialogs::canChoose(const std::string& title) const {
    if (!interactive_) print(title, "No file can be chosen without a display.");
    return interactive_;
}

bool QtDialogs::refuses(const FileDialog& dialog, bool saving, const std::string& title, const std::string& path) {
    const bool mustBeThere =
        dialog.mustBeThere || (!dialog.mustExist.empty() && endsWithNoCase(path, dialog.mustExist));
    std::string reason;
    if (saving && !isFolder(nativeFolder(path)))
        reason = "There is no folder " + nativeFolder(path);
    else if (!saving && mustBeThere && (!isReadable(path) || isFolder(path)))
        reason = "There is no file to read at " + path;
    if (reason.empty()) return false;
    show({.title = title, .text = reason + ".", .icon = Icon::Stop});
    return true;
}

}  // namespace gatehouse
