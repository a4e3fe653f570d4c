// The Files page: drives, folders and files in a scroll container, sorted by a click.
#pragma once

#include <functional>
#include <string>

#include "base/owned_win32.h"
#include "base/window_win32.h"
#include "controlkit/scroll_container_win32.h"
#include "gallery/event_list_win32.h"
#include "gallery/file_rows.h"
#include "gallery/page_win32.h"

namespace velvox {

/// A window that lists the rows. It draws only the visible ones.
class FileListWindow : public Window {
 public:
    /// Creates the content of `container`, which shows `rows`. Both must outlive the window.
    FileListWindow(tsScrollContainer& container, FileRows& rows);
    ~FileListWindow() override { destroy(); }

    /// Redraws the list and shows the selected row. Called after a change of rows, order or
    /// selection.
    void refresh();

    std::function<void()> Open;  ///< raised to open the selected row
    std::function<void()> Up;    ///< raised to open the parent folder

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> onKey(WPARAM code);
    void press(LPARAM at);
    void paint(HDC target);
    void paintRow(HDC dc, const RECT& at, std::size_t index);

    tsScrollContainer& container_;
    FileRows& rows_;
    OwnedFont font_;
};

class FilesPage : public Page, private Window {
 public:
    ~FilesPage() override { destroy(); }

    std::string_view title() const override { return "Files"; }
    void create(HWND parent) override;

 private:
    struct Layout;

    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void open(std::string folder, std::string selected = {});
    void openSelected();
    void sortBy(FileRows::Column column);
    void nameColumns();
    void paint(HDC dc);

    FileRows rows_;
    std::string folder_;  // empty for the list of drives
    std::string status_;
    OwnedFont font_;
    tsScrollContainer container_;
    std::optional<FileListWindow> list_;
    PlainControl byName_;
    PlainControl bySize_;
};

}  // namespace velvox
