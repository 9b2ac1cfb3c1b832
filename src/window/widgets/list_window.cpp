#include "window/widgets/list_window.h"

#include "platform/dialogs.h"
#include "platform/qt/shown_text.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kLetters = 90;
constexpr int kLines = 14;

QPlainTextEdit* makeText(const ListBox& list, QWidget* parent) {
    QStringList lines;
    for (const std::string& line : list.lines) lines += shown(line);
    auto* text = new QPlainTextEdit(lines.join('\n'), parent);
    text->setObjectName("lines");
    text->setReadOnly(true);
    // A line that is read by keyboard needs a cursor.
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    const QFontMetrics letters = text->fontMetrics();
    text->setMinimumSize(kLetters * letters.averageCharWidth() / 2, kLines * letters.lineSpacing() / 2);
    return text;
}

}  // namespace

ListWindow::ListWindow(const ListBox& list, QWidget* parent) : QDialog(parent) {
    setObjectName("listBox");
    setWindowTitle(shownTitle(list.title));
    QPlainTextEdit* text = makeText(list, this);
    auto* about = new QLabel(shown(list.text), this);
    about->setTextFormat(Qt::PlainText);
    about->setBuddy(text);
    text->setAccessibleName(about->text());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName("copy");
    connect(copy, &QPushButton::clicked, text, [text] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &ListWindow::reject);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    close->setObjectName("close");
    close->setDefault(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addWidget(about);
    column->addWidget(text, 1);
    column->addWidget(buttons);
    const QFontMetrics letters = fontMetrics();
    resize(kLetters * letters.averageCharWidth(), kLines * letters.lineSpacing());
    close->setFocus();
}

}  // namespace gatehouse
