#include "controlkit/fast_collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "controlkit/sort.h"

namespace velvox {
namespace {

/// A collection and a plain list, which must stay equal under random operations.
struct Twins {
    using Rows = std::vector<std::pair<int, std::string>>;

    void step() {
        const auto pick = [&](std::size_t below) { return random() % below; };
        const std::size_t count = plain.size(), place = pick(count + 2);
        const bool isPlace = place >= 1 && place <= count;
        const std::string key = pick(3) ? "k" + std::to_string(pick(40)) : std::string();
        const auto keyed = std::ranges::find(plain, key, &Rows::value_type::second);
        const bool isKey = !key.empty() && keyed != plain.end();
        const int item = static_cast<int>(pick(10));
        const auto at = [&](std::size_t from1) {
            return plain.begin() + static_cast<std::ptrdiff_t>(from1) - 1;
        };
        const auto works = [](bool valid, const std::function<void()>& operation) {
            if (valid)
                operation();
            else
                EXPECT_THROW(operation(), RuntimeFailure);
            return valid;
        };
        switch (pick(count < 60 ? 5 : 7)) {
            case 0:
                if (works(!isKey, [&] { tested.Add(item, key); })) plain.emplace_back(item, key);
                break;
            case 1:
                if (works(isPlace && !isKey, [&] { tested.Add(item, key, Before{place}); }))
                    plain.insert(at(place), {item, key});
                break;
            case 2:
                if (works(isPlace && !isKey, [&] { tested.Add(item, key, After{place}); }))
                    plain.insert(at(place + 1), {item, key});
                break;
            case 3:
                clsSort::SortList(tested, std::less<>(),
                                  item % 2 ? SortOrder::Ascending : SortOrder::Descending);
                std::ranges::stable_sort(plain, [&](const auto& a, const auto& b) {
                    return item % 2 ? a.first < b.first : b.first < a.first;
                });
                break;
            case 4:
            case 5:
                if (works(isPlace, [&] { tested.Remove(place); })) plain.erase(at(place));
                break;
            default:
                if (works(isKey, [&] { tested.Remove(key); })) plain.erase(keyed);
        }
    }

    void compare() const {
        ASSERT_EQ(tested.Count(), plain.size());
        std::size_t place = 0;
        auto expected = plain.begin();
        for (const int& item : tested) {
            const auto& [plainItem, key] = *expected++;
            ASSERT_EQ(item, plainItem);
            ASSERT_EQ(&tested.Item(++place), &item);
            ASSERT_EQ(tested.keyAt(place), key);
            ASSERT_EQ(tested.contains(key), !key.empty());
            if (key.empty()) continue;
            ASSERT_EQ(&tested.Item(key), &item);
        }
    }

    std::minstd_rand random;
    clsFastCollection<int> tested;
    Rows plain;
};

TEST(FastCollectionTest, RandomOperationsKeepItLikeAPlainList) {
    Twins twins;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_NO_FATAL_FAILURE(twins.step()) << i;
        ASSERT_NO_FATAL_FAILURE(twins.compare()) << i;
    }
    EXPECT_GT(twins.plain.size(), 20U);
    const int* const first = &twins.tested.Item(1);
    clsFastCollection<int> moved = std::move(twins.tested);
    EXPECT_EQ(&moved.Item(1), first) << "items stay at their addresses";
    moved.Clear();
    EXPECT_THROW(moved.Item(1), RuntimeFailure);
    EXPECT_THROW(moved.Item(""), RuntimeFailure) << "an empty key is none";
    EXPECT_EQ(moved.Add(1, twins.plain[0].second), 1) << "its keys are free again";
}

TEST(SortTest, AComparisonThatThrowsLeavesTheListAsItWas) {
    clsFastCollection<int> list;
    for (const int item : {3, 1, 2}) list.Add(item, std::to_string(item));
    int calls = 0;
    const auto fails = [&](int a, int b) { return ++calls > 2 ? throw 1 : a < b; };
    EXPECT_THROW(clsSort::SortList(list, fails), int);
    EXPECT_EQ(list.Item(1) * 100 + list.Item("1") * 10 + list.Item(3), 312);
}

// The names are in order: each comes before all later ones.
TEST(SortTest, NamesAreOrderedAsAReaderWould) {
    const std::string_view all =
        "\n 1\n0\n00\n1\n1 a\n1a\n01b\n2\n10\n99999999999999999999\na\na.txt\na01\na1\na1.txt\n"
        "A2.txt\na10.txt\na10b\na10b2\na10b10\nFile 2\nfile 10\n\xC3\xA4";
    std::vector<std::string> names(1);
    for (const char c : all) c == '\n' ? names.emplace_back() : names.back() += c;
    for (std::size_t a = 0; a < names.size(); ++a)
        for (std::size_t b = 0; b < names.size(); ++b)
            EXPECT_EQ(compareNaturally(names[a], names[b]), a <=> b)
                << names[a] << ", " << names[b];
}

}  // namespace
}  // namespace velvox
