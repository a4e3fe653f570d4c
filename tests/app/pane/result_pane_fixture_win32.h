// A result pane on a form, with helpers that act on its text control as a user does.
#pragma once

#include <gtest/gtest.h>
#include <richedit.h>

#include "app/pane/result_pane_win32.h"
#include "base/system_win32.h"
#include "base/text.h"
#include "tests/app/form1/form1_fixture.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox::testing {

inline std::string numbered(const std::string& line, int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i) lines += text::replaceAll(line, "#", std::to_string(i));
    return lines;
}

inline std::string imageLines(int count) {
    return numbered(
        "<font face='tahoma' size='2'><a href='http://host/books/abc/p#.jpg'>Download Image #<a>"
        "</font><br>",
        count);
}

template <class Pointed>
LPARAM at(Pointed& pointed) {
    return reinterpret_cast<LPARAM>(&pointed);
}

class ResultPaneTest : public ::testing::Test {
 protected:
    // The real pointer is moved away, because its moves could turn a click into a drag.
    ResultPaneTest() { SetCursorPos(700, 600); }

    HWND text() const { return pane.textWindow(); }
    LRESULT send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(text(), message, wParam, lParam);
    }

    std::string shown() const { return text::replaceAll(windowText(text()), "\r\n", "\n"); }
    std::string shownAt(std::size_t begin, std::size_t end) const {
        return narrow(widen(shown()).substr(begin, end - begin));
    }
    void select(std::size_t begin, std::size_t end) const {
        CHARRANGE place{static_cast<LONG>(begin), static_cast<LONG>(end)};
        send(EM_EXSETSEL, 0, at(place));
    }
    void setCaret(std::size_t character) const { select(character, character); }
    bool isLink(std::size_t character) const {
        select(character, character + 1);
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        send(EM_GETCHARFORMAT, SCF_SELECTION, at(format));
        setCaret(0);
        return (format.dwEffects & CFE_UNDERLINE) != 0;
    }
    // A point inside a character.
    LPARAM pointAt(std::size_t character) const {
        POINTL place{};
        send(EM_POSFROMCHAR, static_cast<WPARAM>(at(place)), static_cast<LPARAM>(character));
        return MAKELPARAM(place.x + 2, place.y + 6);
    }
    // Input is posted, not sent, because only a posted message has the time at which it was queued.
    void post(UINT message, WPARAM wParam, LPARAM lParam = 0) const {
        PostMessageW(text(), message, wParam, lParam);
    }
    static void pumpPosted() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    void press(LPARAM point) const {
        post(WM_LBUTTONDOWN, MK_LBUTTON, point);
        pumpPosted();
    }
    void release(LPARAM point) const {
        post(WM_LBUTTONUP, 0, point);
        pumpPosted();
    }
    void click(LPARAM point) const {
        press(point);
        release(point);
    }
    void key(WPARAM code, LPARAM facts = 0) const {
        post(WM_KEYDOWN, code, facts);
        pumpPosted();
    }
    bool hasCaret() const {
        GUITHREADINFO thread{};
        thread.cbSize = sizeof thread;
        return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && thread.hwndCaret == text();
    }
    HWND child(const wchar_t* className, DWORD style) const {
        return CreateWindowExW(0, className, L"", WS_CHILD | style, 0, 0, 280, 180, top.handle(),
                               nullptr, nullptr, nullptr);
    }
    // The text that a paste inserts into the text box of another program.
    std::string clipboard() const {
        const HWND box = child(L"EDIT", ES_MULTILINE);
        SendMessageW(box, WM_PASTE, 0, 0);
        std::string pasted = windowText(box);
        DestroyWindow(box);
        return pasted;
    }

    TestForm top{{0, 0, 320, 220}};
    EffectLog log;
    FakeDesktop desktop{log};
    ResultPaneWindow pane{top.handle(), {10, 10, 300, 200}, 7, desktop};
};

}  // namespace velvox::testing
