#include "base/field.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"

#include <algorithm>

namespace gatehouse {

Field::Field(FieldPlace place, Kind kind, const FieldSpec& spec, std::optional<Range> range)
    : kind_(kind), spec_(spec), range_(range) {
    place.group.fields.push_back(this);
    if (place.section) place.section->fields.push_back(this);
}

void Field::restoreDesign() {
    restoreValue();
    enabled.set(true);
    visible.set(true);
}

std::string Field::title() const {
    std::string text(spec_.caption.empty() ? spec_.name : spec_.caption);
    if (text.ends_with(':')) text.pop_back();
    return text;
}

Int16Field::Int16Field(FieldPlace place, Kind kind, const FieldSpec& spec, std::int16_t design)
    : Field(place, kind, spec, {}), design_(design), value_(design) {}

void Int16Field::setValue(std::int16_t value) {
    if (value == value_) return;
    value_ = value;
    changed.emit();
}

std::string Int16Field::valueText() const { return std::to_string(value_); }
void Int16Field::setValueText(const std::string& text) { setValue(strictInt16(text)); }

TextField::TextField(FieldPlace place, const FieldSpec& spec, std::string_view design, std::optional<Range> range)
    : TextField(place, Kind::Text, spec, design, range) {}

TextField::TextField(FieldPlace place, Kind kind, const FieldSpec& spec, std::string_view design,
                     std::optional<Range> range)
    : Field(place, kind, spec, range), design_(design), text_(design) {}

void TextField::setText(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    changed.emit();
}

std::int16_t strictInt16(const TextField& field) {
    try {
        return strictInt16(field.text());
    } catch (const RuntimeFailure& failure) {
        throw RuntimeFailure(field.title() + " (" + field.name() + "): " + failure.what());
    }
}

LabelField::LabelField(FieldPlace place, const FieldSpec& spec, std::string_view design, std::optional<Range> range)
    : TextField(place, Kind::Label, spec, design, range) {}

ListField::ListField(FieldPlace place, const FieldSpec& spec, std::vector<std::string> entries, int design)
    : Field(place, Kind::List, spec, {}), design_(design), index_(design) {
    for (auto& entry : entries) choices_.push_back({std::move(entry), 0});
}

void ListField::setIndex(int index) {
    if (index < -1 || index >= static_cast<int>(choices_.size()))
        throw RuntimeFailure("Invalid list index " + std::to_string(index) + " for " + name());
    if (index == index_) return;
    index_ = index;
    changed.emit();
}

void ListField::setChoices(std::vector<Choice> choices) {
    choices_ = std::move(choices);
    index_ = -1;
    choicesChanged.emit();
}

std::string ListField::text() const { return index_ < 0 ? std::string() : choices_[static_cast<std::size_t>(index_)].text; }
int ListField::data() const { return index_ < 0 ? -1 : choices_[static_cast<std::size_t>(index_)].data; }
std::string ListField::valueText() const { return std::to_string(index_); }
void ListField::setValueText(const std::string& text) { setIndex(strictInt16(text)); }

void ListField::restoreValue() {
    setIndex(std::min(design_, static_cast<int>(choices_.size()) - 1));
}

SliderField::SliderField(FieldPlace place, const FieldSpec& spec, Range range, int design)
    : Field(place, Kind::Slider, spec, range), design_(design), position_(design) {}

void SliderField::setPosition(int position) {
    position = std::clamp(position, range()->min, range()->max);
    if (position == position_) return;
    position_ = position;
    changed.emit();
}

std::string SliderField::valueText() const { return std::to_string(position_); }
void SliderField::setValueText(const std::string& text) { setPosition(strictInt16(text)); }

}  // namespace gatehouse
