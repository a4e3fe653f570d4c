// The examples of docs/control-library.md that need Windows. The build compares both files.
#include <gtest/gtest.h>

#include "base/com_win32.h"
#include "controlkit/file_win32.h"
#include "controlkit/gradient.h"
#include "controlkit/scroll_container_win32.h"
#include "controlkit/sort.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

TEST(ControlLibraryWindowTest, File) {
    const OleScope com;
    int kinds = 0;
    const clsFile::Items drives = clsFile::EnumDrives();
    const std::string root = drives.Item("C:\\").key;
    const clsFile::Items folders = clsFile::EnumFolders(root);
    for (const tsListItem& folder : folders) {
        clsFile::Items files = clsFile::EnumFiles(folder.key, "*.exe;*.ini");
        clsSort::SortList(files, [](const auto& a, const auto& b) { return a.size < b.size; });
        for (const tsListItem& file : files) kinds += clsFile::GetFileExtension(file.key) == "exe";
    }
    const OwnedIcon icon = clsFile::GetIcon(folders.Item(1).key);
    EXPECT_GT(kinds, 0);
    EXPECT_TRUE(icon);
}

TEST(ControlLibraryWindowTest, Surface) {
    const TestForm form({0, 0, 200, 100});
    const WindowDc dc(form.handle());
    const HDC target = dc.get();
    clsVirtualDC surface;
    surface.CreateMyDC(200, 100);
    surface.BackColor(systemColour(WindowColour));
    surface.Cls();
    surface.DrawGradient(rgb(255, 255, 255), rgb(0, 0, 128), 0, 0, 200, 20, leftToRight);
    surface.PenColor(rgb(255, 0, 0));
    surface.DrawRectangle(10, 30, 190, 90);
    RECT line{20, 40, 180, 60};
    surface.DrawText("Drawn off the screen", line, DT_LEFT | DT_SINGLELINE);
    surface.PaintToDC(target);
    EXPECT_EQ(surface.GetPixel(10, 30), rgb(255, 0, 0));
}

TEST(ControlLibraryWindowTest, ScrollBar) {
    const TestForm owner({0, 0, 300, 300});
    const HWND form = owner.handle();
    int scrolledTo = 0;
    tsVScrollPrivate bar;
    bar.create(form, {180, 0, 197, 100});
    bar.Max(400);
    bar.LargeChange(100);
    bar.FrontColor(rgb(0xE8, 0x85, 0x1C));
    bar.Scroll = [&] { scrolledTo = bar.Value().toWhole(); };
    bar.Value(40);
    PropertyBag stored;
    bar.WriteProperties(stored);
    SendMessageW(bar.hWnd(), WM_KEYDOWN, VK_NEXT, 0);
    EXPECT_EQ(scrolledTo, 140);
    EXPECT_EQ(stored.readNumber("Value", 0), 40);
}

TEST(ControlLibraryWindowTest, ScrollContainer) {
    const TestForm owner({0, 0, 300, 300});
    const HWND form = owner.handle();
    const TestForm content({0, 0, 600, 400});
    const HWND picture = content.handle();
    SetWindowLongW(picture, GWL_STYLE, WS_CHILD | WS_VISIBLE);
    POINT seenFrom{};
    tsScrollContainer container;
    container.create(form, {0, 0, 200, 100});
    SetParent(picture, container.view());
    container.setContent(picture);  // 600 by 400 pixels
    container.Scroll = [&] { seenFrom = container.position(); };
    container.scrollTo({100, 50});
    container.scrollIntoView({500, 300, 520, 320});
    container.vertical().BackColor(rgb(0xF0, 0xF0, 0xF0));
    EXPECT_EQ(seenFrom.y, 320 - container.viewSize().cy);
}

}  // namespace
}  // namespace velvox
