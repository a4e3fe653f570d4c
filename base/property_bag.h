// Stored settings of a user control: an ordered list of keys and values. A key is matched without
// regard to case, since hosts store the keys in lower case; a value equal to its default is not
// written.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/font.h"
#include "base/picture.h"

namespace velvox {

/// `monostate` is "no value": as a write default it means that the value is always written.
using PropertyValue =
    std::variant<std::monostate, bool, std::int32_t, std::string, Font, PicturePtr>;

class PropertyBag {
 public:
    struct Entry {
        std::string key;
        PropertyValue value;

        bool operator==(const Entry&) const = default;
    };

    PropertyBag() = default;
    PropertyBag(std::initializer_list<Entry> entries) : entries_(entries) {}

    /// The stored values. Each returns `fallback` for a missing key and throws TypeMismatch for a
    /// value that cannot be read as asked. Booleans and whole numbers convert into each other
    /// (true is -1).
    bool readBool(std::string_view key, bool fallback) const;
    std::int32_t readNumber(std::string_view key, std::int32_t fallback) const;
    std::string readText(std::string_view key, std::string_view fallback) const;
    Font readFont(std::string_view key, const Font& fallback) const;
    PicturePtr readPicture(std::string_view key, const PicturePtr& fallback) const;

    /// Stores `value` under `key` unless it equals `fallback`; an older value of the key goes.
    void write(std::string_view key, PropertyValue value, const PropertyValue& fallback = {});

    const std::vector<Entry>& entries() const noexcept { return entries_; }

    bool operator==(const PropertyBag&) const = default;

 private:
    const PropertyValue* lookUp(std::string_view key) const;

    std::vector<Entry> entries_;
};

}  // namespace velvox
