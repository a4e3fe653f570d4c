#include "gallery/file_rows.h"

#include <gtest/gtest.h>

#include "controlkit/scroll_control.h"

namespace velvox {
namespace {

FileRows::Items items(std::initializer_list<std::pair<const char*, std::uint64_t>> rows) {
    FileRows::Items made;
    for (const auto& [name, size] : rows) made.Add({name, name, size, nullptr, false}, name);
    return made;
}

/// The names of the rows, with the selected one in brackets.
std::string shown(FileRows& rows) {
    std::string all;
    for (std::size_t i = 0; i < rows.count(); ++i) {
        const tsListItem& item = rows.row(i);
        EXPECT_EQ(item.selected, i == rows.selected());
        all += item.selected ? "[" + item.text + "]" : item.text + " ";
    }
    return all;
}

TEST(FileRowsTest, FoldersComeFirstInEitherOrderAndTheSelectionStays) {
    FileRows rows;
    rows.show(items({{"..", 0}}), items({{"b", 0}, {"a", 0}}),
              items({{"file 10", 1}, {"file 2", 7}, {"c", 1}}));
    EXPECT_EQ(shown(rows), "[..]a b c file 2 file 10 ");
    EXPECT_TRUE(rows.isFolder(2));
    EXPECT_FALSE(rows.isFolder(3));
    EXPECT_TRUE(rows.select("file 2"));
    EXPECT_FALSE(rows.select("none"));
    rows.sortBy(FileRows::Column::Name);
    EXPECT_EQ(shown(rows), ".. b a file 10 [file 2]c ");
    rows.sortBy(FileRows::Column::Size);
    EXPECT_EQ(shown(rows), ".. a b c file 10 [file 2]");
    rows.sortBy(FileRows::Column::Size);
    EXPECT_EQ(shown(rows), ".. b a [file 2]file 10 c ");

    constexpr struct {
        std::int16_t code;
        std::size_t selected;
    } keys[] = {{ScrollKeys::up, 2},       {ScrollKeys::end, 5},    {ScrollKeys::down, 5},
                {ScrollKeys::pageUp, 1},   {ScrollKeys::pageUp, 0}, {ScrollKeys::down, 1},
                {ScrollKeys::pageDown, 5}, {ScrollKeys::home, 0}};
    for (const auto& [code, selected] : keys) {
        EXPECT_TRUE(rows.key(code, 4));
        EXPECT_EQ(rows.selected(), selected) << code;
    }
    EXPECT_FALSE(rows.key(ScrollKeys::left, 4));
    rows.show({}, {}, {});
    EXPECT_FALSE(rows.key(ScrollKeys::end, 4));
    rows.sortBy(FileRows::Column::Name);
    EXPECT_EQ(shown(rows), "");
}

TEST(FileRowsTest, SizesAndParentsAreWritten) {
    constexpr std::pair<std::uint64_t, const char*> sizes[] = {{0, "0 B"},
                                                               {1023, "1023 B"},
                                                               {1024, "1.0 KB"},
                                                               {1536, "1.5 KB"},
                                                               {1048575, "1.0 MB"},
                                                               {1048576, "1.0 MB"},
                                                               {71 * 1024, "71.0 KB"},
                                                               {~std::uint64_t{0}, "16.0 EB"}};
    for (const auto& [bytes, text] : sizes) EXPECT_EQ(sizeText(bytes), text) << bytes;
    constexpr std::pair<const char*, const char*> folders[] = {
        {R"(C:\a\b)", R"(C:\a)"}, {R"(C:\a)", R"(C:\)"}, {R"(C:\)", ""}, {"", ""}};
    for (const auto& [folder, parent] : folders) EXPECT_EQ(parentFolder(folder), parent) << folder;
}

}  // namespace
}  // namespace velvox
