#include "base/open_address_win32.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

// The registry of the session, which is deleted with the session, gets a browser that writes its
// argument to a file, including the quotation marks around it.
TEST(OpenAddressTest, TheBrowserGetsOneArgument) {
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"opened.txt";
    DeleteFileW(path.c_str());
    const std::wstring command = L"cmd.exe /d /c echo \"%1\">" + path;
    for (const wchar_t* key : {L"http\\shell\\open\\command", L"ftp\\shell\\open\\command"})
        ASSERT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key, L"", REG_SZ, command.c_str(),
                                  static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t))),
                  0);

    const auto opened = [&](const std::string& address) {
        DeleteFileW(path.c_str());
        openAddress(nullptr, address);
        std::string line;
        for (DWORD waited = 0; line.empty() && waited < patience; waited += 20) {
            Sleep(20);
            std::ifstream file(narrow(path));
            if (!std::getline(file, line) || file.eof()) line.clear();
        }
        return line;
    };
    openAddress(nullptr, "ftp://a/");
    EXPECT_EQ(opened("http://a/\" --evil \"x.flv"), "\"http://a/%22%20--evil%20%22x.flv\"");
    // Wine's shell overruns a buffer with an address of this length.
    const std::string address = "http://a/" + std::string(2000, 'z');
    EXPECT_EQ(opened(address), '"' + address + '"');
}

}  // namespace
}  // namespace velvox
