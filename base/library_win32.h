// Where DLLs that the program loads by name may come from: the system folder alone.
#pragma once

#include <windows.h>

namespace velvox {

/// Takes the program's folder and the current one out of the search for DLLs, where the system can
/// (Windows 8, and 7 with its updates). Call it before anything else: it also covers what the
/// system loads on the program's behalf.
void searchSystemFolderOnly() noexcept;

/// A DLL of the system folder, which stays loaded; null where it is missing.
HMODULE loadSystemLibrary(const wchar_t* name) noexcept;

/// A procedure of a loaded DLL; null where either is missing.
template <class Procedure>
Procedure findProcedure(HMODULE library, const char* name) noexcept {
    if (!library) return nullptr;
    return reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace velvox
