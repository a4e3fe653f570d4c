// clsFastCollection: an ordered collection whose items may have keys.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/runtime_failure.h"

namespace velvox {

/// Where `Add` inserts a new item: before or after the existing item at `place`.
struct Before {
    std::size_t place;
};
struct After {
    std::size_t place;
};

/// Places count from 1. Keys are compared byte for byte; an empty key means no key. An invalid
/// place, an unknown key or a duplicate key throws InvalidCall and leaves the collection unchanged.
///
/// An item keeps its address until it is removed. Access by place and adding at the end take
/// constant time, access by key takes constant time on average. Adding or removing elsewhere moves
/// one pointer for each later item.
template <class T>
class clsFastCollection {
    struct Entry {
        T item;
        std::string key;
    };
    using Entries = std::vector<std::unique_ptr<Entry>>;

    template <class Position, class Item>
    class Iterator {
     public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Item*;
        using reference = Item&;

        Iterator() = default;
        explicit Iterator(Position at) : at_(at) {}
        Item& operator*() const { return (*at_)->item; }
        Item* operator->() const { return &(*at_)->item; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        Iterator operator++(int) { return Iterator(at_++); }
        bool operator==(const Iterator&) const = default;

     private:
        Position at_{};
    };

 public:
    /// Adds an item at the end and returns a reference to it.
    T& Add(T item, std::string_view key = {}) { return insert(Count(), std::move(item), key); }
    T& Add(T item, std::string_view key, Before next) {
        return insert(indexOf(next.place), std::move(item), key);
    }
    T& Add(T item, std::string_view key, After previous) {
        return insert(indexOf(previous.place) + 1, std::move(item), key);
    }

    T& Item(std::size_t place) { return entries_[indexOf(place)]->item; }
    const T& Item(std::size_t place) const { return entries_[indexOf(place)]->item; }
    T& Item(std::string_view key) { return entryOf(key).item; }
    const T& Item(std::string_view key) const { return entryOf(key).item; }

    /// Removes an item without changing the order of the other items.
    void Remove(std::size_t place) { erase(entries_.begin() + offset(indexOf(place))); }
    void Remove(std::string_view key) {
        const Entry* const entry = &entryOf(key);
        // The search starts at the end and costs no more than the removal itself, which moves all
        // items after the removed one.
        auto at = entries_.end();
        do --at;
        while (at->get() != entry);
        erase(at);
    }

    std::size_t Count() const noexcept { return entries_.size(); }

    void Clear() noexcept {
        byKey_.clear();
        entries_.clear();
    }

    bool contains(std::string_view key) const { return byKey_.contains(key); }

    /// The key of the item at a place; empty when it has none.
    const std::string& keyAt(std::size_t place) const { return entries_[indexOf(place)]->key; }

    // Iterates in order. Adding, removing and sorting invalidate all iterators.
    auto begin() noexcept { return Iterator<typename Entries::iterator, T>(entries_.begin()); }
    auto end() noexcept { return Iterator<typename Entries::iterator, T>(entries_.end()); }
    auto begin() const noexcept {
        return Iterator<typename Entries::const_iterator, const T>(entries_.begin());
    }
    auto end() const noexcept {
        return Iterator<typename Entries::const_iterator, const T>(entries_.end());
    }

 private:
    friend class clsSort;

    static std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

    std::size_t indexOf(std::size_t place) const {
        if (place < 1 || place > Count())
            throw RuntimeFailure(Fault::InvalidCall,
                                 "A collection has no item " + std::to_string(place));
        return place - 1;
    }
    Entry& entryOf(std::string_view key) const {
        const auto found = byKey_.find(key);
        if (found == byKey_.end())
            throw RuntimeFailure(Fault::InvalidCall,
                                 "A collection has no key \"" + std::string(key) + "\"");
        return *found->second;
    }

    T& insert(std::size_t index, T&& item, std::string_view key) {
        auto entry = std::make_unique<Entry>(Entry{std::move(item), std::string(key)});
        // Operations that can throw come before any change of entries_.
        if (entries_.size() == entries_.capacity()) entries_.reserve(entries_.size() * 2 + 8);
        if (!key.empty() && !byKey_.emplace(entry->key, entry.get()).second)
            throw RuntimeFailure(Fault::InvalidCall,
                                 "A collection has the key \"" + entry->key + "\" already");
        return (*entries_.insert(entries_.begin() + offset(index), std::move(entry)))->item;
    }
    void erase(typename Entries::iterator at) {
        if (!(*at)->key.empty()) byKey_.erase((*at)->key);
        entries_.erase(at);
    }

    Entries entries_;
    std::unordered_map<std::string_view, Entry*> byKey_;  // the keys are views of Entry::key
};

}  // namespace velvox
