// The exception class of this program. It reports an operation that cannot be carried out on the
// given values. A catcher catches it in one place, where it shows its red status line.
#pragma once

#include <stdexcept>
#include <string>

namespace velvox {

enum class Fault {
    InvalidCall,      ///< a start, length or argument out of range
    Overflow,         ///< a value that its type cannot hold
    TypeMismatch,     ///< a value of another type, such as text where a number is needed
    InvalidProperty,  ///< a property value that the control refuses
    Transfer,         ///< a page that could not be fetched
    Platform,         ///< a call of the system that failed
};

class RuntimeFailure : public std::runtime_error {
 public:
    RuntimeFailure(Fault fault, const std::string& message)
        : std::runtime_error(message), fault_(fault) {}

    Fault fault() const noexcept { return fault_; }

 private:
    Fault fault_;
};

}  // namespace velvox
