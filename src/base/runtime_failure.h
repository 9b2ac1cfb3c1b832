#pragma once

#include <stdexcept>
#include <string>

namespace gatehouse {

/// A run-time failure that nothing on the spot handles: a strict conversion of a text that is no number, a 16-bit
/// overflow, a cut with a negative length, a file that can't be opened. What catches it either has a trap for it or
/// ends the program.
class RuntimeFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A failure of the file service: missing, denied, disk full, outside of what may be touched.
class FileFailure : public RuntimeFailure {
public:
    using RuntimeFailure::RuntimeFailure;
};

}  // namespace gatehouse
