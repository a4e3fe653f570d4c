#include "base/library_win32.h"

namespace velvox {

void searchSystemFolderOnly() noexcept {
    using Set = BOOL(WINAPI*)(DWORD);
    const auto set =
        findProcedure<Set>(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
    if (set) set(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

HMODULE loadSystemLibrary(const wchar_t* name) noexcept {
    wchar_t path[MAX_PATH * 2]{};
    if (GetSystemDirectoryW(path, MAX_PATH) == 0) return nullptr;
    return LoadLibraryW(lstrcatW(lstrcatW(path, L"\\"), name));
}

}  // namespace velvox
