#include "app/window/address_drop_win32.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstring>

#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

// Data that another program would drop, made with the clipboard's data object.
class Dragged {
 public:
    void put(UINT format, const void* bytes, std::size_t size) const {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
        std::memcpy(GlobalLock(memory), bytes, size);
        GlobalUnlock(memory);
        ASSERT_TRUE(OpenClipboard(form_.handle()));
        SetClipboardData(format, memory);
        CloseClipboard();
    }
    void putText(UINT format, const std::wstring& text) const {
        put(format, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void putFile(const std::wstring& path) const {
        std::string files(sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t), '\0');
        DROPFILES header{};
        header.pFiles = sizeof header;
        header.fWide = TRUE;
        std::memcpy(files.data(), &header, sizeof header);
        std::memcpy(files.data() + sizeof header, path.data(), path.size() * sizeof(wchar_t));
        put(CF_HDROP, files.data(), files.size());
    }
    void empty() const {
        ASSERT_TRUE(OpenClipboard(form_.handle()));
        EmptyClipboard();
        CloseClipboard();
    }
    ComPtr<IDataObject> data() const {
        ComPtr<IDataObject> object;
        OleGetClipboard(object.put());
        return object;
    }
    HWND window() const { return form_.handle(); }

 private:
    OleScope ole_;
    TestForm form_{{0, 0, 100, 100}};
};

TEST(AddressDropTest, TakesLinksShortcutsAndTexts) {
    const Dragged dragged;
    dragged.empty();
    EXPECT_EQ(droppedText(*dragged.data().get()), "");
    dragged.putText(CF_UNICODETEXT, L"http://text/");
    EXPECT_EQ(droppedText(*dragged.data().get()), "http://text/");

    wchar_t path[MAX_PATH]{};
    GetTempPathW(MAX_PATH, path);
    const std::wstring file = std::wstring(path) + L"link \x1ebf.url";
    const HANDLE shortcut =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::string content = "[InternetShortcut]\r\nURL=http://file/\r\n";
    DWORD written = 0;
    WriteFile(shortcut, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(shortcut);
    dragged.putFile(file);
    EXPECT_EQ(droppedText(*dragged.data().get()), "http://file/") << "not the file's name as text";
    dragged.putText(RegisterClipboardFormatW(CFSTR_INETURLW), L"http://link/");
    EXPECT_EQ(droppedText(*dragged.data().get()), "http://link/");
    dragged.empty();
    dragged.putFile(std::wstring(path) + L"nothing there.url");
    EXPECT_EQ(droppedText(*dragged.data().get()), "");
    DeleteFileW(file.c_str());
}

TEST(AddressDropTest, ADropIsTakenOnlyWhileTheWindowAcceptsOne) {
    const Dragged dragged;
    std::string taken;
    bool accepting = true;
    const AddressDrop drop(
        dragged.window(), [&] { return accepting; }, [&](std::string_view text) { taken = text; });
    auto* target = static_cast<IDropTarget*>(GetPropW(dragged.window(), L"OleDropTargetInterface"));
    ASSERT_TRUE(target);
    const auto dragAndDrop = [&](DWORD allowed) {
        const auto data = dragged.data();
        taken.clear();
        DWORD effect = allowed;
        target->DragEnter(data.get(), 0, {}, &effect);
        DWORD over = allowed;
        target->DragOver(0, {}, &over);
        EXPECT_EQ(over, effect);
        if (effect != DROPEFFECT_NONE) target->Drop(data.get(), 0, {}, &over);
        return effect;
    };
    dragged.empty();
    dragged.putText(CF_UNICODETEXT, L"  \r\n");
    EXPECT_EQ(dragAndDrop(DROPEFFECT_COPY), DWORD{DROPEFFECT_NONE});
    dragged.putText(CF_UNICODETEXT, L"http://a/");
    EXPECT_EQ(dragAndDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(taken, "http://a/");
    EXPECT_EQ(dragAndDrop(DROPEFFECT_LINK), DWORD{DROPEFFECT_LINK});
    EXPECT_EQ(dragAndDrop(DROPEFFECT_MOVE), DWORD{DROPEFFECT_NONE});
    accepting = false;
    EXPECT_EQ(dragAndDrop(DROPEFFECT_COPY), DWORD{DROPEFFECT_NONE});
    DWORD effect = DROPEFFECT_COPY;
    target->Drop(dragged.data().get(), 0, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(taken, "");
}

}  // namespace
}  // namespace velvox
