#pragma once

#include "base/field.h"
#include "base/observable.h"

#include <functional>

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

namespace gatehouse {

class SpinText;

/// What a line of text hands to its field: whatever is typed, only whole numbers of 16 bits, or only decimal numbers.
/// An unfinished number stays in the line, and gives way to the field's text when the line is left.
enum class Typed { AnyText, Number, Decimal };

// Each binder ties a widget to a field, both ways, for as long as the widget lives: value, enabled, visible, hint and
// range. The widget gets the field's name, and its caption as accessible name. The field must outlive the widget.

void bind(QCheckBox& box, CheckField& field);
void bind(QLineEdit& line, TextField& field, Typed typed = Typed::AnyText);
void bind(SpinText& spin, TextField& field, Typed typed = Typed::AnyText);
void bind(QComboBox& list, ListField& field);
void bind(QSlider& slider, SliderField& field);
/// A label that shows a value has no accessible name: its text is what is read out.
void bind(QLabel& label, LabelField& field);

/// The field's hint as tool tip and as accessible description.
void showHint(QWidget& widget, const Field& field);

/// The label in front of a field's widget: shows its caption, hides with it and leads the keyboard to it.
void bindCaption(QLabel& label, QWidget& widget, Field& field);

/// Ends the typing in the line that has the keyboard: neither a shortcut nor a tool button takes it away from there.
void leaveTypedText();

/// A menu entry or tool button that runs `command`, on what was typed before.
void bindCommand(QAction& action, std::function<void()> command);
/// The same, but it can be used only while `flag` holds and runs `command`.
void bindCommand(QAction& action, Observable<bool>& flag, std::function<void()> command);
/// A menu entry that is ticked while `state` holds and runs `command`, which is to change the state.
void bindSwitch(QAction& action, Observable<bool>& state, std::function<void()> command);

}  // namespace gatehouse
