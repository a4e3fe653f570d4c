// Random acts on the real program, with what must hold after each.
#pragma once

#include <list>
#include <memory>
#include <optional>
#include <stdexcept>

#include "tests/e2e/browser_log.h"
#include "tests/e2e/program.h"
#include "tests/e2e/resource_usage.h"
#include "tests/e2e/session_clock.h"
#include "tests/e2e/storm/act.h"
#include "tests/e2e/storm/scene.h"
#include "tests/e2e/storm/server.h"

namespace velvox::e2e {

/// Something that must hold does not.
struct Broken : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a storm went through, to see that it did not blow past everything.
struct StormCount {
    int acts = 0;
    int programs = 0;
    int runs = 0;
    int opened = 0;
};

bool onScreen(Point at);

class Storm {
 public:
    explicit Storm(BrowserLog& browser);
    ~Storm();

    /// Throws Broken.
    void perform(const Act& act);
    /// The program as it is after all this: a good run, and nothing left over. Throws Broken.
    void expectHealth();

    StormCount count() const;
    const Scene& scene() const { return scene_; }
    std::string lastAddresses() const { return server_.lastAddresses(); }

 private:
    /// Links that the user may have opened by an act.
    struct Permission {
        BrowserLog::Time time;
        int times;
        std::set<std::string> addresses;
        Deadline deadline;
        BrowserLog::Time end = BrowserLog::Time::max();  ///< when the deadline had passed
    };

    void startProgram();
    void runExamples();
    const Program& program() const { return *program_; }

    void carryOut(const Act& act);
    void performClose(Closing way);
    void permit(const Act& act, BrowserLog::Time since);
    void permitPointer(const Act& act, BrowserLog::Time since);
    void permitKeys(const Act& act, BrowserLog::Time since);
    bool mayEnd(const Act& act) const;

    void observe();
    Scene settledScene() const;
    void expectLife(bool mayHaveEnded);
    void expectAnswer();
    void expectNothingOpened();
    void expectNothingFromTheRun(const Scene& before);
    void expectPatience();
    void expectUsable();
    /// Returns the program to its initial state by user input.
    void calmDown();

    Point placeOf(const Act& act) const;
    Point endOf(const Act& act) const;
    std::optional<int> exitSoon();

    StormServer server_;
    BrowserLog& browser_;
    std::unique_lock<std::shared_mutex> held_;  ///< while an act is carried out
    std::unique_ptr<Program> program_;
    ResourceUsage atStart_;
    Scene scene_;
    std::list<Permission> permissions_;
    std::set<std::string> pressedLinks_;  ///< shown when the button went down
    std::set<std::string> menuLinks_;     ///< shown when the menu opened
    bool buttonDown_ = false;             ///< by an act that has not released it
    bool dialogSeen_ = false;             ///< other than the program's message box
    bool mayChange_ = false;              ///< an act outside a run since the last run began
    bool ending_ = false;                 ///< an act that may end the program is still on its way
    int runsSeen_ = 0;
    long requestsSeen_ = 0;
    std::optional<Deadline> progress_;  ///< of a run
    StormCount count_;
};

}  // namespace velvox::e2e
