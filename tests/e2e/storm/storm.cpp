#include "tests/e2e/storm/storm.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "app/form1/home_page.h"

namespace velvox::e2e {
namespace {

using Kind = Act::Kind;

constexpr Milliseconds answerTime{2000};
constexpr Milliseconds pageTime{3000};  // timeout of "velvox-short-timeout.exe"
// A page is certainly awaited only for this time, because the program starts its timeout before the
// server gets the request.
constexpr Milliseconds certainTime{1500};
constexpr BrowserLog::Time browserTime{30'000};  // from a browser's start to its log line
constexpr BrowserLog::Time clockTick{20};

// Whether an address matches several sites. A single run then goes through all of them.
bool hasSeveralSites(const std::string& address) {
    constexpr const char* sites[] = {"youtube", "clip.vn", "sevenload", "veoh", "vuilen"};
    return std::ranges::count_if(
               sites, [&](const char* site) { return address.find(site) != address.npos; }) > 1;
}

void post(const std::string& window, const char* message, const char* w) {
    driver().ask({"post", window, message, w, "0"});
}

}  // namespace

Storm::Storm(BrowserLog& browser) : browser_(browser) {
    startProgram();
}

Storm::~Storm() = default;

StormCount Storm::count() const {
    StormCount count = count_;
    count.runs = server_.runs();
    return count;
}

void Storm::startProgram() {
    ++count_.programs;
    held_ = {};
    server_.behave(Behaviour::Good);
    program_.reset();
    program_ = std::make_unique<Program>(server_.port(), "velvox-short-timeout.exe");
    dialogSeen_ = false;
    // The resources of all programs are compared with those of the first one.
    if (count_.programs == 1) {
        runExamples();
        for (const int newsTimer : {7, 6}) program().tick(newsTimer);  // loads 13 MB of libraries
        atStart_ = resourceUsage(program().process().id(), program().window());
    }
    browser_.take();
    permissions_.clear();
    buttonDown_ = false;
    ending_ = false;
    mayChange_ = true;
    runsSeen_ = server_.runs();
    observe();
}

// On a busy machine a page may take longer than the program's short timeout, so a failed run is
// repeated up to twice.
void Storm::runExamples() {
    for (const std::string& address : exampleAddresses) {
        const auto run = [&] { return program().runByMessages(address); };
        if (!run() && !run() && !run()) throw Broken("no links: " + address);
    }
}

void Storm::perform(const Act& act) {
    ++count_.acts;
    const Scene before = scene_;
    if (act.kind == Kind::Serve) {
        server_.behave(act.behaviour);
    } else if (act.kind == Kind::Close) {
        performClose(static_cast<Closing>(act.count));
    } else if (act.kind != Kind::Pause) {
        held_ = server_.hold();
        const bool running = before.running();
        const auto awaited = server_.awaited(certainTime);
        const auto time = BrowserLog::now();
        permit(act, time);
        const bool mayHaveEnded = mayEnd(act);
        carryOut(act);
        expectLife(mayHaveEnded);
        // If links have appeared while the keys arrived, the later keys may open them and close the
        // result area afterwards.
        if (before.areaShown() && !scene_.areaShown()) scene_.links = linksOf(program().pane());
        if (scene_.links != before.links) permit(act, time);
        // If the run still waits for the same page, the act must have no effect later either.
        if (running && awaited && server_.awaited(certainTime) == awaited)
            std::erase_if(permissions_, [&](const Permission& p) { return p.time >= time; });
        else
            mayChange_ = true;
        held_ = {};
    }
    std::this_thread::sleep_for(Milliseconds(act.pauseMs));
    expectLife(ending_);
    expectNothingOpened();
    expectNothingFromTheRun(before);
    expectPatience();
    expectUsable();
}

void Storm::observe() {
    const bool menuBefore = scene_.menu;
    scene_ = settledScene();
    if (scene_.areaShown()) scene_.html = program().pane();
    scene_.links = linksOf(scene_.html);
    dialogSeen_ |= !scene_.box.empty() && !scene_.refuses();
    if (!scene_.menu || menuBefore) return;
    menuLinks_ = scene_.links;
    menuLinks_.insert(std::string(homePage));  // the system menu can open the home page
}

// A sent message overtakes input. The window has handled all input when its state does not change
// between two messages.
Scene Storm::settledScene() const {
    constexpr int maxLooks = 5;
    const auto look = [&] { return parseScene(driver().ask({"look", program().window()})); };
    Scene scene = look();
    for (int i = 1; i < maxLooks; ++i) {
        driver().holds({"ping", program().window(), "200"});
        Scene next = look();
        const bool settled = next.sameMode(scene);
        scene = std::move(next);
        if (settled) break;
    }
    return scene;
}

std::optional<int> Storm::exitSoon() {
    const Deadline deadline(answerTime);
    std::optional<int> code;
    while (!(code = program_->process().exitWithin(Milliseconds(50))) && !deadline.passed()) {
    }
    return code;
}

void Storm::expectAnswer() {
    const Deadline deadline(answerTime);
    while (!driver().holds({"ping", program().window(), "200"})) {
        if (program_->process().exitWithin(Milliseconds(0))) return;
        if (deadline.passed()) throw Broken("the window does not answer in time");
    }
}

// The program must respond, unless it has ended after an act that may end it.
void Storm::expectLife(bool mayHaveEnded) {
    ending_ = mayHaveEnded;
    if (!program_->process().exitWithin(Milliseconds(0))) expectAnswer();
    std::optional<int> code = program_->process().exitWithin(Milliseconds(0));
    if (!code) {
        try {
            observe();
            if (scene_.visible) return;
        } catch (const std::runtime_error&) {  // the windows are being destroyed
        }
        code = exitSoon();
        if (!code) throw Broken("the program has no window and does not end");
    }
    if (*code != 0) throw Broken("the program ended with code " + std::to_string(*code));
    if (!mayHaveEnded) throw Broken("the program ended by itself");
    startProgram();
}

void Storm::performClose(Closing way) {
    const Point quit = middleOf(scene_[controlId("isButton2")].bounds);
    // The program certainly ends only if no menu or box takes keys and clicks, and if the window is
    // in front.
    const bool certain =
        way == Closing::Message || (scene_.clear() && scene_.focus != 0 && !buttonDown_ &&
                                    (way != Closing::QuitButton || onScreen(quit)));
    switch (way) {
        case Closing::QuitButton:
            if (onScreen(quit)) InputSimulator().click(quit).act();
            break;
        case Closing::AltF4:
            if (scene_.clear()) Program::takeKeyboard();
            InputSimulator().key("alt+F4").act();
            break;
        case Closing::Message: post(program().window(), "0x10", "0"); break;
        case Closing::SystemCommand: post(program().window(), "0x112", "0xF060"); break;
    }
    ending_ = true;
    mayChange_ = true;
    if (!certain) return;
    const auto code = exitSoon();
    if (!code) throw Broken("the program does not end");
    if (*code != 0) throw Broken("the program ended with code " + std::to_string(*code));
    startProgram();
}

void Storm::expectNothingOpened() {
    for (Permission& p : permissions_)
        if (p.end == BrowserLog::Time::max() && p.deadline.passed()) p.end = BrowserLog::now();
    for (const BrowserLog::Entry& entry : browser_.take()) {
        const std::string address = unescapedAddress(entry.arguments);
        const auto permission = std::ranges::find_if(permissions_, [&](const Permission& p) {
            return p.times > 0 && p.time <= entry.time + clockTick && entry.time < p.end &&
                   p.addresses.contains(address);
        });
        if (permission == permissions_.end())
            throw Broken("opened without a press on a visible link: " + entry.arguments);
        --permission->times;
        ++count_.opened;
    }
    std::erase_if(permissions_, [&](const Permission& p) {
        // The browser of this permission may have started without having written its log line yet.
        return p.end != BrowserLog::Time::max() && p.end + browserTime < BrowserLog::now();
    });
}

// Input during a run must neither close the run's result nor start another run.
void Storm::expectNothingFromTheRun(const Scene& before) {
    const bool vanished = before.areaShown() && !scene_.areaShown() && scene_.visible;
    if (vanished && !mayChange_) throw Broken("the result area was closed by an act in the run");
    const int runs = server_.runs();
    if (runs > runsSeen_ && !mayChange_ && !hasSeveralSites(program().address()))
        throw Broken("a run was started by an act in a run");
    if (runs > runsSeen_) mayChange_ = false;
    runsSeen_ = runs;
}

// A page must be given up in time, whatever the window does.
void Storm::expectPatience() {
    const long requests = server_.requests();
    if (!scene_.running() || requests != requestsSeen_) {
        requestsSeen_ = requests;
        progress_.emplace(pageTime + answerTime);
    } else if (progress_->passed()) {
        throw Broken("a page that does not come is not given up");
    }
}

// Without a run and a message box, it must be possible to close the result area or to use every
// control below it.
void Storm::expectUsable() {
    const ControlId covered[] = {
        controlId("linkin"),  controlId("UniXPButton1"), controlId("ds"),     controlId("vd"),
        controlId("Label1"),  controlId("Label6"),       controlId("Label7"), controlId("Label11"),
        controlId("Label12"), controlId("Label13"),
    };
    const auto usable = [&](ControlId id) {
        // The address box stays locked after a page whose player does not arrive.
        return scene_[id].visible && (scene_[id].enabled || id == controlId("linkin"));
    };
    // A message box of the program that is not the refusal of an address is a failure. Dialogs with
    // other titles, such as those of Wine's system menu, are allowed.
    if (scene_.box.starts_with("box Velvox:") && !scene_.refuses())
        throw Broken("a message box: " + scene_.box);
    const auto holds = [&] {
        if (server_.awaited() || scene_.iconic) return true;
        if (!scene_.box.empty()) return scene_.areaShown() || !scene_.refuses();
        if (!scene_.enabled) return false;
        if (scene_.areaShown()) return scene_[controlId("isButton1")].visible && scene_.closable();
        return std::ranges::all_of(covered, usable);
    };
    // The window is disabled while a dialog of Wine is open, and such a dialog takes time to
    // appear.
    const Deadline deadline(scene_.enabled ? answerTime : 5 * answerTime);
    while (!holds()) {
        if (deadline.passed())
            throw Broken(scene_.areaShown() ? "the result area cannot be closed"
                                            : "a control that was covered is not usable");
        std::this_thread::sleep_for(pollingPause);
        expectLife(ending_);
    }
}

void Storm::calmDown() {
    server_.behave(Behaviour::Good);
    InputSimulator().release(1).release(2).release(3).letGo("Return").letGo("space").act();
    buttonDown_ = false;
    bool restored = false;
    const bool calm = eventually([&] {
        expectLife(ending_);
        if (scene_.iconic && !std::exchange(restored, true))
            post(program().window(), "0x112", "0xF120");
        // The first Escape closes a menu, the second one ends the menu mode.
        if (scene_.menu || scene_.moving || scene_.list || scene_.capture)
            InputSimulator().key("Escape").key("Escape").act();
        else if (!scene_.box.empty())
            InputSimulator().key("Return").act();
        return scene_.clear() && !scene_.running() && !server_.awaited();
    });
    if (!calm)
        throw Broken("the program does not come to rest: " + describe(scene_) +
                     (server_.awaited() ? ", a page is awaited" : ""));
    driver().ask({"place", program().window(), "100", "100"});
}

void Storm::expectHealth() {
    calmDown();
    Program::awaitKeyboard();
    program().closeArea();
    runExamples();
    if (!program().goodRun() && !program().goodRun()) throw Broken("a good run fails");
    expectNothingOpened();
    const ResourceUsage now = resourceUsage(program().process().id(), program().window());
    std::ostringstream difference;
    difference << "at the start: " << atStart_ << "\nnow: " << now;
    // The system keeps up to 40 fonts, brushes, pens and bitmaps that the first menus, boxes and
    // tips have used; their number after 1,000 acts on one program is not higher than after 300. It
    // keeps 150 drawing objects and 9 MB that the first file dialog has used (100 dialogs use no
    // more), and leaks one window object with each file dialog.
    const int drawingObjects = dialogSeen_ ? 195 : 45;
    constexpr int others = 30;
    // Wine keeps two files of each browser that it starts: the script and its folder.
    const int files = others + 2 * count_.opened;
    constexpr int threads = 8;
    constexpr long kilobytes = 16 * 1024;
    if (now.gdi > atStart_.gdi + drawingObjects || now.user > atStart_.user + others ||
        now.files > atStart_.files + files || now.threads > atStart_.threads + threads ||
        now.privateKb > atStart_.privateKb + kilobytes)
        throw Broken("more is in use than at the start\n" + difference.str());
}

}  // namespace velvox::e2e
