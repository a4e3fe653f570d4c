#include "gallery/files_page_win32.h"

#include <windowsx.h>

#include <algorithm>

#include "base/buffered_paint_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"
#include "controlkit/file_win32.h"
#include "controlkit/scroll_look.h"
#include "controls/button/icon_picture_win32.h"
#include "gallery/sheet_win32.h"

namespace velvox {
namespace {

/// Lengths in pixels of a 96 dpi screen.
constexpr struct {
    int margin = 12;
    int line = 20;
    int header = 24;
    int row = 20;
    int icon = 16;
    int gap = 4;
    int sizeColumn = 110;
    int listWidth = 420;  // a narrower view scrolls horizontally
} sizes;

enum CommandId : int { ByNameId = 100, BySizeId };

void write(HDC dc, std::string_view text, RECT at, UINT format) {
    DrawTextW(dc, widen(text).c_str(), -1, &at,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | format);
}

std::string startFolder() {
    wchar_t path[MAX_PATH] = {};
    GetWindowsDirectoryW(path, MAX_PATH);
    return narrow(path);
}

/// The large icon, which is drawn smaller so that it is smooth at any resolution.
PicturePtr iconOf(std::string_view path) {
    return std::make_shared<IconPicture>(clsFile::GetIcon(path, clsFile::IconSize::Large));
}

std::string counted(std::size_t number, std::string_view what) {
    return std::to_string(number) + " " + std::string(what) + (number == 1 ? "" : "s");
}

}  // namespace

FileListWindow::FileListWindow(tsScrollContainer& container, FileRows& rows)
    : container_(container), rows_(rows), font_(createFont({})) {
    create({.className = L"VelvoxFileList",
            .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP,
            .parent = container.view(),
            .classStyle = CS_DBLCLKS});
    container_.vertical().SmallChange(scaled(sizes.row));
    container_.vertical().WheelChange(3 * scaled(sizes.row));
    refresh();
}

void FileListWindow::refresh() {
    const int row = scaled(sizes.row);
    container_.setDrawnContent(handle(),
                               {scaled(sizes.listWidth), row * static_cast<LONG>(rows_.count())});
    const LONG top = row * static_cast<LONG>(rows_.selected());
    container_.scrollIntoView({container_.position().x, top, container_.position().x, top + row});
    InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<LRESULT> FileListWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: InvalidateRect(handle(), nullptr, FALSE); return 0;
        case WM_LBUTTONDOWN: press(lParam); return 0;
        case WM_LBUTTONDBLCLK:
            press(lParam);
            if (Open) Open();
            return 0;
        case WM_GETDLGCODE:  // otherwise IsDialogMessage would handle Enter
            return DLGC_WANTARROWS | (wParam == VK_RETURN ? DLGC_WANTMESSAGE : 0);
        case WM_KEYDOWN: return onKey(wParam);
        default: return std::nullopt;
    }
}

std::optional<LRESULT> FileListWindow::onKey(WPARAM code) {
    const int page = container_.viewSize().cy / scaled(sizes.row);
    if (rows_.key(static_cast<std::int16_t>(code), std::max(page - 1, 1)))
        refresh();
    else if (code == VK_RETURN && Open)
        Open();
    else if (code == VK_BACK && Up)
        Up();
    else
        SendMessageW(container_.view(), WM_KEYDOWN, code, 0);
    return 0;
}

void FileListWindow::press(LPARAM at) {
    SetFocus(handle());
    const LONG row = (container_.position().y + GET_Y_LPARAM(at)) / scaled(sizes.row);
    if (row < static_cast<LONG>(rows_.count()) && rows_.select(std::ptrdiff_t{row})) refresh();
}

void FileListWindow::paint(HDC target) {
    const RECT client = clientArea(handle());
    if (IsRectEmpty(&client)) return;
    const BufferedPaint buffer(target, client);
    FillRect(buffer.dc(), &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(buffer.dc(), TRANSPARENT);
    const ScopedSelectObject font(buffer.dc(), font_.get());
    const POINT from = container_.position();
    const int height = scaled(sizes.row);
    const LONG width = std::max<LONG>(client.right, scaled(sizes.listWidth));
    for (auto i = static_cast<std::size_t>(from.y / height); i < rows_.count(); ++i) {
        const LONG top = height * static_cast<LONG>(i) - from.y;
        if (top >= client.bottom) break;
        paintRow(buffer.dc(), {-from.x, top, width - from.x, top + height}, i);
    }
}

void FileListWindow::paintRow(HDC dc, const RECT& at, std::size_t index) {
    tsListItem& item = rows_.row(index);
    const bool hasFocus = GetFocus() == handle();
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    if (item.selected) {
        FillRect(dc, &at, GetSysColorBrush(hasFocus ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
        SetTextColor(dc, GetSysColor(hasFocus ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    }
    // Only visible rows get an icon, because loading an icon takes long.
    if (!item.icon)
        item.icon =
            std::make_shared<IconPicture>(clsFile::GetIcon(item.key, clsFile::IconSize::Small));
    const int icon = scaled(sizes.icon), gap = scaled(sizes.gap);
    if (const auto* picture = dynamic_cast<const DrawablePicture*>(item.icon.get()))
        picture->draw(dc, at.left + gap, at.top + (scaled(sizes.row) - icon) / 2, icon, icon);
    const LONG sizeLeft = at.right - scaled(sizes.sizeColumn);
    write(dc, item.text, {at.left + 2 * gap + icon, at.top, sizeLeft - gap, at.bottom}, DT_LEFT);
    if (item.size > 0 || !rows_.isFolder(index))
        write(dc, sizeText(item.size), {sizeLeft, at.top, at.right - 2 * gap, at.bottom}, DT_RIGHT);
}

/// The layout, in pixels of the page.
struct FilesPage::Layout {
    explicit Layout(RECT area) {
        InflateRect(&area, -scaled(sizes.margin), -scaled(sizes.margin));
        const int line = scaled(sizes.line), header = scaled(sizes.header);
        path = {area.left, area.top, area.right, area.top + line};
        byName = {area.left, path.bottom, area.right - scaled(sizes.sizeColumn),
                  path.bottom + header};
        bySize = {byName.right, byName.top, area.right, byName.bottom};
        status = {area.left, area.bottom - line, area.right, area.bottom};
        container = {area.left, byName.bottom, area.right, status.top};
    }

    RECT path, byName, bySize, container, status;
};

void FilesPage::create(HWND parent) {
    Window::create(filling(parent, L"VelvoxFilesPage"));
    font_ = createFont({});

    const Layout layout(clientArea(handle()));
    WindowRequest header{.className = L"BUTTON",
                         .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                         .bounds = layout.byName,
                         .parent = handle(),
                         .id = ByNameId};
    // The headers are in Arial, because Tahoma lacks triangles on some systems.
    Font triangles;
    triangles.name = "Arial";
    byName_.create(header, triangles);
    header.id = BySizeId;
    header.bounds = layout.bySize;
    bySize_.create(header, triangles);
    nameColumns();

    container_.create(handle(), layout.container);
    list_.emplace(container_, rows_);
    list_->Open = [this] { openSelected(); };
    list_->Up = [this] {
        if (!folder_.empty()) open(parentFolder(folder_), folder_);
    };
    open(startFolder());
}

void FilesPage::open(std::string folder, std::string selected) {
    try {
        if (folder.empty()) {
            rows_.show({}, clsFile::EnumDrives(), {});
        } else {
            clsFile::Items parent;
            parent.Add({"..", parentFolder(folder), 0, iconOf(folder), false});
            clsFile::Items folders = clsFile::EnumFolders(folder);
            clsFile::Items files = clsFile::EnumFiles(folder);
            status_ = counted(folders.Count(), "folder") + ", " + counted(files.Count(), "file");
            rows_.show(std::move(parent), std::move(folders), std::move(files));
        }
        folder_ = std::move(folder);
        if (folder_.empty()) status_ = counted(rows_.count(), "drive");
        rows_.select(selected);
        container_.scrollTo({0, 0});
        list_->refresh();
    } catch (const RuntimeFailure& failure) {
        // The previous folder stays open.
        status_ = failure.what();
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

void FilesPage::openSelected() {
    if (rows_.count() == 0 || !rows_.isFolder(rows_.selected())) return;
    const tsListItem& item = rows_.row(rows_.selected());
    if (item.text == "..") return list_->Up();
    if (!item.key.empty()) return open(item.key);
    status_ = "Its name is not valid Unicode, so this folder cannot be opened";
    InvalidateRect(handle(), nullptr, FALSE);
}

void FilesPage::sortBy(FileRows::Column column) {
    rows_.sortBy(column);
    nameColumns();
    list_->refresh();
}

void FilesPage::nameColumns() {
    const auto name = [&](const PlainControl& header, std::string text, FileRows::Column column) {
        if (rows_.column() == column)
            text += rows_.order() == SortOrder::Ascending ? "  \xE2\x96\xB2" : "  \xE2\x96\xBC";
        SetWindowTextW(header.handle(), widen(text).c_str());
    };
    name(byName_, "Name", FileRows::Column::Name);
    name(bySize_, "Size", FileRows::Column::Size);
}

std::optional<LRESULT> FilesPage::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return 0;
            if (LOWORD(wParam) == ByNameId) sortBy(FileRows::Column::Name);
            if (LOWORD(wParam) == BySizeId) sortBy(FileRows::Column::Size);
            return 0;
        default: return std::nullopt;
    }
}

void FilesPage::paint(HDC target) {
    const RECT client = clientArea(handle());
    const Layout layout(client);
    const BufferedPaint buffer(target, client);
    FillRect(buffer.dc(), &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(buffer.dc(), TRANSPARENT);
    SetTextColor(buffer.dc(), GetSysColor(COLOR_WINDOWTEXT));
    const ScopedSelectObject font(buffer.dc(), font_.get());
    write(buffer.dc(), folder_.empty() ? "Drives" : folder_, layout.path, DT_PATH_ELLIPSIS);
    write(buffer.dc(), status_, layout.status, DT_LEFT);
}

}  // namespace velvox
