// Stored settings, one a line: a key, a type (b, n, t or f) and a value. Whatever the controls
// take they must write so that reading it gives the same again.
#include <algorithm>
#include <optional>

#include "base/runtime_failure.h"
#include "controls/is_button.h"
#include "controls/xp_text_box.h"
#include "tests/app/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

PropertyBag bagOf(std::string_view input) {
    PropertyBag bag;
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(line.size() + 1, input.size()));
        const auto keyEnd = line.find(' ');
        if (keyEnd == line.npos || line.size() < keyEnd + 3) continue;
        const std::string_view key = line.substr(0, keyEnd);
        const std::string value(line.substr(keyEnd + 3));
        switch (line[keyEnd + 1]) {
            case 'b': bag.write(key, value == "1"); break;
            case 'n':
                bag.write(key, static_cast<std::int32_t>(std::strtoll(value.c_str(), nullptr, 0)));
                break;
            case 't': bag.write(key, value); break;
            case 'f': bag.write(key, Font{.name = value}); break;
            default: bag.write(key, PropertyValue{}, PropertyValue{}); break;
        }
    }
    return bag;
}

template <class Control>
std::optional<PropertyBag> readAndWrite(Control& control, const PropertyBag& bag) {
    try {
        control.ReadProperties(bag);
    } catch (const RuntimeFailure&) {
        return {};
    }
    PropertyBag written;
    control.WriteProperties(written);
    return written;
}

}  // namespace

void bag(std::string_view input) {
    const PropertyBag stored = bagOf(input);
    const auto textBox = [](const PropertyBag& from) {
        XPTextBox box("box");
        return readAndWrite(box, from);
    };
    if (const auto once = textBox(stored)) {
        const auto twice = textBox(*once);
        require(twice && *twice == *once, "the text box reads back something else");
    }

    const testing::FakeColours colours;
    const auto button = [&](const PropertyBag& from) {
        isButton model("button", colours);
        return readAndWrite(model, from);
    };
    if (const auto once = button(stored)) {
        const auto twice = button(*once);
        require(twice.has_value(), "the button refuses what it wrote");
        // Two defaults differ in reading and writing: what equals the written one comes back as
        // the read one.
        PropertyBag expected;
        for (const auto& entry : twice->entries()) {
            const bool missing =
                std::none_of(once->entries().begin(), once->entries().end(),
                             [&](const auto& other) { return other.key == entry.key; });
            if (!missing) expected.write(entry.key, entry.value);
            if (missing)
                require(entry == PropertyBag::Entry{"IconAlign", 1} ||
                            entry == PropertyBag::Entry{"Caption", std::string("isButton")},
                        "the button reads back something more");
        }
        require(expected == *once, "the button reads back something else");
    }
}

}  // namespace velvox::fuzz
