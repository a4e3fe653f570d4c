#include "base/property_bag.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

RuntimeFailure mismatch(std::string_view key) {
    return {Fault::TypeMismatch, "The stored property " + std::string(key) + " has another type"};
}

}  // namespace

const PropertyValue* PropertyBag::lookUp(std::string_view key) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return ascii::equalIgnoringCase(entry.key, key);
    });
    return found == entries_.end() ? nullptr : &found->value;
}

bool PropertyBag::readBool(std::string_view key, bool fallback) const {
    const PropertyValue* value = lookUp(key);
    if (!value) return fallback;
    if (const auto* flag = std::get_if<bool>(value)) return *flag;
    if (const auto* number = std::get_if<std::int32_t>(value)) return *number != 0;
    throw mismatch(key);
}

std::int32_t PropertyBag::readNumber(std::string_view key, std::int32_t fallback) const {
    const PropertyValue* value = lookUp(key);
    if (!value) return fallback;
    if (const auto* number = std::get_if<std::int32_t>(value)) return *number;
    if (const auto* flag = std::get_if<bool>(value)) return *flag ? -1 : 0;
    throw mismatch(key);
}

std::string PropertyBag::readText(std::string_view key, std::string_view fallback) const {
    const PropertyValue* value = lookUp(key);
    if (!value) return std::string(fallback);
    if (const auto* text = std::get_if<std::string>(value)) return *text;
    throw mismatch(key);
}

Font PropertyBag::readFont(std::string_view key, const Font& fallback) const {
    const PropertyValue* value = lookUp(key);
    if (!value) return fallback;
    if (const auto* font = std::get_if<Font>(value)) return *font;
    throw mismatch(key);
}

PicturePtr PropertyBag::readPicture(std::string_view key, const PicturePtr& fallback) const {
    const PropertyValue* value = lookUp(key);
    if (!value) return fallback;
    if (const auto* picture = std::get_if<PicturePtr>(value)) return *picture;
    throw mismatch(key);
}

void PropertyBag::write(std::string_view key, PropertyValue value, const PropertyValue& fallback) {
    std::erase_if(entries_,
                  [&](const Entry& entry) { return ascii::equalIgnoringCase(entry.key, key); });
    const bool isDefault = !std::holds_alternative<std::monostate>(fallback) && value == fallback;
    if (!isDefault) entries_.push_back({std::string(key), std::move(value)});
}

}  // namespace velvox
