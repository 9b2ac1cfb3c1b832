#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace gatehouse {

// Texts are bytes inside and characters on the screen: Windows-1252, one byte one character.

/// What is shown of a text. Bytes that are valid UTF-8 beyond ASCII, such as a folder's name, are shown as that.
QString shown(std::string_view bytes);

/// The same for the title of a window, where the toolkit takes "[*]" for a mark of its own.
QString shownTitle(std::string_view bytes);

/// A text as bytes of Windows-1252. Characters that it doesn't have become "?".
std::string textBytes(const QString& text);

/// The same for what was typed into a line: control characters are dropped.
std::string typedBytes(const QString& text);

/// What was typed into a line that holds a path, as the system knows it: UTF-8, but Windows-1252 where the line held a
/// name in bytes that are no UTF-8 before, and the text can be told so.
std::string typedPathBytes(const QString& text, std::string_view before);

}  // namespace gatehouse
