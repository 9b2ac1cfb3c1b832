#pragma once

#include "base/observable.h"

#include <string_view>

namespace gatehouse {

/// One of the program's own forms: true while it is on show. Declared where it lives; the window finds the maker of its
/// view by the name.
class Form : public Observable<bool> {
public:
    explicit Form(std::string_view formName) : Observable<bool>(false), name(formName) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string_view name;
};

}  // namespace gatehouse
