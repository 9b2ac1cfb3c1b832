#pragma once

#include <QDialog>

namespace gatehouse {

struct ListBox;

/// A list to read, in a text that can be marked and copied.
class ListWindow : public QDialog {
    Q_OBJECT

public:
    ListWindow(const ListBox& list, QWidget* parent);
};

}  // namespace gatehouse
