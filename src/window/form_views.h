#pragma once

#include <string_view>

class QDialog;
class QWidget;

namespace gatehouse {

class Gatehouse;

/// Makes the view of the program's form with that name, as a child of `parent`. Null for a form without a view.
QDialog* makeFormView(std::string_view form, Gatehouse& program, QWidget* parent);

}  // namespace gatehouse
