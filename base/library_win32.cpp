#include "base/library_win32.h"

#include <delayimp.h>

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

// The stubs of delay-loaded libraries (cmake/DelayedLibrary.cmake) call this on the first call of
// each imported function. It returns that function and stores it in `slot` for later calls.
extern "C" __attribute__((used)) FARPROC WINAPI __delayLoadHelper2(PCImgDelayDescr library,
                                                                   FARPROC* slot) {
    const auto at = [](RVA offset) {
        return reinterpret_cast<char*>(GetModuleHandleW(nullptr)) + offset;
    };
    wchar_t name[MAX_PATH];
    MultiByteToWideChar(CP_ACP, 0, at(library->rvaDLLName), -1, name, MAX_PATH);
    const auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(at(library->rvaINT));
    const auto index = slot - reinterpret_cast<FARPROC*>(at(library->rvaIAT));
    const auto* import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(at(names[index].u1.AddressOfData));
    *slot = GetProcAddress(velvox::loadSystemLibrary(name), import->Name);
    // Ends the program, because no caller can work without the function. Windows does the same at
    // start-up when a library of a normal import is missing.
    if (!*slot) {
        wchar_t text[2 * MAX_PATH];
        wsprintfW(text, L"Velvox needs %s, which is missing or damaged in this system.", name);
        FatalAppExitW(0, text);
    }
    return *slot;
}
