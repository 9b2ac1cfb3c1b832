#pragma once

class QWidget;

namespace gatehouse {

struct FieldGroup;
class ModOptions;
struct SettingsDocument;

// The tabs that are lists of settings and nothing else. What they are given must outlive them.

/// Beside the choice of a mod stands the way to its options.
QWidget* makeServerTab(SettingsDocument& doc, ModOptions& modOptions);
/// All settings of a group, section by section.
QWidget* makeSettingsTab(const FieldGroup& group);

}  // namespace gatehouse
