#pragma once

#include "base/edits.h"
#include "base/observable.h"
#include "base/signal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace gatehouse {

class Field;

struct FieldSection;

/// The fields of one tab or dialog, in the order in which a person meets them.
struct FieldGroup {
    explicit FieldGroup(std::string_view groupName) : name(groupName) {}
    FieldGroup(const FieldGroup&) = delete;
    FieldGroup& operator=(const FieldGroup&) = delete;

    std::string_view name;
    std::vector<Field*> fields;
    std::vector<FieldSection*> sections;
};

/// The two columns of a tab.
enum class Column { Left, Right };

/// Fields of a group that stand together under a heading.
struct FieldSection {
    FieldSection(FieldGroup& sectionGroup, std::string_view sectionHeading, Column sectionColumn)
        : group(sectionGroup), heading(sectionHeading), column(sectionColumn) {
        group.sections.push_back(this);
    }
    FieldSection(const FieldSection&) = delete;
    FieldSection& operator=(const FieldSection&) = delete;

    FieldGroup& group;
    std::string_view heading;
    Column column;
    std::vector<Field*> fields;
};

/// Where a field is declared: in a group, or in a section of one.
struct FieldPlace {
    FieldPlace(FieldGroup& owner) : group(owner) {}
    FieldPlace(FieldSection& owner) : group(owner.group), section(&owner) {}

    FieldGroup& group;
    FieldSection* section = nullptr;
};

/// What is fixed about a field: its name, and what a person is shown.
struct FieldSpec {
    std::string_view name;
    std::string_view caption = {};
    std::string_view hint = {};
    /// False for the few fields whose change leaves the document's changed flag alone.
    bool marksDocument = true;
    /// What is typed is taken when the field is left, not letter by letter: on the way it would be refused.
    bool takenWhenLeft = false;
    /// Holds a path or a command line, which the system knows in UTF-8.
    bool isPath = false;
};

/// Bounds of a slider, or of the spin buttons beside a text.
struct Range {
    int min = 0;
    int max = 0;
    int step = 1;
    int page = 0;
};

/// One value of the window. `changed` fires, synchronously, when the value really changes.
class Field {
public:
    enum class Kind { Check, Text, List, Slider, Label, Number };

    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    Kind kind() const { return kind_; }
    const FieldSpec& spec() const { return spec_; }
    std::string name() const { return std::string(spec_.name); }
    const std::optional<Range>& range() const { return range_; }

    /// The value in text form: what `setValueText` takes back.
    virtual std::string valueText() const = 0;
    /// Sets the value from its text form; fails if a numeric field gets a text that is no number.
    virtual void setValueText(const std::string& text) = 0;
    /// Puts value, enabled and visible back to what they were before any document.
    void restoreDesign();

    /// The caption without its colon; the name where there is none.
    std::string title() const;
    /// Runs a change of this field that a person makes.
    template <class Change>
    void edit(Change&& change) {
        edits.make(title(), std::forward<Change>(change));
    }

    Observable<bool> enabled{true};
    Observable<bool> visible{true};
    Signal<> changed;
    Edits edits;
    /// A person has done with the field: the next edit is another one.
    Signal<> left;

protected:
    Field(FieldPlace place, Kind kind, const FieldSpec& spec, std::optional<Range> range);

private:
    virtual void restoreValue() = 0;

    Kind kind_;
    FieldSpec spec_;
    std::optional<Range> range_;
};

/// A whole number of 16 bits.
class Int16Field : public Field {
public:
    std::int16_t value() const { return value_; }
    void setValue(std::int16_t value);
    std::string valueText() const override;
    void setValueText(const std::string& text) override;

protected:
    Int16Field(FieldPlace place, Kind kind, const FieldSpec& spec, std::int16_t design);

private:
    void restoreValue() override { setValue(design_); }
    std::int16_t design_;
    std::int16_t value_;
};

/// A whole number with the two states of a check box, 0 and 1; a document may give it any other number.
class CheckField : public Int16Field {
public:
    CheckField(FieldPlace place, const FieldSpec& spec, std::int16_t design = 0)
        : Int16Field(place, Kind::Check, spec, design) {}
};

/// A 16-bit number with no control of its own.
class NumberField : public Int16Field {
public:
    NumberField(FieldPlace place, const FieldSpec& spec, std::int16_t design = 0)
        : Int16Field(place, Kind::Number, spec, design) {}
};

/// An exact text, blanks included. With a range it has spin buttons; a typed value may lie outside of it.
class TextField : public Field {
public:
    TextField(FieldPlace place, const FieldSpec& spec, std::string_view design = {}, std::optional<Range> range = {});
    const std::string& text() const { return text_; }
    /// The text before any document.
    const std::string& design() const { return design_; }
    void setText(std::string text);
    std::string valueText() const override { return text_; }
    void setValueText(const std::string& text) override { setText(text); }

protected:
    TextField(FieldPlace place, Kind kind, const FieldSpec& spec, std::string_view design, std::optional<Range> range);

private:
    void restoreValue() override { setText(design_); }
    std::string design_;
    std::string text_;
};

/// The strict conversion of `base/numbers.h`; a failure names the field.
std::int16_t strictInt16(const TextField& field);

/// A text that is shown and not typed; its value is what a screen reader reads out.
class LabelField : public TextField {
public:
    LabelField(FieldPlace place, const FieldSpec& spec, std::string_view design = {}, std::optional<Range> range = {});
};

/// One entry of a list and the number kept with it.
struct Choice {
    std::string text;
    int data = 0;
    friend bool operator==(const Choice&, const Choice&) = default;
};

/// A drop-down list: entries from 0, -1 when nothing is selected.
class ListField : public Field {
public:
    ListField(FieldPlace place, const FieldSpec& spec, std::vector<std::string> entries = {}, int design = -1);
    int index() const { return index_; }
    /// Fails for an index that is neither -1 nor an entry.
    void setIndex(int index);
    const std::vector<Choice>& choices() const { return choices_; }
    /// Replaces the entries and selects nothing. Silent: `changed` doesn't fire, `choicesChanged` does.
    void setChoices(std::vector<Choice> choices);
    /// The selected entry's text, empty when nothing is selected.
    std::string text() const;
    /// The selected entry's number, -1 when nothing is selected.
    int data() const;
    std::string valueText() const override;
    void setValueText(const std::string& text) override;

    Signal<> choicesChanged;

private:
    void restoreValue() override;
    int design_;
    int index_;
    std::vector<Choice> choices_;
};

/// A position between the bounds of its range; what lies outside is clamped.
class SliderField : public Field {
public:
    SliderField(FieldPlace place, const FieldSpec& spec, Range range, int design);
    int position() const { return position_; }
    void setPosition(int position);
    std::string valueText() const override;
    void setValueText(const std::string& text) override;

private:
    void restoreValue() override { setPosition(design_); }
    int design_;
    int position_;
};

}  // namespace gatehouse
