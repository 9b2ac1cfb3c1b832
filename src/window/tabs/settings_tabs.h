#pragma once

class QWidget;

namespace gatehouse {

class ModOptions;
struct SettingsDocument;

// The tabs that are lists of settings and nothing else. What they are given must outlive them.

/// Beside the choice of a mod stands the way to its options.
QWidget* makeServerTab(SettingsDocument& doc, ModOptions& modOptions);
QWidget* makeVideoTab(SettingsDocument& doc);
QWidget* makeTweak1Tab(SettingsDocument& doc);
QWidget* makeTweak2Tab(SettingsDocument& doc);

}  // namespace gatehouse
