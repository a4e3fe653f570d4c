#include "app/browser/navigation_tracker.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace velvox {
namespace {

using Kind = PreviewContent::Kind;

constexpr bool top = true;
constexpr bool frame = false;
constexpr const char* page = "http://host.example/page";
constexpr const char* elsewhere = "mailto:a@b.example";

const char* verdict(bool follow) {
    return follow ? "" : "-";
}

/// Events of a tracker by name. The result is "+" if the tracker is busy or announces a document,
/// "-" if it cancels a navigation of the view, ">" if it takes that navigation over.
const std::map<std::string, const char* (*)(NavigationTracker&)> events = {
    {"arrives",
     [](NavigationTracker& to) {
         return to.arrived(to.start("x"), page, {"text/html", 1}), to.takeAnnouncement() ? "+" : "";
     }},
    {"asks", [](NavigationTracker& to) { return to.busy() ? "+" : ""; }},
    {"opens", [](NavigationTracker& to) { return to.viewOpened(), ""; }},
    {"silent", [](NavigationTracker& to) { return to.viewFailed(), ""; }},
    {"goes", [](NavigationTracker& to) { return verdict(to.beforeNavigate(top, page)); }},
    {"jumps",
     [](NavigationTracker& to) {
         return verdict(to.beforeNavigate(top, std::string(page) + "#part"));
     }},
    {"on",
     [](NavigationTracker& to) {
         const bool follow = to.beforeNavigate(top, "http://host.example/next");
         return to.takeOwnNavigation() == "http://host.example/next" ? ">" : verdict(follow);
     }},
    {"leaves",
     [](NavigationTracker& to) {
         const bool follow = to.beforeNavigate(top, elsewhere);
         return to.takeOwnNavigation() ? ">" : verdict(follow);
     }},
    {"shows", [](NavigationTracker& to) { return to.navigateComplete(top), ""; }},
    {"ends",
     [](NavigationTracker& to) {
         return to.documentComplete(top), to.takeAnnouncement() ? "+" : "";
     }},
    {"404", [](NavigationTracker& to) { return verdict(to.navigateError(top, 404)); }},
    {"fails", [](NavigationTracker& to) { return verdict(to.navigateError(top, 0x800C0008)); }},
    {"document-file", [](NavigationTracker& to) { return verdict(to.fileDownload(true)); }},
    {"other-file", [](NavigationTracker& to) { return verdict(to.fileDownload(false)); }},
    {"frame-goes", [](NavigationTracker& to) { return verdict(to.beforeNavigate(frame, page)); }},
    {"frame-leaves",
     [](NavigationTracker& to) { return verdict(to.beforeNavigate(frame, elsewhere)); }},
    {"frame-shows", [](NavigationTracker& to) { return to.navigateComplete(frame), ""; }},
    {"frame-ends",
     [](NavigationTracker& to) {
         return to.documentComplete(frame), to.takeAnnouncement() ? "+" : "";
     }},
    {"frame-fails",
     [](NavigationTracker& to) { return verdict(to.navigateError(frame, 0x80040154)); }},
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
}

}  // namespace
}  // namespace velvox
