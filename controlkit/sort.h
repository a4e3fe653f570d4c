// clsSort: sorts collections.
#pragma once

#include <algorithm>
#include <compare>
#include <string_view>
#include <utility>
#include <vector>

#include "controlkit/fast_collection.h"

namespace velvox {

/// Natural order of names: numbers in names are compared by value (file 2 before file 10), ASCII
/// letters without regard to case. Names that are equal by these rules are compared by their bytes.
std::strong_ordering compareNaturally(std::string_view a, std::string_view b);

enum class SortOrder { Ascending, Descending };

class clsSort {
 public:
    /// Sorts by `less(a, b)`, which returns whether item a comes before item b. The sort is stable
    /// in both directions. Items keep their keys and addresses. If `less` throws, the list is
    /// unchanged.
    template <class T, class Less>
    static void SortList(clsFastCollection<T>& list, Less less,
                         SortOrder order = SortOrder::Ascending) {
        using Entry = typename clsFastCollection<T>::Entry;
        std::vector<Entry*> sorted;
        sorted.reserve(list.Count());
        for (const auto& entry : list.entries_) sorted.push_back(entry.get());
        std::ranges::stable_sort(sorted, [&](const Entry* a, const Entry* b) {
            if (order == SortOrder::Descending) std::swap(a, b);
            return static_cast<bool>(less(std::as_const(a->item), std::as_const(b->item)));
        });
        // No statement below can throw.
        for (auto& entry : list.entries_) static_cast<void>(entry.release());
        for (std::size_t i = 0; i < sorted.size(); ++i) list.entries_[i].reset(sorted[i]);
    }
};

}  // namespace velvox
