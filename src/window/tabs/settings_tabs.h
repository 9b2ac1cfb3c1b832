#pragma once

class QWidget;

namespace gatehouse {

struct SettingsDocument;

// The tabs that are lists of settings and nothing else. The document must outlive them.

QWidget* makeServerTab(SettingsDocument& doc);
QWidget* makeVideoTab(SettingsDocument& doc);
QWidget* makeTweak1Tab(SettingsDocument& doc);
QWidget* makeTweak2Tab(SettingsDocument& doc);

}  // namespace gatehouse
