// Restricts the DLLs that the program loads by name to the system folder.
#pragma once

#include <windows.h>

namespace velvox {

/// Removes the program's folder and the current folder from the DLL search path where Windows
/// supports that (Windows 8, and Windows 7 with updates). Call this before anything else, because
/// it also affects the DLLs that Windows loads for the program.
void searchSystemFolderOnly() noexcept;

/// Loads a DLL from the system folder for the life of the process; null if it is missing.
HMODULE loadSystemLibrary(const wchar_t* name) noexcept;

/// Finds a procedure of a loaded DLL; null if the DLL or the procedure is missing.
template <class Procedure>
Procedure findProcedure(HMODULE library, const char* name) noexcept {
    if (!library) return nullptr;
    return reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace velvox
