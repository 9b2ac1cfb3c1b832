#include "window/widgets/help_view.h"

#include "platform/qt/shown_text.h"
#include "window/rules/help_rules.h"
#include "window/widgets/follow.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QScrollBar>
#include <QTextBlock>

namespace gatehouse {

namespace {

constexpr int kMargin = 12;
constexpr int kLongestLine = 84;  // in letters: longer ones are hard to read

QString pageStyle(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    const QColor ground = palette.color(QPalette::Base);
    const auto mixed = [&](double share) {
        return QColor::fromRgbF(float(text.redF() * share + ground.redF() * (1 - share)),
                                float(text.greenF() * share + ground.greenF() * (1 - share)),
                                float(text.blueF() * share + ground.blueF() * (1 - share)))
            .name();
    };
    return QStringLiteral(
               "h1 { font-size: xx-large; margin-top: 0; margin-bottom: 8px; }"
               "h2 { font-size: x-large; margin-top: 20px; margin-bottom: 6px; }"
               "h3 { font-size: large; margin-top: 16px; margin-bottom: 4px; }"
               "p { margin-top: 0; margin-bottom: 9px; } li { margin-bottom: 5px; }"
               "small { color: %1; } a { color: %2; }")
        .arg(mixed(0.72), palette.color(QPalette::Link).name());
}

/// Where the anchor is in the text; the beginning if it isn't there.
QTextCursor cursorAt(QTextDocument& document, const QString& anchor) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (piece.fragment().charFormat().anchorNames().contains(anchor)) return QTextCursor(block);
    return QTextCursor(&document);
}

}  // namespace

HelpView::HelpView(HelpViewer& viewer, HelpRules& rules, QWidget* parent)
    : QTextBrowser(parent), viewer_(viewer), rules_(rules) {
    setAccessibleName(tr("Help"));
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    document()->setDocumentMargin(kMargin);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpView::follow);
    listen(this, viewer.shown, [this] { showPage(); });
    showPage();
}

QVariant HelpView::loadResource(int, const QUrl&) { return {}; }

void HelpView::showPage() {
    const HelpPlace& place = viewer_.place.get();
    if (place.page < 0) return;
    if (place.page != page_) {
        document()->setDefaultStyleSheet(pageStyle(palette()));
        setHtml(shown(rules_.book.html(place.page)));
        page_ = place.page;
    }
    showAnchor();
}

void HelpView::showAnchor() {
    const QString anchor = shown(viewer_.place.get().anchor);
    QTextCursor cursor = anchor.isEmpty() ? QTextCursor(document()) : cursorAt(*document(), anchor);
    // From its first words on, Tab goes to the next link: without a selection it would begin at the top of the page.
    QTextBlock::iterator words = cursor.block().begin();
    if (!anchor.isEmpty() && !words.atEnd()) {
        const int begin = words.fragment().position();
        const int weight = words.fragment().charFormat().fontWeight();
        int end = begin;
        for (; !words.atEnd() && words.fragment().charFormat().fontWeight() == weight; ++words)
            end = words.fragment().position() + words.fragment().length();
        cursor.setPosition(end);
        cursor.setPosition(begin, QTextCursor::KeepAnchor);
    }
    setTextCursor(cursor);
    // The paragraph itself stands at the top, with a little of what is above it.
    const QRectF place = document()->documentLayout()->blockBoundingRect(cursor.block());
    verticalScrollBar()->setValue(anchor.isEmpty() ? 0 : qMax(0, int(place.top()) - kMargin));
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(cursor.block());
    mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QColor ground = palette().color(QPalette::Highlight);
    ground.setAlpha(48);
    mark.format.setBackground(ground);
    setExtraSelections(anchor.isEmpty() ? QList<QTextEdit::ExtraSelection>() : QList{mark});
}

void HelpView::follow(const QUrl& link) {
    const std::string name = typedBytes(link.path());
    if (link.scheme() == "show") return rules_.showControl(name);
    if (link.scheme() == "topic") {
        if (const auto place = rules_.book.placeOf(name)) viewer_.navigate(*place);
        return;
    }
    if (link.scheme() == "https" || link.scheme() == "http") QDesktopServices::openUrl(link);
}

void HelpView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    const bool looks = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!looks || page_ < 0) return;
    const int scrolled = verticalScrollBar()->value();
    page_ = -1;
    showPage();
    verticalScrollBar()->setValue(scrolled);
}

void HelpView::resizeEvent(QResizeEvent* event) {
    fitLines();
    QTextBrowser::resizeEvent(event);
}

void HelpView::showEvent(QShowEvent* event) {
    QTextBrowser::showEvent(event);
    showAnchor();  // before, there was no layout to scroll in
}

void HelpView::fitLines() {
    const int longest = kLongestLine * fontMetrics().averageCharWidth() + 2 * kMargin;
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    setLineWrapColumnOrWidth(qMin(longest, viewport()->width()));
}

}  // namespace gatehouse
