#include "window/widgets/console_panel.h"

#include "platform/qt/shown_text.h"
#include "startup/views.h"
#include "window/widgets/follow.h"
#include "window/widgets/twips.h"

#include <QFontDatabase>

namespace gatehouse {

ConsolePanel::ConsolePanel(Observable<std::string>& text, Observable<bool>& onShow, QWidget* parent)
    : QPlainTextEdit(parent), text_(text) {
    setObjectName("q3console");
    setAccessibleName(tr("Console"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFixedHeight(pixels(MainView::kHeightWithConsole - MainView::kHeight));
    follow(this, onShow, [this](bool on) {
        setVisible(on);
        refresh();
    });
    listen(this, text_.changed, [this] { refresh(); });
}

void ConsolePanel::refresh() {
    // The log grows by hundreds of lines while nobody can see it.
    if (isHidden()) return;
    setPlainText(shown(text_.get()));
    moveCursor(QTextCursor::End);
}

void ConsolePanel::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    ensureCursorVisible();
}

}  // namespace gatehouse
