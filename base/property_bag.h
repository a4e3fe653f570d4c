// The stored properties of a control: an ordered list of keys and values. Keys match in any letter
// case, because containers store them in lower case. A value equal to its default is not stored.
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

/// `monostate` means "no value". As the `fallback` of write() it means that the value is always
/// stored.
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

    /// Each returns the value stored under `key`, or `fallback` if there is none. Throws
    /// TypeMismatch for a value of another type, except that booleans and integers convert into
    /// each other (true is -1).
    bool readBool(std::string_view key, bool fallback) const;
    std::int32_t readNumber(std::string_view key, std::int32_t fallback) const;
    std::string readText(std::string_view key, std::string_view fallback) const;
    Font readFont(std::string_view key, const Font& fallback) const;
    PicturePtr readPicture(std::string_view key, const PicturePtr& fallback) const;

    /// Replaces the value stored under `key`. If `value` equals `fallback`, nothing is stored.
    void write(std::string_view key, PropertyValue value, const PropertyValue& fallback = {});

    const std::vector<Entry>& entries() const noexcept { return entries_; }

    bool operator==(const PropertyBag&) const = default;

 private:
    const PropertyValue* lookUp(std::string_view key) const;

    std::vector<Entry> entries_;
};

}  // namespace velvox
