// The preview's navigation. Each byte is an event. The target simulates the program that navigates,
// the transfers, the window's message queue and the browser control.
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "app/browser/navigation_tracker.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

struct Transfer {
    unsigned number;
    std::string address;  ///< address of the last reply
    bool arrives;
};

class Preview {
 public:
    void happen(unsigned char act) {
        const unsigned choice = act >> 4;
        switch (act % 16) {
            case 0: navigate("http://h/" + std::to_string(++navigations_), choice % 4 != 0); break;
            case 1: navigate(std::string(blankAddress), true); break;
            case 2:
            case 3:
                // A message of a transfer that was given up may still be in the queue, so any
                // transfer is chosen.
                if (!transfers_.empty())
                    queue_.push_back(
                        *(transfers_.rbegin() + choice % static_cast<unsigned>(transfers_.size())));
                break;
            case 4: giveUp(); break;
            case 5:
            case 6:
            case 7:
            case 8: handleMessage(); break;
            default: controlEvent(act % 16, choice); break;
        }
        check();
    }

    // Whatever happened before, the last navigation is announced once it arrives.
    void finish() {
        navigate("http://h/last", true);
        queue_.push_back(transfers_.back());
        while (!queue_.empty()) handleMessage();
        require(announced_ == 1, "the last document is announced once");
    }

 private:
    void navigate(const std::string& address, bool arrives) {
        viewOpen_ = false;
        announced_ = 0;
        frames_ = 0;
        const unsigned number = tracker_.start(address);
        require(!last_ || last_->number != number, "a number is used again");
        last_ = {number, address == blankAddress ? address : address + "/final", arrives};
        arrived_ = address == blankAddress;
        given_ = false;
        if (arrived_)
            tracker_.arrived(number, address, {});
        else
            transfers_.push_back(*last_);
        changed();
    }

    void changed() { queue_.push_back(std::nullopt); }

    void giveUp() {
        if (!tracker_.busy()) return;
        if (last_ && tracker_.awaits(last_->number)) {
            tracker_.failed(last_->number, "no answer");
            given_ = true;
        } else {
            tracker_.viewFailed();
        }
        changed();
    }

    void handleMessage() {
        if (queue_.empty()) return;
        const std::optional<Transfer> step = queue_.front();
        queue_.pop_front();
        if (step) return advance(*step);
        if (tracker_.takeAnnouncement()) {
            require(last_ && arrived_ && !given_, "what has not arrived is announced");
            require(tracker_.location() == last_->address, "a superseded address is announced");
            require(++announced_ <= 1 + frames_, "a document is announced twice");
            return changed();
        }
        if (const auto address = tracker_.takeOwnNavigation()) return navigate(*address, true);
        if (tracker_.wantsView()) {
            require(announced_ > 0, "the view comes before the link");
            tracker_.viewOpened();
            viewOpen_ = true;
        }
        if (tracker_.viewHasFailed()) viewOpen_ = false;
    }

    void advance(const Transfer& transfer) {
        if (!tracker_.awaits(transfer.number)) return;
        require(transfer.number == last_->number, "a superseded transfer is awaited");
        if (transfer.arrives)
            tracker_.arrived(transfer.number, transfer.address, {"text/html", 1});
        else
            tracker_.failed(transfer.number, "unreachable");
        arrived_ = transfer.arrives;
        changed();
    }

    void controlEvent(unsigned event, unsigned choice) {
        if (!viewOpen_) return;
        const bool top = choice % 2 == 0;
        switch (event) {
            case 9:
                tracker_.beforeNavigate(top, choice < 8 ? "http://own/a" : "http://own/b#c");
                break;
            case 10:
                tracker_.beforeNavigate(top, choice < 8 ? "about:blank" : "javascript:x");
                break;
            case 11: tracker_.navigateComplete(top); break;
            case 12: tracker_.navigateError(top, choice < 8 ? 404 : 0x800C0008); break;
            case 13: tracker_.fileDownload(choice < 8); break;
            default:
                if (!top) ++frames_;
                tracker_.documentComplete(top);
                break;
        }
        changed();
    }

    void check() const {
        const bool here = arrived_ && !given_;
        require(tracker_.location() == (here ? last_->address : ""), "another address");
        require(!(tracker_.viewIsShown() && tracker_.waiting()), "shown and still awaited");
        require(!tracker_.wantsView() || here, "a view of nothing");
    }

    NavigationTracker tracker_;
    std::deque<std::optional<Transfer>> queue_;  ///< no value: a notification without a transfer
    std::vector<Transfer> transfers_;
    std::optional<Transfer> last_;
    int navigations_ = 0;
    bool arrived_ = false;
    bool given_ = false;
    bool viewOpen_ = false;
    int announced_ = 0;
    int frames_ = 0;
};

}  // namespace

void navigation(std::string_view acts) {
    Preview preview;
    for (const char act : acts) preview.happen(static_cast<unsigned char>(act));
    preview.finish();
}

}  // namespace velvox::fuzz
