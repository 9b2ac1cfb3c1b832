#include "window/widgets/binders.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "platform/qt/guarded_application.h"
#include "platform/qt/shown_text.h"
#include "window/widgets/follow.h"
#include "window/widgets/spin_text.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include <limits>

namespace gatehouse {

namespace {

void bindStates(QWidget& widget, Field& field) {
    follow(&widget, field.enabled, [&widget](bool enabled) { widget.setEnabled(enabled); });
    // A widget is on show with its parent unless told otherwise; to show it here could make it a window of its own.
    if (!field.visible.get()) widget.hide();
    listen(&widget, field.visible.changed, [&widget, &field] { widget.setVisible(field.visible.get()); });
}

void bindCommon(QWidget& widget, Field& field) {
    widget.setObjectName(shown(field.spec().name));
    showHint(widget, field);
    bindStates(widget, field);
}

/// Shows the field's value now and after each change.
template <class Show>
void followValue(QWidget& widget, Field& field, Show show) {
    show();
    listen(&widget, field.changed, std::move(show));
}

/// Leaves the keys of undo and redo to the program: a line's own would undo letters, and know nothing of the rest.
class ProgramUndo : public QObject {
public:
    explicit ProgramUndo(QLineEdit* line) : QObject(line) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
    }
};

bool isWholeNumber(const std::string& text) {
    try {
        strictInt16(text);
        return true;
    } catch (const RuntimeFailure&) {
        return false;
    }
}

void showText(QLineEdit& line, const TextField& field) {
    const QString text = shown(field.text());
    if (line.text() != text) line.setText(text);
}

/// Hands a line's text to its field.
void take(const QString& text, TextField& field, Typed typed) {
    // Bytes that show alike stay as they are: only what differs on the screen was typed.
    if (text == shown(field.text())) return;
    const std::string bytes = field.spec().isPath ? typedPathBytes(text, field.text()) : typedBytes(text);
    if (typed == Typed::Number && !isWholeNumber(bytes)) return;
    if (typed == Typed::Decimal && !parseDecimal(bytes)) return;
    field.edit([&field, &bytes] { field.setText(bytes); });
}

/// `widget` is the line itself, or what it is a part of.
template <class Widget>
void bindText(Widget& widget, QLineEdit& line, TextField& field, Typed typed) {
    bindCommon(widget, field);
    widget.setAccessibleName(shown(field.title()));
    // A document may hold a text of any length; the line must not cut it.
    line.setMaxLength(std::numeric_limits<int>::max());
    followValue(line, field, [&line, &field] { showText(line, field); });
    QObject::connect(&line, &QLineEdit::textChanged, &line, [&line, &field, typed](const QString& text) {
        // The spin buttons' text is no typed one: it is taken at once.
        if (field.spec().takenWhenLeft && line.isModified()) return;
        take(text, field, typed);
    });
    QObject::connect(&widget, &Widget::editingFinished, &line, [&widget, &line, &field, typed] {
        // Another window is no leaving.
        if (field.spec().takenWhenLeft && widget.isActiveWindow()) take(line.text(), field, typed);
        if (typed != Typed::AnyText) showText(line, field);
        field.left.emit();
    });
    line.installEventFilter(new ProgramUndo(&line));
}

}  // namespace

void showHint(QWidget& widget, const Field& field) {
    if (field.spec().hint.empty()) return;
    const QString hint = shown(field.spec().hint);
    widget.setToolTip("<qt>" + hint.toHtmlEscaped() + "</qt>");  // rich text is wrapped
    widget.setAccessibleDescription(hint);
}

void bind(QCheckBox& box, CheckField& field) {
    bindCommon(box, field);
    box.setAccessibleName(shown(field.title()));
    followValue(box, field, [&box, &field] { box.setChecked(field.value() != 0); });
    // Not the click: a screen reader ticks a box without one.
    QObject::connect(&box, &QCheckBox::toggled, &box, [&field](bool checked) {
        // A document may tick a box with another number than 1, which stands.
        if (checked == (field.value() != 0)) return;
        field.edit([&field, checked] { field.setValue(checked ? 1 : 0); });
    });
}

void bind(QLineEdit& line, TextField& field, Typed typed) { bindText(line, line, field, typed); }

void bind(SpinText& spin, TextField& field, Typed typed) {
    if (field.range()) spin.setRange(*field.range());
    bindText(spin, spin.line(), field, typed);
}

void bind(QComboBox& list, ListField& field) {
    bindCommon(list, field);
    const auto showIndex = [&list, &field] { list.setCurrentIndex(field.index()); };
    const auto refill = [&list, &field, showIndex] {
        list.clear();
        for (const Choice& choice : field.choices()) list.addItem(shown(choice.text));
        showIndex();
    };
    refill();
    listen(&list, field.choicesChanged, refill);
    listen(&list, field.changed, showIndex);
    // Told of a person's choice only, so that a refill is silent.
    QObject::connect(&list, &QComboBox::activated, &list, [&field](int index) {
        field.edit([&field, index] { field.setIndex(index); });
    });
}

void bind(QSlider& slider, SliderField& field) {
    bindCommon(slider, field);
    slider.setAccessibleName(shown(field.title()));
    slider.setRange(field.range()->min, field.range()->max);
    slider.setSingleStep(field.range()->step);
    if (field.range()->page > 0) slider.setPageStep(field.range()->page);
    followValue(slider, field, [&slider, &field] { slider.setValue(field.position()); });
    QObject::connect(&slider, &QSlider::valueChanged, &slider, [&field](int position) {
        if (position == field.position()) return;  // shown, not moved
        field.edit([&field, position] { field.setPosition(position); });
    });
    QObject::connect(&slider, &QSlider::sliderReleased, &slider, [&field] { field.left.emit(); });
}

void bind(QLabel& label, LabelField& field) {
    bindCommon(label, field);
    label.setTextFormat(Qt::PlainText);
    followValue(label, field, [&label, &field] { label.setText(shown(field.text())); });
}

void bindCaption(QLabel& label, QWidget& widget, Field& field) {
    label.setTextFormat(Qt::PlainText);
    label.setText(shown(field.spec().caption).replace('&', "&&"));
    label.setBuddy(&widget);
    bindStates(label, field);
}

void leaveTypedText() {
    QWidget* focused = QApplication::focusWidget();
    if (auto* spin = qobject_cast<SpinText*>(focused)) return Q_EMIT spin->editingFinished();
    if (auto* line = qobject_cast<QLineEdit*>(focused)) Q_EMIT line->editingFinished();
}

namespace {

/// Whether a dialog stands in front of the action's window. Keys and the mouse don't reach it then, but others may.
bool isBehindDialog(const QAction& action) {
    const QWidget* dialog = QApplication::activeModalWidget();
    const auto* owner = qobject_cast<const QWidget*>(action.parent());
    return dialog && owner && owner->window() != dialog;
}

}  // namespace

void bindCommand(QAction& action, std::function<void()> command) {
    QObject::connect(&action, &QAction::triggered, &action, [&action, command = std::move(command)] {
        if (isBehindDialog(action)) return;
        runGuarded<QApplication>([&command] {
            leaveTypedText();
            command();
        });
    });
}

void bindCommand(QAction& action, Observable<bool>& flag, std::function<void()> command) {
    follow(&action, flag, [&action](bool enabled) { action.setEnabled(enabled); });
    bindCommand(action, std::move(command));
}

void bindSwitch(QAction& action, Observable<bool>& state, std::function<void()> command) {
    action.setCheckable(true);
    follow(&action, state, [&action](bool on) { action.setChecked(on); });
    QObject::connect(&action, &QAction::triggered, &action, std::move(command));
}

}  // namespace gatehouse
