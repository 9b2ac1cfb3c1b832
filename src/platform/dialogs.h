#pragma once

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Stop };
enum class Answer { Ok, Yes, No, Cancel, Other };

/// A modal box. Lines of the text are parted by CR LF; the text is plain text.
struct MessageBox {
    std::string title;
    std::string text;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    /// What is answered where nobody can: No or Cancel, for most questions.
    Answer safeAnswer = Answer::No;
    /// A No that loses something must be meant: neither Escape nor the close button of a Yes/No box stands for it.
    bool noLoses = false;
    /// What the text is about, in a line of its own below it, where the text itself doesn't say.
    std::string about = {};
    /// Caption of a further button, answered with `Other`.
    std::string other = {};
};

/// A file dialog. The filter has the form "Caption (*.a)|*.a|Other (*.b, *.c)|*.b;*.c".
struct FileDialog {
    std::string title;
    std::string filter;
    std::string startFolder;
    std::string fileName;
    /// A name to open that ends like this, in any case, is refused unless there is such a file to read.
    std::string mustExist = {};
    /// Any name is refused unless there is such a file to read.
    bool mustBeThere = false;
};

/// A list for a person to read and to copy. Plain text.
struct ListBox {
    std::string title;
    std::string text;  ///< what the list is about
    std::vector<std::string> lines;
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Whether there is somebody who can answer.
    virtual bool canAsk() const = 0;
    /// Shows the box and returns when it is answered.
    virtual Answer show(const MessageBox& box) = 0;
    /// Shows the list and returns when it is closed.
    virtual void showList(const ListBox& list) = 0;
    /// The chosen path, or nothing on cancel. Accepts a name that does not exist.
    virtual std::optional<std::string> openFile(const FileDialog& dialog) = 0;
    /// The chosen path, or nothing on cancel. Its folder exists, and its name has an ending of the chosen filter. Asks
    /// nothing about overwriting.
    virtual std::optional<std::string> saveFile(const FileDialog& dialog) = 0;
    /// The chosen folder with a backslash behind it, or nothing on cancel.
    virtual std::optional<std::string> chooseFolder(const std::string& title, const std::string& startFolder) = 0;
};

}  // namespace gatehouse
