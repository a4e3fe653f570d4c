// clsFile on a real tree of folders.
#include "controlkit/file_win32.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/com_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"
#include "controlkit/sort.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

class FileTest : public testing::Test {
 protected:
    FileTest() {
        wchar_t temporary[MAX_PATH + 1];
        GetTempPathW(MAX_PATH, temporary);
        root = narrow(temporary) + "velvox-" + std::to_string(GetCurrentProcessId());
        folder(root);
    }
    ~FileTest() override {
        for (auto path = made.rbegin(); path != made.rend(); ++path)
            if (!DeleteFileW(path->c_str())) RemoveDirectoryW(path->c_str());
    }

    std::wstring making(const std::string& path) {
        return made.emplace_back(LR"(\\?\)" + widen(path));
    }
    std::string folder(const std::string& path) {
        EXPECT_TRUE(CreateDirectoryW(making(path).c_str(), nullptr)) << path;
        return path;
    }
    void file(const std::string& path, DWORD size = 0, DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
        const OwnedHandle handle(CreateFileW(making(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                             CREATE_NEW, attributes, nullptr));
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(handle.get(), std::string(size, 'x').data(), size, &written, nullptr))
            << path;
    }

    /// Names and sizes, in the order of compareNaturally().
    static std::string listed(clsFile::Items items) {
        clsSort::SortList(items, [](const tsListItem& a, const tsListItem& b) {
            return compareNaturally(a.text, b.text) < 0;
        });
        std::string all;
        for (const tsListItem& item : items)
            all += item.text + (item.size ? " " + std::to_string(item.size) : "") + "|";
        return all;
    }

    const OleScope com;
    std::string root;
    std::vector<std::wstring> made;
};

TEST_F(FileTest, NamesOfAnyCharactersAndLengthAreListedAndLeadOn) {
    const std::string manyScripts = "\xC3\xA4 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80.txt";
    file(root + "\\" + manyScripts, 5);
    file(root + "\\file 10", 70000);
    file(root + "\\file 2.TXT", 0, FILE_ATTRIBUTE_HIDDEN);
    file(root + "\\dot.", 1);
    folder(root + "\\plain.txt");
    EXPECT_EQ(listed(clsFile::EnumFiles(root)),
              "dot. 1|file 2.TXT|file 10 70000|" + manyScripts + " 5|");
    EXPECT_EQ(listed(clsFile::EnumFiles(root + "\\", "*.txt;?*.")),
              "dot. 1|file 2.TXT|" + manyScripts + " 5|");
    EXPECT_EQ(clsFile::EnumFiles(root, "none*").Count(), 0U);
    EXPECT_EQ(listed(clsFile::EnumFolders(root)), "plain.txt|");

    // Descends a path far longer than 260 characters, each step by the key of the previous folder.
    const std::string step(100, 'f');
    std::string deep = root;
    for (int i = 0; i < 6; ++i) deep = folder(deep + "\\" + step + (i == 3 ? "." : ""));
    file(deep + "\\end.txt", 3);
    std::string at = root;
    for (int i = 0; i < 6; ++i) {
        const clsFile::Items folders = clsFile::EnumFolders(at);
        at = folders.Item(folders.Count()).key;
        if (at.ends_with("plain.txt")) at = folders.Item(1).key;
    }
    EXPECT_EQ(at, deep);
    EXPECT_EQ(clsFile::EnumFiles(at).Item(deep + "\\end.txt").size, 3U);
    for (const std::string& path : {deep, deep + "\\end.txt", root + "\\dot.", root + "\\missing"})
        EXPECT_TRUE(clsFile::GetIcon(path)) << path;
}

TEST_F(FileTest, WhatCannotBeReadIsReportedAndLeavesNothingOpen) {
    file(root + "\\file");
    const int before = liveHandles();
    for (const std::string& path : {root + "\\missing", root + "\\file", std::string(),
                                    root + std::string("\0", 1), std::string("?:\\")}) {
        EXPECT_THROW(clsFile::EnumFiles(path), RuntimeFailure) << path;
        EXPECT_THROW(clsFile::EnumFolders(path), RuntimeFailure) << path;
    }
    EXPECT_EQ(liveHandles(), before);
    const clsFile::Items drives = clsFile::EnumDrives();
    EXPECT_GT(drives.Item("C:\\").size, 0U);
    EXPECT_NE(clsFile::EnumFolders("C:\\").Count(), 0U);
    EXPECT_EQ(clsFile::EnumFolders("C:/windows/./system32/..").keyAt(1).substr(0, 11),
              "C:\\windows\\");
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(clsFile::GetIcon("C:\\", clsFile::IconSize::Large));
    EXPECT_EQ(liveHandles(), before);
    EXPECT_EQ(clsFile::GetFileExtension(root + "\\a.b"), "b");
}

}  // namespace
}  // namespace velvox
