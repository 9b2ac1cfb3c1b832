#include "window/widgets/key_board.h"

#include "platform/qt/shown_text.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QPushButton>

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kKey = 4;            // quarters of a key: the unit of all places
constexpr int kGap = 4;             // pixels between two keys
constexpr double kCapFont = 0.92;   // of the dialog's
constexpr double kLeastFont = 0.7;  // where the screen has no room for more
constexpr double kFontStep = 0.04;
constexpr double kCapHeight = 2.4;  // lines of text

/// One key in a row; without a button's name, a gap.
struct Cap {
    std::string_view button;
    int width = kKey;
    int height = kKey;
};

/// Rows of keys below each other; each is a key high.
struct Block {
    int left;
    int top;
    std::vector<std::vector<Cap>> rows;
};

/// The only place that says where a key is. A full row of the main block is 15 keys wide.
const std::vector<Block>& layoutPlan() {
    static const std::vector<Block> plan{
        {0, 0,
         {{{"f1"}, {"f2"}, {"f3"}, {"f4"}, {"", 6}, {"f5"}, {"f6"}, {"f7"}, {"f8"}, {"", 6}, {"f9"}, {"f10"}, {"f11"},
           {"f12"}}}},
        {0, 5,
         {{{"tilde"}, {"k1"}, {"k2"}, {"k3"}, {"k4"}, {"k5"}, {"k6"}, {"k7"}, {"k8"}, {"k9"}, {"k0"}, {"minus"},
           {"equals"}, {"backspace", 8}},
          {{"tab", 6}, {"kq"}, {"kw"}, {"ke"}, {"kr"}, {"kt"}, {"ky"}, {"ku"}, {"ki"}, {"ko"}, {"kp"}, {"leftsquare"},
           {"rightsquare"}, {"backslash", 6}},
          {{"capslock", 7}, {"ka"}, {"ks"}, {"kd"}, {"kf"}, {"kg"}, {"kh"}, {"kj"}, {"kk"}, {"kl"}, {"semicolon"},
           {"quote"}, {"enter", 9}},
          {{"leftshift", 9}, {"kz"}, {"kx"}, {"kc"}, {"kv"}, {"kb"}, {"kn"}, {"km"}, {"comma"}, {"period"},
           {"forwardslash"}, {"rightshift", 11}},
          {{"leftctrl", 6}, {"", 4}, {"leftalt", 6}, {"space", 28}, {"rightalt", 6}, {"", 4}, {"rightctrl", 6}}}},
        {62, 5,
         {{{"insert"}, {"home"}, {"pageup"}},
          {{"delete"}, {"end"}, {"pagedown"}},
          {},
          {{"", 4}, {"arrowup"}},
          {{"arrowleft"}, {"arrowdown"}, {"arrowright"}}}},
        {76, 5,
         {{{"numlock"}, {"nforwardslash"}, {"nasterisk"}, {"nminus"}},
          {{"n7"}, {"n8"}, {"n9"}, {"nplus", kKey, 2 * kKey}},
          {{"n4"}, {"n5"}, {"n6"}},
          {{"n1"}, {"n2"}, {"n3"}, {"nenter", kKey, 2 * kKey}},
          {{"n0", 8}, {"ndel"}}}},
        {7, 27, {{{"mouse1", 6}, {"mouse3", 6}, {"mouse2", 6}, {"", 2}, {"mwheelup", 10}, {"mwheeldown", 10}}}},
        {76, 27, {{{"nothing", 16}}}},
    };
    return plan;
}

constexpr QRect kMouseTitle{0, 27, 7, kKey};

QString plainTip(const QString& text) { return "<qt>" + text.toHtmlEscaped() + "</qt>"; }

QColor halfWay(const QColor& one, const QColor& other) {
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2};
}

/// How far apart two stretches of a line are; 0 if they overlap.
int distance(int first1, int last1, int first2, int last2) {
    return std::max({0, first2 - last1, first1 - last2});
}

}  // namespace

KeyBoard::KeyBoard(std::function<void(const KeyButton&)> press, QWidget* parent)
    : QWidget(parent), press_(std::move(press)), fontScale_(kCapFont) {
    for (const Block& block : layoutPlan()) {
        int y = block.top;
        for (const std::vector<Cap>& row : block.rows) {
            int x = block.left;
            for (const Cap& cap : row) {
                if (!cap.button.empty()) add(makeButton(keyButton(cap.button)), {x, y, cap.width, cap.height});
                x += cap.width;
            }
            y += kKey;
        }
    }
    auto* mouse = new QLabel(tr("Mouse:"), this);
    mouse->setTextFormat(Qt::PlainText);
    add(mouse, kMouseTitle);
    arrange();
    tone();
}

QPushButton* KeyBoard::makeButton(const KeyButton& key) {
    auto* button = new QPushButton(shown(key.caption), this);
    button->setObjectName(shown(key.name));
    button->setAccessibleName(shown(key.label));
    button->installEventFilter(this);
    connect(button, &QPushButton::clicked, this, [this, &key] { press_(key); });
    caps_.push_back({button, key});
    return button;
}

void KeyBoard::fitInto(const QSize& room) {
    ensurePolished();
    fontScale_ = kCapFont;
    arrange();
    while ((width() > room.width() || height() > room.height()) && fontScale_ > kLeastFont) {
        fontScale_ -= kFontStep;
        arrange();
    }
}

void KeyBoard::arrange() {
    QFont capFont = font();
    if (capFont.pointSizeF() > 0)
        capFont.setPointSizeF(capFont.pointSizeF() * fontScale_);
    else
        capFont.setPixelSize(static_cast<int>(capFont.pixelSize() * fontScale_));
    const QFontMetrics metrics(capFont);
    const int air = metrics.averageCharWidth();
    double quarterWidth = 1;
    for (const Placed& one : placed_) {
        one.widget->setFont(capFont);
        const auto* button = qobject_cast<QPushButton*>(one.widget);
        if (!button) continue;
        const double needed = metrics.horizontalAdvance(button->text()) + air + kGap;
        quarterWidth = std::max(quarterWidth, needed / one.place.width());
    }
    const double quarterHeight = (metrics.height() * kCapHeight + kGap) / kKey;
    int right = 0;
    int bottom = 0;
    for (const Placed& one : placed_) {
        const QRect& place = one.place;
        // From edge to edge, so that what is rounded never adds up.
        const QRect rect(QPoint(qRound(place.left() * quarterWidth), qRound(place.top() * quarterHeight)),
                         QPoint(qRound((place.right() + 1) * quarterWidth) - kGap - 1,
                                qRound((place.bottom() + 1) * quarterHeight) - kGap - 1));
        one.widget->setGeometry(rect);
        right = std::max(right, rect.right() + 1);
        bottom = std::max(bottom, rect.bottom() + 1);
    }
    setFixedSize(right, bottom);
}

void KeyBoard::tone() {
    QPalette tones = palette();
    const QColor ink = tones.color(QPalette::Active, QPalette::ButtonText);
    const QColor ground = tones.color(QPalette::Active, QPalette::Button);
    tones.setColor(QPalette::Disabled, QPalette::ButtonText, halfWay(ink, ground));
    for (const KeyCap& cap : caps_) cap.button->setPalette(tones);
}

void KeyBoard::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
    if (event->type() == QEvent::PaletteChange) tone();
}

void KeyBoard::showKeysInUse(const KeyRules::KeysInUse& inUse) {
    for (const KeyCap& cap : caps_) {
        const auto taken = inUse.find(cap.key.name);
        const QString use = taken == inUse.end() ? QString() : tr("In use: %1").arg(shown(taken->second));
        cap.button->setEnabled(use.isEmpty());
        cap.button->setAccessibleDescription(use);
        const QString label = shown(cap.key.label);
        const QString tip = use.isEmpty() ? label : label + ". " + use;
        cap.button->setToolTip(tip == cap.button->text() ? QString() : plainTip(tip));
    }
    const auto first =
        std::find_if(caps_.begin(), caps_.end(), [](const KeyCap& cap) { return cap.button->isEnabled(); });
    if (first != caps_.end()) reach(first->button);
}

void KeyBoard::reach(QPushButton* button) {
    button->setFocus(Qt::OtherFocusReason);
    Q_EMIT reached(button);
}

bool KeyBoard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto* from = qobject_cast<QPushButton*>(watched);
    switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // The key that has opened the keyboard may still be down.
            return key->isAutoRepeat();
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (QPushButton* next = neighbour(*from, key->key())) reach(next);
            return true;
        default: break;
    }
    QPushButton* named = key->modifiers() & Qt::ControlModifier ? nullptr : withCaption(key->text());
    if (!named) return QWidget::eventFilter(watched, event);
    reach(named);
    return true;
}

QPushButton* KeyBoard::withCaption(const QString& typed) const {
    for (const KeyCap& cap : caps_)
        if (cap.button->isEnabled() && cap.button->text().compare(typed, Qt::CaseInsensitive) == 0) return cap.button;
    return nullptr;
}

QPushButton* KeyBoard::neighbour(const QWidget& from, int arrow) const {
    const bool sideways = arrow == Qt::Key_Left || arrow == Qt::Key_Right;
    const bool forward = arrow == Qt::Key_Right || arrow == Qt::Key_Down;
    const QRect here = from.geometry();
    QPushButton* best = nullptr;
    std::tuple<bool, int, int> least;
    for (const KeyCap& cap : caps_) {
        if (!cap.button->isEnabled()) continue;
        const QRect there = cap.button->geometry();
        const QPoint way = there.center() - here.center();
        const int apartX = distance(here.left(), here.right(), there.left(), there.right());
        const int apartY = distance(here.top(), here.bottom(), there.top(), there.bottom());
        const int along = sideways ? apartX : apartY;
        const int aside = sideways ? apartY : apartX;
        if (along == 0 || forward != ((sideways ? way.x() : way.y()) > 0)) continue;
        // Any key straight ahead comes before one aside; of several equally far, the one in the middle.
        const std::tuple cost{aside > 0, along + aside, qAbs(sideways ? way.y() : way.x())};
        if (best && cost >= least) continue;
        least = cost;
        best = cap.button;
    }
    return best;
}

}  // namespace gatehouse
