// A real Form1 with fakes of all system services. The fakes and the observers of the controls
// record all effects in one list, in the order in which they happen. Fuzz targets and benchmarks
// use this file too, so it needs no test framework.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/join.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox::testing {

/// Effects, one line each. Line breaks inside an effect are written as \r and \n.
class EffectLog {
 public:
    bool recording = true;

    void add(std::initializer_list<std::string_view> pieces) {
        if (!recording) return;
        const std::string line = text::replaceAll(join(pieces), "\r", "\\r");
        text_ += text::replaceAll(line, "\n", "\\n") + '\n';
    }
    void addState(std::string_view what, bool on) { add({what, on ? " True" : " False"}); }
    void addState(std::string_view what, int now) { add({what, "=", std::to_string(now)}); }
    void addState(std::string_view what, std::string_view now) { add({what, "=", now}); }

    /// Returns all effects since the last call.
    std::string take() { return std::exchange(text_, {}); }

 private:
    std::string text_;
};

/// The base of every fake of a system service.
struct Logging {
    EffectLog& log;

    explicit Logging(EffectLog& effects) : log(effects) {}
};

/// A reply's body, or nothing for a transfer that fails.
using Reply = std::optional<std::string>;

struct FakeTransfer : Logging, TransferControl {
    using Logging::Logging;

    std::string OpenURL(std::string_view address) override {
        log.add({"fetch ", address});
        if (onFetch) onFetch();
        const Reply reply = replies.empty() ? std::nullopt : std::move(replies.front());
        if (!replies.empty()) replies.pop_front();
        if (!reply) throw RuntimeFailure(Fault::Transfer, "The page could not be fetched");
        return *reply;
    }

    std::deque<Reply> replies;  ///< in the order of the fetches; a fetch without a reply fails
    std::function<void()> onFetch;
};

struct FakePane : Logging, ResultPane {
    using Logging::Logging;

    void DocumentHTML(std::string_view html) noexcept override {
        log.add({"pane ", html});
        shown = html;
    }

    std::string shown;
};

struct FakeBrowser : Logging, WebBrowser {
    using Logging::Logging;

    void Navigate(std::string_view address) override {
        log.add({"navigate ", address});
        if (refusing) throw RuntimeFailure(Fault::Platform, "The browser refuses");
        lastAddress = address;
    }
    std::string LocationURL() const override {
        if (refusing) throw RuntimeFailure(Fault::Platform, "The browser refuses");
        return location;
    }
    bool Offline() const override { return offline; }

    std::string location = "about:blank";
    std::string lastAddress;
    bool offline = false;
    bool refusing = false;
};

/// The replies of a fake news request. An operation that `failing` names throws.
struct NewsScript : Logging {
    using Logging::Logging;

    const NewsScript& check(std::string_view operation) const {
        if (std::ranges::find(failing, operation) == failing.end()) return *this;
        log.add({operation, " fails"});
        throw RuntimeFailure(Fault::Platform, std::string(operation));
    }
    void perform(std::string_view operation, std::string_view on = {}) const {
        check(operation);
        log.add({operation, on});
    }

    std::vector<std::string> failing;
    int state = 0;
    std::string text;
};

struct FakeRequest : XmlHttpRequest {
    explicit FakeRequest(const NewsScript& answers) : script(answers) {}

    void open(std::string_view method, std::string_view address) override {
        script.perform("open", join({" ", method, " ", address}));
    }
    void send() override { script.perform("send"); }
    void abort() override { script.perform("abort"); }
    int readyState() const override { return script.check("readyState").state; }
    std::string responseText() const override { return script.check("responseText").text; }

    const NewsScript& script;
};

struct FakeDesktop : Logging, Desktop {
    using Logging::Logging;

    void yield() override {
        log.add({"yield"});
        if (onYield) onYield();
    }
    void openAddress(std::string_view address) override { log.add({"shell open ", address}); }
    void showExclamation(std::string_view text) override { log.add({"exclamation ", text}); }
    std::string dateTimeText() const override { return "11/21/2008 9:05:00 AM"; }
    std::unique_ptr<XmlHttpRequest> createXmlHttpRequest() override {
        news.perform("create");
        return std::make_unique<FakeRequest>(news);
    }
    void endProgram() override { log.add({"end"}); }

    std::function<void()> onYield;
    NewsScript news{log};
};

struct FakeFrame : Logging, FormFrame {
    using Logging::Logging;

    Point cursorPosition() const override { return cursor; }
    Rect windowRect() const override { return rect; }
    void moveTo(Point to) override {
        log.add({"move ", std::to_string(to.x), ",", std::to_string(to.y)});
    }
    void setCapture() override { log.add({"capture"}); }
    void releaseCapture() override { log.add({"release"}); }

    Point cursor;
    Rect rect;
};

/// The value of every system colour is its index.
struct FakeColours : SystemColours {
    Rgb colour(int index) const override { return index; }
};

struct RecordingObserver : ControlObserver {
    void controlChanged(ControlChange change) override {
        if (records.contains(change)) records.at(change)();
    }

    std::map<ControlChange, std::function<void()>> records;
};

/// A fake window of the address box, in which no user selects anything.
struct AddressObserver : Logging, TextBoxView {
    AddressObserver(EffectLog& effects, TextBox& followed) : Logging(effects), box(followed) {}

    Selection selection() const override { return box.wantedSelection(); }
    void focus() override { log.add({"linkin focus"}); }
    void controlChanged(ControlChange change) override {
        if (change == ControlChange::Enabled) log.addState("linkin.Enabled", box.Enabled());
        if (change == ControlChange::Text) log.addState("linkin.Text", box.Text());
    }

    TextBox& box;
};

class Form1Fixture {
 public:
    Form1Fixture() {
        form.linkin.MyTxt.setTextView(&address_);
        form.ketqua.Change = [this] { log.add({"ketqua=", form.ketqua.Text()}); };
        form.link2.Change = [this] { log.add({"link2=", form.link2.Text()}); };
        watch(form.isButton1, ControlChange::Enabled, "isButton1.Enabled", &isButton::Enabled);
        watch(form.outer, ControlChange::Visible, "outer.Visible", &PictureBox::Visible);
        watch(form.outer, ControlChange::Bounds, "outer.Top", &PictureBox::Top);
        for (Label* label : {&form.vd, &form.Label4})
            watch(*label, ControlChange::Text, label->Name(), &Label::Caption);
        watch(form.ds, ControlChange::Selection, "ds", &ComboBox::Text);
        record(form.ds, ControlChange::Items, [this] {
            log.add({"ds+=", form.ds.items().back()});
        });
        for (Timer* timer : {&form.Timer1, &form.Timer4, &form.Timer5, &form.Timer6, &form.Timer7})
            watch(*timer, ControlChange::Enabled, timer->Name(), &Timer::Enabled);
    }

    /// Runs a handler of the form with an address in the box. Returns the effects.
    std::string run(void (Form1::*handler)(), std::string_view address,
                    std::vector<Reply> replies = {}) {
        form.linkin.Text(address);
        transfer.replies.assign(replies.begin(), replies.end());
        log.take();
        (form.*handler)();
        return log.take();
    }

    EffectLog log;
    FakeTransfer transfer{log};
    FakePane pane{log};
    FakeBrowser browser{log};
    FakeDesktop desktop{log};
    FakeFrame frame{log};
    FakeColours colours;
    Form1 form{{transfer, pane, browser, desktop, frame, colours, sites}};

 private:
    template <class Followed>
    void record(Followed& control, ControlChange change, std::function<void()> action) {
        RecordingObserver& observer = observers_[&control];
        control.setObserver(&observer);
        observer.records[change] = std::move(action);
    }
    template <class Followed, class Value, class Owner>
    void watch(Followed& control, ControlChange change, std::string name,
               Value (Owner::*now)() const) {
        record(control, change, [=, this, &control] { log.addState(name, (control.*now)()); });
    }

    AddressObserver address_{log, form.linkin.MyTxt};
    std::map<const void*, RecordingObserver> observers_;
};

}  // namespace velvox::testing
