#include "app/form1/form1.h"

#include "app/form1/form1_design.h"

namespace velvox {

Form1::Form1(const Form1Surroundings& s)
    : Control("Form1"),
      linkin("linkin", s.twipsPerPixel),
      UniXPButton1("UniXPButton1", s.colours),
      isButton1("isButton1", s.colours),
      isButton2("isButton2", s.colours),
      Inet1(s.transfer),
      output(s.resultPane),
      web(s.webBrowser),
      desktop_(s.desktop),
      frame_(s.frame) {
    applyDesign();
    wireEvents();
}

void Form1::applyDesign() {
    for (Label* label : {&Label5, &Label1, &Label6, &Label7, &vd, &Label11, &Label12, &Label13,
                         &Label4, &Label3, &Label2}) {
        const ControlDesign& design = designOf(label->Name());
        label->Caption(design.caption);
        label->font(design.font);
        label->ForeColor(design.foreColor);
    }
    for (Control* control : std::initializer_list<Control*>{
             &skinicon, &skinbar, &topendskin, &Label5,  &Label1,    &UniXPButton1, &Label6,
             &ds,       &Label7,  &vd,         &Label11, &Label12,   &Label13,      &Picture1,
             &Label4,   &outer,   &Label3,     &Label2,  &isButton1, &isButton2}) {
        const ControlDesign& design = designOf(control->Name());
        control->Move(design.place);
        control->Visible(design.visible);
    }
    for (isButton* button : {&UniXPButton1, &isButton1, &isButton2})
        button->ReadProperties(storedProperties(button->Name()));
    // A resize follows the reading of the stored values, as when a form loads.
    linkin.ReadProperties(storedProperties(linkin.Name()));
    linkin.Move(designOf(linkin.Name()).place);
    for (const TimerDesign& design : timerDesigns) {
        for (Timer* timer : {&Timer1, &Timer4, &Timer5, &Timer6, &Timer7}) {
            if (timer->Name() != design.name) continue;
            timer->Interval(design.interval);
            timer->Enabled(design.enabled);
        }
    }
    Move(designOf(Name()).place);
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
