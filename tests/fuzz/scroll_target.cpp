// The scroll bar's geometry for any numbers, and its state machine under any events. Three bytes of
// the input are an event and its two numbers; a handler may act in the middle of one.
#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "base/runtime_failure.h"
#include "tests/controlkit/fake_scroll_host.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

/// A bar that knows what was drawn and raised.
class Bar {
 public:
    Bar() {
        host_.onRepaint = [this] { drawn_ = picture(); };
        host_.onCaptureLost = [this] { bar_.captureLost(); };
        bar_.Change = [this](const FixedPoint& value) {
            require(value == bar_.Value(), "Change shows another value than the stored one");
            ++changes_;
            interfere();
        };
        bar_.MouseHover = [this] {
            require(!std::exchange(inside_, true), "MouseHover is raised twice");
            interfere();
        };
        bar_.MouseLeave = [this] {
            require(std::exchange(inside_, false), "MouseLeave without MouseHover");
            interfere();
        };
        bar_.Scroll = [this] { interfere(); };
        bar_.KeyDown = bar_.KeyUp = [this](std::int16_t&, int) { interfere(); };
        bar_.MouseDown = bar_.MouseUp = bar_.MouseMove = [this](auto...) { interfere(); };
        bar_.MouseWheel = [this](int) { interfere(); };
    }

    void play(std::uint8_t event, std::uint8_t a, std::uint8_t b) {
        attempt(event, a, b);
        check();
    }

 private:
    /// What the user sees of the bar.
    struct Picture {
        FixedPoint value;
        Span thumb;
        std::array<PartState, 6> states{};
        bool hasFocus = false;
        bool enabled = false;
        bool operator==(const Picture&) const = default;
    };
    Picture picture() const {
        Picture shown{bar_.Value(), bar_.geometry().thumb(), {}, bar_.hasFocus(), bar_.Enabled()};
        for (const ScrollPart part :
             {ScrollPart::LessArrow, ScrollPart::TrackBefore, ScrollPart::Thumb,
              ScrollPart::TrackAfter, ScrollPart::MoreArrow})
            shown.states[static_cast<std::size_t>(part)] = bar_.stateOf(part);
        return shown;
    }

    /// What the armed handler does, once.
    void interfere() {
        const auto [event, a, b] = std::exchange(armed_, {});
        if (event != 0) attempt(event, a, b);
    }

    void attempt(std::uint8_t event, std::uint8_t a, std::uint8_t b) {
        try {
            act(event, a, b);
        } catch (const RuntimeFailure&) {
            // A refused setting, or a value beyond the fixed point.
        }
    }

    static std::int32_t numberOf(std::uint8_t a, std::uint8_t b) {
        constexpr std::array numbers{lowest, lowest + 1, -1, 0, 1, 100, highest - 1, highest};
        return b < numbers.size() ? numbers[b] : (a - 128) * (b - 7);
    }

    /// An assignment by the steps that are promised, against the bar's own.
    void assign(FixedPoint wanted) {
        const std::int32_t max = std::max(bar_.Min(), bar_.Max());
        const FixedPoint next = std::clamp<FixedPoint>(wanted, bar_.Min(), max);
        const FixedPoint before = bar_.Value();
        const bool blocked = bar_.BlockValue();
        const bool suppressed = bar_.BlockVS();
        const bool disturbed = armed_[0] != 0;
        changes_ = 0;
        bar_.Value(wanted);
        if (disturbed && armed_[0] == 0) return;
        require(bar_.Value() == (blocked ? before : next), "another value is stored");
        require(changes_ == (!blocked && !suppressed && next != before), "Change");
        require(bar_.BlockVS() == (blocked && suppressed), "the suppression of Change");
    }

    void act(std::uint8_t event, std::uint8_t a, std::uint8_t b) {
        const BarPoint at{a - 64, b - 64};
        const MouseState left{MouseButton::Left};
        const std::int32_t number = numberOf(a, b);
        switch (event % 32) {
            case 1: return bar_.mouseMove(at, {});
            case 2: return bar_.mouseDown(at, left);
            case 3: return bar_.mouseUp(at, left);
            case 4: return bar_.mouseDoubleClick(at, left);
            case 5: return bar_.mouseDown(at, {MouseButton::Right});
            case 6: return bar_.mouseUp(at, {MouseButton::Right});
            case 7: leavesSeen_ = host_.leaveRequests; return bar_.mouseLeave();
            case 8: return host_.capture(false);
            case 9: return bar_.hidden();
            case 10: return bar_.tick(a % 2 ? RepeatTimer::Arrow : RepeatTimer::Track);
            case 11: bar_.wheel((a - 128) * 10); return;
            case 12: return bar_.keyDown(static_cast<std::int16_t>(0x20 + a % 10), b % 8);
            case 13: return bar_.keyUp(a, b % 8);
            case 14: return bar_.focus(a % 2);
            case 15: return bar_.resize(a, b % 40, 96 + b);
            case 16: return assign(number);
            case 17: return assign(FixedPoint::ofUnits(std::int64_t{number} * a));
            case 18: return bar_.Min(number);
            case 19: return bar_.Max(number);
            case 20: return bar_.SmallChange(number);
            case 21: return bar_.LargeChange(number);
            case 22: return bar_.WheelChange(number);
            case 23: return bar_.MouseInterval(number);
            case 24: return bar_.Enabled(a % 4);
            case 25: return bar_.EnableWheel(a % 4);
            case 26: return bar_.BlockVS(a % 2);
            // A bound that moved meanwhile takes the value along with the next assignment.
            case 27: bar_.BlockValue(a % 4 == 0); return assign(bar_.Value());
            case 28: return bar_.UnRefreshControl(a % 2);
            case 29:
                return bar_.ReadProperties({{"ScrollHeight", number}, {"Enabled", a % 4 != 0}});
            case 30:
                bar_.InitProperties();
                return require(bar_.Value() == 50 && !host_.period[0] && !host_.period[1], "new");
            case 31: armed_ = {static_cast<std::uint8_t>(a % 31), b, a}; return;
            default: return;
        }
    }

    void check() {
        const ScrollPart held = bar_.held();
        require(host_.captured == (held != ScrollPart::None), "capture without a press");
        require(!host_.period[0] || isArrow(held), "the arrows' timer");
        require(!host_.period[1] || isTrack(held), "the track's timer");
        require(host_.enabled == bar_.Enabled(), "the window's state");
        require(!inside_ || held != ScrollPart::None || host_.leaveRequests > leavesSeen_,
                "the pointer may leave without a report");
        require(bar_.Enabled() || (held == ScrollPart::None && !inside_), "a disabled bar in use");
        require(drawn_.value == bar_.Value(), "the value is not drawn");
        // Otherwise what has changed may wait for the next redraw.
        if (bar_.UnRefreshControl()) require(drawn_ == picture(), "a state is not drawn");
        const bool mayLieOutside = bar_.BlockValue();
        require(mayLieOutside || (bar_.Value() >= bar_.Min() &&
                                  bar_.Value() <= std::max(bar_.Min(), bar_.Max())),
                "the value is out of its bounds");
        const Span thumb = bar_.geometry().thumb();
        const Span track = bar_.geometry().track();
        require(thumb.start >= track.start && thumb.end() <= track.end(), "the thumb's place");
    }

    testing::FakeScrollHost host_;
    ScrollControl bar_{Axis::Vertical, host_};
    Picture drawn_ = picture();
    int changes_ = 0;
    int leavesSeen_ = 0;  // requests up to the last report that the pointer has left
    bool inside_ = false;
    std::array<std::uint8_t, 3> armed_{};
};

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

void scroll(std::string_view input) {
    Bar bar;
    const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(input[at]); };
    bar.play(15, 130, 16);
    for (std::size_t at = 0; at + 2 < input.size(); at += 3)
        bar.play(byte(at), byte(at + 1), byte(at + 2));
}

// Measures of eight numbers of 32 bits each, the value in the last two.
void scroll_geometry(std::string_view input) {
    std::array<std::int32_t, 8> numbers{};
    for (; !input.empty(); input.remove_prefix(std::min(input.size(), sizeof numbers))) {
        std::memcpy(numbers.data(), input.data(), std::min(input.size(), sizeof numbers));
        checkGeometry(numbers);
    }
}

}  // namespace velvox::fuzz
