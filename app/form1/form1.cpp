#include "app/form1/form1.h"

#include <algorithm>

#include "app/form1/form1_design.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

std::deque<Label> designedLabels() {
    std::deque<Label> labels;
    for (const ControlDesign& design : controlDesigns()) {
        if (!isLabel(design.kind)) continue;
        Label& label = labels.emplace_back(design.name);
        label.Caption(design.text.caption);
        label.font(design.text.font);
        label.ForeColor(design.text.colour);
    }
    return labels;
}

Label& labelOf(std::deque<Label>& labels, std::string_view name) {
    return *std::ranges::find(labels, name, &Control::Name);
}

}  // namespace

Form1::Form1(const Form1Services& s)
    : Control("Form1"),
      labels(designedLabels()),
      vd(labelOf(labels, "vd")),
      Label4(labelOf(labels, "Label4")),
      Label5(labelOf(labels, "Label5")),
      Label12(labelOf(labels, "Label12")),
      linkin("linkin", s.twipsPerPixel),
      UniXPButton1("UniXPButton1", s.colours),
      isButton1("isButton1", s.colours),
      isButton2("isButton2", s.colours),
      Inet1(s.transfer),
      output(s.resultPane),
      web(s.webBrowser),
      desktop_(s.desktop),
      frame_(s.frame),
      sites_(s.sites) {
    applyDesign();
    wireEvents();
}

Control& Form1::control(std::string_view name) {
    for (Control* control : std::initializer_list<Control*>{this, &skinicon, &skinbar, &topendskin,
                                                            &linkin, &UniXPButton1, &ds, &Picture1,
                                                            &outer, &isButton1, &isButton2})
        if (control->Name() == name) return *control;
    for (Label& label : labels)
        if (label.Name() == name) return label;
    throw RuntimeFailure(Fault::InvalidCall, "The form has no " + std::string(name));
}

void Form1::applyDesign() {
    for (const ControlDesign& design : controlDesigns()) {
        if (design.kind == ControlKind::Pane || design.kind == ControlKind::Preview) continue;
        Control& control = this->control(design.name);
        if (auto* button = dynamic_cast<isButton*>(&control)) button->ReadProperties(design.stored);
        if (auto* box = dynamic_cast<XPTextBox*>(&control)) box->ReadProperties(design.stored);
        // The bounds are set after the stored properties are read, as when a stored form is loaded:
        // setting them raises a resize, which overrides some properties of an XPTextBox.
        control.Move(design.bounds);
        control.Visible(design.shown != Shown::Result);
    }
    for (const TimerDesign& design : timerDesigns) {
        for (Timer* timer : {&Timer1, &Timer4, &Timer5, &Timer6, &Timer7}) {
            if (timer->Name() != design.name) continue;
            timer->Interval(design.interval);
            timer->Enabled(design.enabled);
        }
    }
}

void Form1::wireEvents() {
    UniXPButton1.Click = [this] { UniXPButton1_Click(); };
    isButton1.Click = [this] { isButton1_Click(); };
    isButton2.Click = [this] { isButton2_Click(); };
    isButton2.MouseEnter = [this] { isButton2_MouseEnter(); };
    isButton2.MouseLeave = [this] { isButton2_MouseLeave(); };
    ds.Click = [this] { ds_Click(); };
    vd.Click = [this] { vd_Click(); };
    Label12.Click = [this] { Label12_Click(); };
    web.DocumentComplete = [this] { web_DocumentComplete(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    Timer4.Tick = [this] { Timer4_Timer(); };
    Timer5.Tick = [this] { Timer5_Timer(); };
    Timer6.Tick = [this] { Timer6_Timer(); };
    Timer7.Tick = [this] { Timer7_Timer(); };
    for (MouseEvents* source :
         std::initializer_list<MouseEvents*>{&Label5, &skinbar, &skinicon, &topendskin}) {
        source->MouseDown = [this](auto... event) { Form_MouseDown(event...); };
        source->MouseMove = [this](auto... event) { Form_MouseMove(event...); };
        source->MouseUp = [this](auto... event) { Form_MouseUp(event...); };
    }
}

}  // namespace velvox
