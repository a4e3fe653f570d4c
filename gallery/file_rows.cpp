#include "gallery/file_rows.h"

#include <algorithm>
#include <utility>

#include "controlkit/scroll_control.h"

namespace velvox {

std::string sizeText(std::uint64_t bytes) {
    if (bytes < 1024) return std::to_string(bytes) + " B";
    constexpr std::string_view units = "KMGTPE";
    std::size_t unit = 0;
    // Divides the size by 1024 until it is below 1 MB, so that tenths of a unit can be computed
    // without overflow.
    for (; bytes >= 1024 * 1024 && unit + 1 < units.size(); ++unit) bytes >>= 10;
    std::uint64_t tenths = (bytes * 10 + 512) >> 10;
    if (tenths >= 10240 && unit + 1 < units.size()) {
        tenths = 10;
        ++unit;
    }
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " " + units[unit] +
           "B";
}

std::string parentFolder(std::string_view folder) {
    if (folder.ends_with('\\')) folder.remove_suffix(1);
    const auto separator = folder.rfind('\\');
    if (separator == folder.npos) return {};
    const std::string_view parent = folder.substr(0, separator);
    return std::string(parent.ends_with(':') ? folder.substr(0, separator + 1) : parent);
}

void FileRows::show(Items parent, Items folders, Items files) {
    parent_ = std::move(parent);
    folders_ = std::move(folders);
    files_ = std::move(files);
    arrange();
    select(std::ptrdiff_t{0});
}

void FileRows::sortBy(Column column) {
    const bool again = std::exchange(column_, column) == column;
    order_ = again && order_ == SortOrder::Ascending ? SortOrder::Descending : SortOrder::Ascending;
    const tsListItem* const kept = rows_.empty() ? nullptr : rows_[selected_];
    arrange();
    if (kept) select(std::ranges::find(rows_, kept) - rows_.begin());
}

void FileRows::arrange() {
    rows_.clear();
    for (Items* items : {&parent_, &folders_, &files_}) {
        clsSort::SortList(
            *items,
            [&](const tsListItem& a, const tsListItem& b) {
                if (column_ == Column::Size && a.size != b.size) return a.size < b.size;
                return compareNaturally(a.text, b.text) < 0;
            },
            order_);
        for (tsListItem& item : *items) rows_.push_back(&item);
        if (items == &folders_) folderRows_ = rows_.size();
    }
}

bool FileRows::select(std::ptrdiff_t index) {
    if (rows_.empty()) {
        selected_ = 0;
        return false;
    }
    selected_ = static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(index, 0, static_cast<std::ptrdiff_t>(rows_.size()) - 1));
    for (tsListItem* item : rows_) item->selected = item == rows_[selected_];
    return true;
}

bool FileRows::select(std::string_view key) {
    const auto found = std::ranges::find(rows_, key, &tsListItem::key);
    return found != rows_.end() && select(found - rows_.begin());
}

bool FileRows::key(std::int16_t code, std::ptrdiff_t pageRows) {
    const auto at = static_cast<std::ptrdiff_t>(selected_);
    switch (code) {
        case ScrollKeys::up: return select(at - 1);
        case ScrollKeys::down: return select(at + 1);
        case ScrollKeys::pageUp: return select(at - pageRows);
        case ScrollKeys::pageDown: return select(at + pageRows);
        case ScrollKeys::home: return select(std::ptrdiff_t{0});
        case ScrollKeys::end: return select(static_cast<std::ptrdiff_t>(rows_.size()));
        default: return false;
    }
}

}  // namespace velvox
