#pragma once

#include "platform/dialogs.h"

#include <QString>

namespace gatehouse {

class QtEventLoop;

/// Boxes and file dialogs. Where nobody can answer (`interactive` false) a box is printed to standard error and
/// answered safely, and a file dialog is cancelled. Once the event loop has ended there is nobody to ask: what is on
/// show then, or comes after, leaves by `Shutdown`.
class QtDialogs : public Dialogs {
public:
    explicit QtDialogs(bool interactive, const QtEventLoop* events = nullptr)
        : interactive_(interactive), events_(events) {}

    bool canAsk() const override { return interactive_; }
    Answer show(const MessageBox& box) override;
    void showList(const ListBox& list) override;
    std::optional<std::string> openFile(const FileDialog& dialog) override;
    std::optional<std::string> saveFile(const FileDialog& dialog) override;
    std::optional<std::string> chooseFolder(const std::string& title, const std::string& startFolder) override;

private:
    std::optional<std::string> chooseFile(const FileDialog& dialog, bool saving);
    /// False, printed, where nobody can choose anything.
    bool canChoose(const std::string& title) const;
    /// True after a box that says why, if a path can't be what was asked for.
    bool refuses(const FileDialog& dialog, bool saving, const std::string& title, const std::string& path);

    void throwIfEnded() const;

    bool interactive_;
    const QtEventLoop* events_;
};

/// A filter of the form "Caption (*.a)|*.a|Other (*.b, *.c)|*.b;*.c" as the toolkit wants it, with all files behind.
QString toolkitFilter(const std::string& filter);

}  // namespace gatehouse
