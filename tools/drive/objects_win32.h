#pragma once

#include <windows.h>

namespace velvox::drive {

/// Counts of what a program has open. Wine 8 answers 0 for both, so there they are read otherwise:
/// the drawing objects out of the program's own table, the window objects as those of the whole
/// session (its other programs stand still, so that differences are the program's).
struct ObjectCounts {
    unsigned gdi;
    unsigned user;
};

/// `process` opened to be queried and read. Throws std::runtime_error.
ObjectCounts objectsOf(HANDLE process);

}  // namespace velvox::drive
