// Performs random acts on the real program and checks after each act what must hold.
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

/// Thrown when a condition that must hold does not hold.
struct Broken : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Counts that show that a storm has had effects.
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

    /// Performs an act and checks the program. Throws Broken.
    void perform(const Act& act);
    /// Checks the program after all acts: a run must succeed, and nothing may be leaked. Throws
    /// Broken.
    void expectHealth();

    StormCount count() const;
    const Scene& scene() const { return scene_; }

 private:
    /// Links that the user may have opened by an act.
    struct Permission {
        BrowserLog::Time time;
        int times;
        std::set<std::string> addresses;
        Deadline deadline;
        BrowserLog::Time end = BrowserLog::Time::max();  ///< the time at which `deadline` passed
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
    std::unique_lock<std::shared_mutex> held_;  ///< holds replies back while an act is performed
    std::unique_ptr<Program> program_;
    ResourceUsage atStart_;
    Scene scene_;
    std::list<Permission> permissions_;
    std::set<std::string> pressedLinks_;  ///< shown when the mouse button was pressed
    std::set<std::string> menuLinks_;     ///< shown when the menu opened
    bool buttonDown_ = false;  ///< an act has pressed the mouse button and not released it
    bool dialogSeen_ = false;  ///< a dialog other than the program's message box has been open
    bool mayChange_ = false;   ///< there was an act outside a run since the last run began
    bool ending_ = false;      ///< an act that may end the program has not taken effect yet
    int runsSeen_ = 0;
    long requestsSeen_ = 0;
    std::optional<Deadline> progress_;  ///< deadline for the next page of a run
    StormCount count_;
};

}  // namespace velvox::e2e
