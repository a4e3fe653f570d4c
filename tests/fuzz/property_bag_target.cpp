// Stored settings, one per line: a key, a type (b, n, t or f) and a value. If a control accepts the
// settings, it must write settings that are equal when they are read again.
#include <algorithm>
#include <limits>

#include "base/runtime_failure.h"
#include "base/utf16.h"
#include "controls/button/is_button.h"
#include "controls/text_box/xp_text_box.h"
#include "tests/app/form1/form1_fixture.h"
#include "tests/controlkit/fake_scroll_host.h"
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

/// `make` returns a new control. The control reads a bag and writes another one, which must be
/// equal when it is read and written again.
template <class Make>
void checkRoundTrip(const PropertyBag& stored, Make make) {
    const auto rewritten = [&make](const PropertyBag& from) {
        auto control = make();
        control.ReadProperties(from);
        PropertyBag written;
        control.WriteProperties(written);
        return written;
    };
    PropertyBag once;
    try {
        once = rewritten(stored);
    } catch (const RuntimeFailure&) {
        return;
    }
    // The button's caption and alignment have different defaults for reading and for writing. A
    // value that equals the default for writing appears only in the second bag.
    const PropertyBag twice = rewritten(once);
    const auto& kept = twice.entries();
    for (const auto& entry : once.entries())
        require(std::find(kept.begin(), kept.end(), entry) != kept.end(), "a setting is lost");
    require(kept.size() <= once.entries().size() + 2, "settings are read that were not written");
    require(rewritten(twice) == twice, "something else is read back");
}

/// Lays out controls that have read a bag, which may have any numbers.
void drawWith(const PropertyBag& stored) {
    testing::FakeScrollHost host;
    ScrollControl bar(Axis::Vertical, host);
    XPTextBox box("box");
    try {
        bar.ReadProperties(stored);
        box.ReadProperties(stored);
    } catch (const RuntimeFailure&) {
        return;
    }
    for (const int dpi : {96, 240}) {
        bar.resize(130, 16, dpi);
        require(bar.geometry().moreArrow().end() == 130, "the parts' length");
        for (const int size : {0, 90, 330, std::numeric_limits<int>::max()}) {
            box.Move({0, 0, size, size});
            box.textBounds(size, size, dpi);
        }
    }
    require(box.MaxLength() == 0 ||
                characterCount(box.Text()) <= static_cast<std::size_t>(box.MaxLength()),
            "a text beyond its limit");
}

}  // namespace

void bag(std::string_view input) {
    const PropertyBag stored = bagOf(input);
    const testing::FakeColours colours;
    checkRoundTrip(stored, [] { return XPTextBox("box"); });
    testing::FakeScrollHost host;
    for (const Axis axis : {Axis::Vertical, Axis::Horizontal})
        checkRoundTrip(stored, [&] { return ScrollControl(axis, host); });
    checkRoundTrip(stored, [&] { return isButton("button", colours); });
    drawWith(stored);
}

}  // namespace velvox::fuzz
