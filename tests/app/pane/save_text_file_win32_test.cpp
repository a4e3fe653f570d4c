#include "app/pane/save_text_file_win32.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

std::string contentOf(const wchar_t* path) {
    char content[100]{};
    std::FILE* const file = _wfopen(path, L"rb");
    if (!file) return "no file";
    const std::size_t size = std::fread(content, 1, sizeof content, file);
    std::fclose(file);
    return {content, size};
}

TEST(SaveTextFileTest, ReplacesAFileOnlyByAWholeOne) {
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"saved \x1ebf.txt";
    const std::wstring other = path + L".part";  // a file that the user already has
    writeTextFile(other.c_str(), "kept");
    writeTextFile(path.c_str(), "http://a/\r\n");
    writeTextFile(path.c_str(), "b");
    EXPECT_EQ(contentOf(path.c_str()), "b");
    EXPECT_EQ(contentOf(other.c_str()), "kept");
    // A file that cannot be replaced keeps its content, and nothing is left beside it.
    const HANDLE used = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_THROW(writeTextFile(path.c_str(), "c"), RuntimeFailure);
    CloseHandle(used);
    EXPECT_EQ(contentOf(path.c_str()), "b");
    EXPECT_EQ(contentOf(other.c_str()), "kept");
    EXPECT_EQ(contentOf((path + L".part2").c_str()), "no file");
    DeleteFileW(other.c_str());
    DeleteFileW(path.c_str());
    EXPECT_THROW(writeTextFile((std::wstring(folder) + L"none\\a.txt").c_str(), ""),
                 RuntimeFailure);
}

}  // namespace
}  // namespace velvox
