// Checks the scroll bar's geometry for any numbers.
#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "controlkit/scroll_geometry.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

void checkGeometry(const std::array<std::int32_t, 8>& n) {
    const auto value = FixedPoint::ofUnits((std::int64_t{n[6]} << 32) ^ n[7]);
    ScrollMeasure m{n[0], n[1], n[2], n[3], n[4], n[5], value};
    const ScrollGeometry g(m);
    const Span thumb = g.thumb();
    const Span track = g.track();
    int at = 0;
    for (const auto& [part, span] : {std::pair{ScrollPart::LessArrow, g.lessArrow()},
                                     {ScrollPart::TrackBefore, g.trackBefore()},
                                     {ScrollPart::Thumb, thumb},
                                     {ScrollPart::TrackAfter, g.trackAfter()},
                                     {ScrollPart::MoreArrow, g.moreArrow()}}) {
        require(span.start == at && span.length >= 0, "a gap between the parts");
        at = span.end();
        if (span.length == 0) continue;
        require(g.hit(span.start) == part && g.hit(at - 1) == part, "another part is hit");
    }
    require(at == std::max(0, m.length), "the parts' length");
    require(g.hit(at) == ScrollPart::None && g.hit(-1) == ScrollPart::None, "a hit outside");
    require(g.lessArrow().length == g.moreArrow().length, "arrows of two lengths");
    require(thumb.length == 0 || thumb.length >= std::min(m.minThumb, track.length), "minimum");

    const std::int64_t range = std::max<std::int64_t>(0, std::int64_t{m.max} - m.min);
    const int travel = track.length - thumb.length;
    const int last = track.start + travel;
    for (const int start : {lowest, highest, n[6], n[7], track.start, last, thumb.start}) {
        const int place = g.clampThumb(start);
        require(place >= track.start && place <= last, "a thumb outside its track");
        require(g.withThumbAt(start).thumb().start == place, "a thumb held elsewhere");
        const FixedPoint shown = g.valueAt(start);
        require(shown >= m.min && shown <= std::max(m.min, m.max), "a value out of its bounds");
        if (range < travel || range == 0) continue;
        m.value = shown;
        require(ScrollGeometry(m).thumb().start == place, "a place does not come back");
    }
    require(g.valueAt(lowest) == FixedPoint(m.min), "the first value");
    if (range > 0 && travel > 0) require(g.valueAt(highest) == FixedPoint(m.max), "the last value");
}

}  // namespace

// The input is a sequence of measures of eight 32-bit numbers each. The last two numbers are the
// value.
void scroll_geometry(std::string_view input) {
    std::array<std::int32_t, 8> numbers{};
    for (; !input.empty(); input.remove_prefix(std::min(input.size(), sizeof numbers))) {
        std::memcpy(numbers.data(), input.data(), std::min(input.size(), sizeof numbers));
        checkGeometry(numbers);
    }
}

}  // namespace velvox::fuzz
