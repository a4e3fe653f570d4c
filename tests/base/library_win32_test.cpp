#include "base/library_win32.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

// A file with the library's name in the program's folder must not be loaded. Such a file, a copy of
// the program, is the decoy.
TEST(LibraryTest, LoadsByNameFromTheSystemFolderAlone) {
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    wchar_t decoy[MAX_PATH]{};
    lstrcpyW(decoy, program);
    lstrcpyW(wcsrchr(decoy, L'\\') + 1, L"decoy.dll");
    ASSERT_TRUE(CopyFileW(program, decoy, FALSE));
    const HMODULE library = LoadLibraryW(L"decoy.dll");
    ASSERT_TRUE(library) << "the decoy cannot be loaded";
    FreeLibrary(library);
    EXPECT_FALSE(loadSystemLibrary(L"decoy.dll"));
    searchSystemFolderOnly();
    EXPECT_FALSE(LoadLibraryW(L"decoy.dll"));
    EXPECT_TRUE(loadSystemLibrary(L"version.dll"));
    EXPECT_TRUE(DeleteFileW(decoy));
}

}  // namespace
}  // namespace velvox
