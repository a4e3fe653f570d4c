#pragma once

#include <windows.h>

namespace velvox::drive {

/// Numbers of GDI and USER objects of a program. In Wine 8 GetGuiResources returns 0 for both.
/// There, GDI objects are counted in the program's own table. USER objects are those of the whole
/// session: its other programs are idle, so a difference comes from the program.
struct ObjectCounts {
    unsigned gdi;
    unsigned user;
};

/// `process` must allow queries and reading of memory. Throws std::runtime_error.
ObjectCounts objectsOf(HANDLE process);

}  // namespace velvox::drive
