#include "window/dialogs/keyboard_dialog.h"

#include "platform/qt/shown_text.h"
#include "window/rules/key_rules.h"
#include "window/widgets/key_board.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kEdge = 16;
constexpr QSize kFrame{16, 48};  // what the window manager may draw around the dialog
constexpr QSize kSlack{2, 2};    // a scaled window may lose a pixel, which must not bring up scroll bars

}  // namespace

KeyboardDialog::KeyboardDialog(KeyRules& rules, QWidget* parent)
    : FormDialog("q3keyboard", rules.q3keyboard, parent), rules_(rules) {
    board_ = new KeyBoard([&rules](const KeyButton& button) { rules.keyButton_Click(button); });
    // Only a screen that is too small for the whole keyboard ever scrolls.
    room_ = new QScrollArea(this);
    room_->setFrameShape(QFrame::NoFrame);
    room_->setFocusPolicy(Qt::NoFocus);
    room_->setAlignment(Qt::AlignCenter);
    room_->setWidget(board_);
    connect(board_, &KeyBoard::reached, room_, [this](QWidget* button) { room_->ensureWidgetVisible(button); });

    auto* hint = new QLabel(tr("Grey keys are in use already: point at one to see by which action."), this);
    hint->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kEdge, kEdge, kEdge, kEdge);
    column->setSpacing(kEdge);
    column->addWidget(room_, 1);
    column->addWidget(hint);
    followForm();
}

void KeyboardDialog::comeUp() {
    setWindowTitle(shownTitle(rules_.caption));
    board_->showKeysInUse(rules_.inUse);
    ensurePolished();
    const QSize around = QSize(2 * kEdge, sizeHint().height() - room_->sizeHint().height()) + kSlack;
    const QSize most = screen()->availableSize() - kFrame;
    board_->fitInto(most - around);
    resize((board_->size() + around).boundedTo(most));
}

}  // namespace gatehouse
