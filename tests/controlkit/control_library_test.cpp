// The examples of docs/control-library.md that need no window. The build compares both files.
#include <gtest/gtest.h>

#include "controlkit/fast_collection.h"
#include "controlkit/list_item.h"
#include "controlkit/private_scroll.h"
#include "controlkit/sort.h"

namespace velvox {
namespace {

TEST(ControlLibraryTest, Collection) {
    std::string listed;
    clsFastCollection<std::string> songs;
    songs.Add("Blue in Green", "track 3");
    songs.Add("So What", "track 1", Before{1});
    songs.Add("Interlude", {}, After{1});  // without a key
    songs.Item("track 3") += " (mono)";
    songs.Remove(2);
    for (const std::string& song : songs) listed += song + "; ";
    if (songs.contains("track 1")) songs.Remove("track 1");
    const std::string last = songs.Item(songs.Count());
    songs.Clear();
    EXPECT_EQ(listed + last, "So What; Blue in Green (mono); Blue in Green (mono)");
}

TEST(ControlLibraryTest, Sort) {
    clsFastCollection<std::string> names;
    for (const char* name : {"file 10", "File 2", "about"}) names.Add(name);
    const auto naturally = [](const std::string& a, const std::string& b) {
        return compareNaturally(a, b) < 0;
    };
    clsSort::SortList(names, naturally);
    const std::string first = names.Item(1);
    clsSort::SortList(names, naturally, SortOrder::Descending);
    EXPECT_EQ(first + names.Item(1), "aboutfile 10");
}

TEST(ControlLibraryTest, ListItem) {
    clsFastCollection<tsListItem> rows;
    tsListItem item;
    item.text = "notes.txt";
    item.key = "C:\\notes.txt";
    item.size = 1024;
    rows.Add(item, item.key);
    rows.Item("C:\\notes.txt").selected = true;
    EXPECT_TRUE(rows.Item(1).selected);
}

TEST(ControlLibraryTest, ScrollModel) {
    std::string changes;
    tsPrivateScroll model(Axis::Horizontal);
    model.Max(400);
    model.Change = [&](const FixedPoint& Value) { changes += Value.text() + " "; };
    model.Value(60);
    model.BlockVS(true);  // the next assignment raises no Change
    model.Value(80);
    model.BlockValue(true);  // until it is released
    model.Value(100);
    EXPECT_EQ(changes + model.Value().text(), "50 80");
}

}  // namespace
}  // namespace velvox
