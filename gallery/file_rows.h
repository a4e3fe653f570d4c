// The rows of the Files page, which of them is selected, and in which order they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controlkit/fast_collection.h"
#include "controlkit/list_item.h"
#include "controlkit/sort.h"

namespace velvox {

/// "512 B", "1.5 KB" and so on, of 1024 each.
std::string sizeText(std::uint64_t bytes);

/// The folder that contains a folder; empty, meaning the drives, above the root of a
/// drive.
std::string parentFolder(std::string_view folder);

class FileRows {
 public:
    using Items = clsFastCollection<tsListItem>;
    enum class Column { Name, Size };

    /// Shows new items, the first selected. A parent's row comes before all others, folders before
    /// files.
    void show(Items parent, Items folders, Items files);

    /// Reverses the order when it is sorted by the column already. The selection stays.
    void sortBy(Column column);
    Column column() const noexcept { return column_; }
    SortOrder order() const noexcept { return order_; }

    std::size_t count() const noexcept { return rows_.size(); }
    tsListItem& row(std::size_t index) { return *rows_.at(index); }
    bool isFolder(std::size_t index) const noexcept { return index < folderRows_; }

    /// The selected row; 0 without rows.
    std::size_t selected() const noexcept { return selected_; }

    /// The row next to a wanted one. Returns whether there is any.
    bool select(std::ptrdiff_t index);
    bool select(std::string_view key);

    /// Moves the selection where a key (see `ScrollKeys`) does so, by `pageRows` for a page.
    bool key(std::int16_t code, std::ptrdiff_t pageRows);

 private:
    void arrange();

    Items parent_, folders_, files_;
    std::vector<tsListItem*> rows_;
    std::size_t folderRows_ = 0;
    std::size_t selected_ = 0;
    Column column_ = Column::Name;
    SortOrder order_ = SortOrder::Ascending;
};

}  // namespace velvox
