#include "app/browser/navigation_tracker.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

namespace velvox {
namespace {

using Kind = PreviewContent::Kind;

constexpr bool top = true;
constexpr bool frame = false;
const std::string page = "http://host.example/page";
const std::string elsewhere = "mailto:a@b.example";

/// An event or a query of a tracker. Returns "+" if the tracker announces a document or is busy,
/// "-" if it cancels what the browser control is about to do, ">" if it takes over a navigation
/// that the control has started by itself.
using Event = std::function<std::string(NavigationTracker&)>;

std::string verdict(bool follow) {
    return follow ? "" : "-";
}

Event going(bool isTop, const std::string& address) {
    return [=](NavigationTracker& to) {
        const bool follow = to.beforeNavigate(isTop, address);
        return to.takeOwnNavigation() == address ? ">" : verdict(follow);
    };
}

Event ending(bool isTop) {
    return [=](NavigationTracker& to) {
        return to.documentComplete(isTop), to.takeAnnouncement() ? "+" : "";
    };
}

Event failing(bool isTop, unsigned code) {
    return [=](NavigationTracker& to) { return verdict(to.navigateError(isTop, code)); };
}

const std::map<std::string, Event> events = {
    {"arrives",
     [](auto& to) {
         return to.arrived(to.start("x"), page, {"text/html", 1}), to.takeAnnouncement() ? "+" : "";
     }},
    {"asks", [](auto& to) { return to.busy() ? "+" : ""; }},
    {"opens", [](auto& to) { return to.viewOpened(), ""; }},
    {"silent", [](auto& to) { return to.viewFailed(), ""; }},
    {"goes", going(top, page)},
    {"jumps", going(top, page + "#part")},
    {"on", going(top, "http://host.example/next")},
    {"leaves", going(top, elsewhere)},
    {"shows", [](auto& to) { return to.navigateComplete(top), ""; }},
    {"ends", ending(top)},
    {"404", failing(top, 404)},
    {"fails", failing(top, 0x800C0008)},
    {"document-file", [](auto& to) { return verdict(to.fileDownload(true)); }},
    {"other-file", [](auto& to) { return verdict(to.fileDownload(false)); }},
    {"frame-goes", going(frame, page)},
    {"frame-leaves", going(frame, elsewhere)},
    {"frame-shows", [](auto& to) { return to.navigateComplete(frame), ""; }},
    {"frame-ends", ending(frame)},
    {"frame-fails", failing(frame, 0x80040154)},
};

TEST(NavigationTrackerTest, AViewNeverArrivesAgainExceptByItsFrames) {
    enum View { None, Waits, Shown, Failed };
    const std::pair<std::string, View> rows[] = {
        {"arrives+ goes- ends frame-ends other-file- fails-", None},
        {"arrives+ opens goes shows ends goes jumps ends", Shown},
        {"arrives+ opens goes shows goes goes goes goes goes goes goes goes goes goes goes- jumps",
         Shown},
        {"arrives+ opens goes ends on> leaves- shows ends", Shown},
        {"arrives+ opens leaves on> on>", Waits},
        {"arrives+ asks opens goes 404 shows asks+ ends asks", Shown},
        {"arrives+ opens goes document-file fails- ends goes- frame-ends", Failed},
        {"arrives+ opens goes shows document-file other-file- fails-", Shown},
        {"arrives+ opens goes other-file- shows", Failed},
        {"arrives+ opens goes shows frame-goes frame-shows frame-ends+ frame-fails- ends", Shown},
        {"arrives+ opens goes frame-shows frame-ends frame-leaves- frame-fails-", Waits},
        {"arrives+ opens goes silent ends", Failed},
        {"arrives+ opens goes shows arrives+ ends frame-ends on-", None},
    };
    for (const auto& [script, view] : rows) {
        NavigationTracker tracker;
        std::istringstream words(script);
        std::string played;
        for (std::string word; words >> word;) {
            word.erase(word.find_last_not_of("+->") + 1);
            played += (played.empty() ? "" : " ") + word + events.at(word)(tracker);
        }
        EXPECT_EQ(played, script);
        EXPECT_EQ(tracker.wantsView(), view == None) << script;
        EXPECT_EQ(tracker.waiting(), view == Waits) << script;
        EXPECT_EQ(tracker.viewIsShown(), view == Shown) << script;
        EXPECT_EQ(tracker.viewHasFailed(), view == Failed) << script;
    }
}

TEST(NavigationTrackerTest, ThePanelSaysWhatArrivedOrWhyNothingDid) {
    NavigationTracker tracker;
    EXPECT_EQ(tracker.content().kind, Kind::Blank);
    const DocumentInfo player{"application/x-shockwave-flash", 7};
    for (const auto& [document, kind] :
         {std::pair{player, Kind::Unviewable}, {{"TEXT/html", {}}, Kind::NotRendered}}) {
        const unsigned number = tracker.start("http://a");
        EXPECT_EQ(tracker.content(), PreviewContent{.kind = Kind::Loading});
        EXPECT_EQ(tracker.location(), "");
        tracker.arrived(number, "http://b/", document);
        EXPECT_EQ(tracker.content(), (PreviewContent{kind, "http://b/", document, ""}));
        EXPECT_TRUE(tracker.takeAnnouncement());
        EXPECT_EQ(tracker.wantsView(), kind == Kind::NotRendered);
    }
    tracker.failed(tracker.start("http://a"), "The host is not known");
    EXPECT_EQ(tracker.content(),
              (PreviewContent{Kind::Unreachable, "http://a", {}, "The host is not known"}));
    EXPECT_FALSE(tracker.takeAnnouncement());
    tracker.arrived(tracker.start(blankAddress), std::string(blankAddress), {});
    EXPECT_EQ(tracker.content().kind, Kind::Blank);
    tracker.runEnded();
    EXPECT_EQ(tracker.content().kind, Kind::NoPreview);
    EXPECT_TRUE(tracker.takeAnnouncement());
    EXPECT_FALSE(tracker.wantsView());
    tracker.arrived(tracker.start(blankAddress), std::string(blankAddress), {});
    EXPECT_EQ(tracker.content().kind, Kind::Blank) << "until the next run has ended";
    EXPECT_EQ(sizeText(1) + sizeText({}), "1 byte");
    EXPECT_EQ(sizeText(1234567), "1,234,567 bytes");
}

}  // namespace
}  // namespace velvox
