#include "tools/drive/objects_win32.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace velvox::drive {
namespace {

// Wine's table of GDI objects. The process environment block points to it.
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

// Counts the window objects of the session. Wine numbers them across all programs of the session
// and gives a new object the number that was freed last. So menus are created until a long sequence
// of them has consecutive numbers: then no freed number is left. Up to the last menu's number,
// every number that is not a menu's belongs to a living object. There are only 32,000 numbers, so
// repeated counts must not use up 500 each. The highest number is therefore kept: a later menu with
// the next number shows just as well that no freed number is left.
unsigned sessionObjects() {
    constexpr unsigned enoughUpwards = 500;  // longer than any sequence of freed numbers
    static unsigned highest = 0;             // highest number that this process has had
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
    // Numbers that are freed in ascending order are reused in descending order.
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
