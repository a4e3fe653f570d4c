#include "tools/drive/objects_win32.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace velvox::drive {
namespace {

// The table of drawing objects that the process block points to.
constexpr std::size_t tablePointerOffset = 0x94;
constexpr std::size_t tableLength = 0x4000;
struct DrawingObject {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;  ///< 0 in a free entry
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(DrawingObject) == 24);

void read(HANDLE process, const void* from, void* to, std::size_t size) {
    if (!ReadProcessMemory(process, from, to, size, nullptr))
        throw std::runtime_error("the process cannot be read");
}

unsigned drawingObjects(HANDLE process) {
    PROCESS_BASIC_INFORMATION basic{};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr))
        throw std::runtime_error("the process block is not known");
    const void* place = nullptr;
    read(process, reinterpret_cast<const char*>(basic.PebBaseAddress) + tablePointerOffset, &place,
         sizeof place);
    std::vector<DrawingObject> table(tableLength);
    read(process, place, table.data(), tableLength * sizeof(DrawingObject));
    return static_cast<unsigned>(std::count_if(
        table.begin(), table.end(), [](const DrawingObject& entry) { return entry.type != 0; }));
}

unsigned numberOf(HMENU menu) {
    constexpr unsigned first = 0x20;
    return (LOWORD(reinterpret_cast<UINT_PTR>(menu)) - first) / 2;
}

// The session numbers its window objects through, and gives the number freed last to the next one
// made. Objects made until the numbers only count upwards fill every gap: what is missing among
// them is alive elsewhere. The numbers are used up after 32,000: once the highest is known, the
// one after it shows that no gap is left, so that each count uses up one.
unsigned sessionObjects() {
    constexpr unsigned enoughUpwards = 500;  // more than are ever freed in a row
    static unsigned highest = 0;             // of all that were ever made here: no gap is above it
    std::vector<HMENU> made;
    unsigned last = 0;
    auto filled = [&, upwards = 0U]() mutable {
        const unsigned number = numberOf(made.back());
        upwards = number == last + 1 ? upwards + 1 : 0;
        last = number;
        return upwards >= enoughUpwards || (highest != 0 && number == highest + 1);
    };
    do {
        const HMENU menu = CreateMenu();
        if (!menu) throw std::runtime_error("no more window objects");
        made.push_back(menu);
    } while (!filled());
    highest = last;
    // Freed upwards they are given out again downwards.
    std::sort(made.begin(), made.end(), [](HMENU a, HMENU b) { return numberOf(a) < numberOf(b); });
    for (const HMENU menu : made) DestroyMenu(menu);
    return last + 1 - static_cast<unsigned>(made.size());
}

}  // namespace

ObjectCounts objectsOf(HANDLE process) {
    const ObjectCounts told{GetGuiResources(process, GR_GDIOBJECTS),
                            GetGuiResources(process, GR_USEROBJECTS)};
    if (told.gdi != 0) return told;
    return {drawingObjects(process), sessionObjects()};
}

}  // namespace velvox::drive
