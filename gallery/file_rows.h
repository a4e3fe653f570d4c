// The rows of the Files page, their order and the selected row.
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

/// A size as text, such as "512 B" or "1.5 KB", in units of 1024.
std::string sizeText(std::uint64_t bytes);

/// The parent of a folder. Empty for the root of a drive, where the list of drives is shown.
std::string parentFolder(std::string_view folder);

class FileRows {
 public:
    using Items = clsFastCollection<tsListItem>;
    enum class Column { Name, Size };

    /// Replaces all rows and selects the first one. The parent's row comes first, then folders,
    /// then files.
    void show(Items parent, Items folders, Items files);

    /// Sorts by a column, or reverses the order if the rows are sorted by it already. The selected
    /// item stays selected.
    void sortBy(Column column);
    Column column() const noexcept { return column_; }
    SortOrder order() const noexcept { return order_; }

    std::size_t count() const noexcept { return rows_.size(); }
    tsListItem& row(std::size_t index) { return *rows_.at(index); }
    bool isFolder(std::size_t index) const noexcept { return index < folderRows_; }

    /// Index of the selected row; 0 without rows.
    std::size_t selected() const noexcept { return selected_; }

    /// Selects the row nearest to an index, or the row with a key. Returns whether there is such a
    /// row.
    bool select(std::ptrdiff_t index);
    bool select(std::string_view key);

    /// Handles a key that moves the selection (see `ScrollKeys`). `pageRows` is the number of rows
    /// by which Page Up and Page Down move it. Returns false for any other key, and if there are no
    /// rows.
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
