// Each byte is an event of a push button. An independent model, which follows the button's rules
// and not its code, must show the same states and raise the same events in the same order.
#include "controls/button/is_button.h"
#include "tests/controls/button/is_button_fakes.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

struct Model {
    enum { Normal = 1, Hot, Pressed, Disabled };

    int state = Normal;
    int style = 0, type = 0, lastButton = 0;
    bool enabled = true, value = false, designed = false;
    bool inside = false, tracked = true, draggedOff = false;
    bool disablesItself = false;  ///< the handler of Click disables the button
    std::string log;

    int shown() const {
        const int atRest = inside && tracked ? Hot : Normal;
        int adjusted = state;
        if (state == Hot && !tracked) adjusted = Normal;
        if (state == Pressed && draggedOff) adjusted = atRest;
        if (designed && style != 5) adjusted = Hot;
        if (type == 1 && value) adjusted = Pressed;
        return enabled ? adjusted : Disabled;
    }
    void repaint() { log += static_cast<char>('0' + shown()); }
    void enter(int next) { state = next, repaint(); }
    void raiseClick() {
        log += 'C';
        if (disablesItself) enabled = false, repaint();
    }
    void move() {
        if (inside) return;
        inside = true;
        log += 't';
        enter(Hot);
        log += "ET";
    }
    void leave() {
        inside = false;
        enter(Normal);
        log += 'L';
    }
    void down(int button) {
        if (button != 1 || !enabled) return;
        draggedOff = false;
        enter(Pressed);
    }
    void up(int button) {
        lastButton = button;
        if (button != 1 || !enabled) return;
        draggedOff = false;
        enter(type != 1 || value ? Hot : Pressed);
    }
    void click() {
        if (lastButton != 1 || !enabled) return;
        if (type == 1) value = !value, enter(Hot);
        raiseClick();
    }
    void space() {
        if (!enabled) return;
        raiseClick();
        click();
    }
    // Additional events that the button's window reports.
    void cancel() {
        const int atRest = inside ? Hot : Normal;
        if (state == atRest) return;
        draggedOff = false;
        enter(atRest);
    }
    void drag(bool over) {
        if (state == Pressed && draggedOff == over) draggedOff = !over, repaint();
    }
    void activate() {
        if (!enabled) return;
        if (type == 1) value = !value, enter(inside ? Hot : Normal);
        raiseClick();
    }
};

struct Recorder : ButtonLog {
    explicit Recorder(isButton& shown) : ButtonLog(shown), button(shown) {}
    void controlChanged(ControlChange) override {
        text += static_cast<char>('0' + int(button.visualState()));
    }

    isButton& button;
};

void happen(char what, isButton& b, Model& m) {
    constexpr MouseButton buttons[] = {MouseButton::Left, MouseButton::Right, MouseButton::Middle};
    const int number = (what >> 5) & 3;
    const MouseButton button = buttons[number % 3];
    const bool flag = number != 0;
    switch (what & 31) {
        case 0: b.zSubclass_Proc(512), m.move(); break;
        case 1: b.zSubclass_Proc(675), m.leave(); break;
        case 2: b.zSubclass_Proc(flag ? 794 : 21), m.repaint(); break;
        case 3: b.mouseDown(button), m.down(static_cast<int>(button)); break;
        case 4: b.mouseUp(button), m.up(static_cast<int>(button)); break;
        case 5: b.click(), m.click(); break;
        case 6: b.doubleClick(), m.lastButton == 1 ? m.down(1) : void(); break;
        case 7: b.keyDown(32), m.down(1); break;
        case 8: b.keyUp(32), m.enabled ? m.up(1) : void(); break;
        case 9: b.keyPress(' '), m.space(); break;
        case 10: b.keyDown('A'), b.keyPress('a'), b.keyUp('A'), b.zSubclass_Proc(513); break;
        case 11: b.gotFocus(), m.repaint(); break;
        case 12: b.lostFocus(), m.repaint(); break;
        case 13: b.Enabled(flag), m.enabled = flag, m.repaint(); break;
        case 14: b.ButtonType(number), m.type = number, m.repaint(); break;
        case 15: b.Value(flag), m.value = flag, m.repaint(); break;
        case 16: b.Style(number + 4), m.style = number + 4, m.repaint(); break;
        case 17: b.pressCancelled(), m.cancel(); break;
        case 18: b.pointerDragged(flag), m.drag(flag); break;
        case 19: b.activate(), m.activate(); break;
        case 20: b.tracking(Tracking{flag}), m.tracked = flag; break;
        default: m.disablesItself = flag; break;
    }
}

}  // namespace

void button(std::string_view input) {
    const NumberedColours colours;
    isButton control("b", colours);
    Model model;
    if (!input.empty() && input.front() == 'd') {
        ButtonAmbient design;
        design.userMode = false;
        control.ReadProperties({}, design);
        model.style = 3, model.designed = true;
    }
    Recorder recorder(control);
    control.Click = [&] {
        recorder.text += 'C';
        if (model.disablesItself) control.Enabled(false);
    };
    for (const char what : input) {
        happen(what, control, model);
        require(recorder.text == model.log, "another sequence of pictures and events");
        require(static_cast<int>(control.visualState()) == model.shown(), "another state");
        require(control.Value() == model.value && control.mouseInside() == model.inside,
                "another value, or the pointer is elsewhere");
        recorder.text.clear(), model.log.clear();
    }
}

}  // namespace velvox::fuzz
