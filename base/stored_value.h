// Reads and writes values of a property bag by their C++ type. Each control with stored properties
// has a table of key, member and defaults, and calls these functions for each row.
#pragma once

#include <bit>
#include <string>

#include "base/colour.h"
#include "base/property_bag.h"

namespace velvox {

inline bool readStored(const PropertyBag& bag, std::string_view key, bool fallback) {
    return bag.readBool(key, fallback);
}
inline std::int32_t readStored(const PropertyBag& bag, std::string_view key,
                               std::int32_t fallback) {
    return bag.readNumber(key, fallback);
}
/// The bits of a colour are stored as a signed number, because a system colour has the top bit set.
inline OleColour readStored(const PropertyBag& bag, std::string_view key, OleColour fallback) {
    return std::bit_cast<OleColour>(bag.readNumber(key, std::bit_cast<std::int32_t>(fallback)));
}
inline std::string readStored(const PropertyBag& bag, std::string_view key,
                              const std::string& fallback) {
    return bag.readText(key, fallback);
}
inline Font readStored(const PropertyBag& bag, std::string_view key, const Font& fallback) {
    return bag.readFont(key, fallback);
}
inline PicturePtr readStored(const PropertyBag& bag, std::string_view key,
                             const PicturePtr& fallback) {
    return bag.readPicture(key, fallback);
}

template <class Value>
PropertyValue storedValue(const Value& value) {
    return value;
}
inline PropertyValue storedValue(OleColour colour) {
    return std::bit_cast<std::int32_t>(colour);
}

}  // namespace velvox
