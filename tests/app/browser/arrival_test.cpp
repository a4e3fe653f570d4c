#include "app/browser/arrival.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace velvox {
namespace {

using State = Arrival::State;

constexpr bool top = true;
constexpr bool frame = false;
constexpr const char* page = "http://host.example/page";
constexpr const char* elsewhere = "mailto:a@b.example";

const char* answer(const Arrival::Verdict& verdict) {
    static const char* const answers[][2] = {{"", "-"}, {"+", "+-"}};
    return answers[verdict.arrival][verdict.cancel];
}

/// What the control may tell. The answer is "+" for an arrival, "-" for a step to be cancelled.
const std::map<std::string, const char* (*)(Arrival&)> events = {
    {"asked", [](Arrival& to) { return to.requested(), ""; }},
    {"goes", [](Arrival& to) { return to.beforeNavigate(top, page) ? "" : "-"; }},
    {"leaves", [](Arrival& to) { return to.beforeNavigate(top, elsewhere) ? "" : "-"; }},
    {"shows", [](Arrival& to) { return to.navigateComplete(top), ""; }},
    {"ends", [](Arrival& to) { return to.documentComplete(top) ? "+" : ""; }},
    {"404", [](Arrival& to) { return answer(to.navigateError(top, 404)); }},
    {"unreachable", [](Arrival& to) { return answer(to.navigateError(top, 0x800C0008)); }},
    {"no-class", [](Arrival& to) { return answer(to.navigateError(top, 0x80040154)); }},
    {"no-viewer", [](Arrival& to) { return answer(to.navigateError(top, 0x800C0010)); }},
    {"no-install", [](Arrival& to) { return answer(to.navigateError(top, 0x800C0100)); }},
    {"document-file", [](Arrival& to) { return answer(to.fileDownload(true)); }},
    {"other-file", [](Arrival& to) { return answer(to.fileDownload(false)); }},
    {"download", [](Arrival& to) { return to.download("http://h/x") ? "+" : ""; }},
    {"late", [](Arrival& to) { return to.abandoned(), ""; }},
    {"frame-goes", [](Arrival& to) { return to.beforeNavigate(frame, page) ? "" : "-"; }},
    {"frame-leaves", [](Arrival& to) { return to.beforeNavigate(frame, elsewhere) ? "" : "-"; }},
    {"frame-shows", [](Arrival& to) { return to.navigateComplete(frame), ""; }},
    {"frame-ends", [](Arrival& to) { return to.documentComplete(frame) ? "+" : ""; }},
    {"frame-fails", [](Arrival& to) { return answer(to.navigateError(frame, 0x80040154)); }},
};

TEST(ArrivalTest, EachDocumentArrivesOnceAndNothingElseDoes) {
    const std::pair<std::string, State> rows[] = {
        {"asked goes shows ends+ ends goes shows ends+", State::Arrived},
        {"asked goes shows asked shows ends frame-ends no-class- download", State::Requested},
        {"asked goes 404 shows ends+", State::Arrived},
        {"asked goes unreachable- ends", State::Failed},
        {"asked goes no-class+- shows ends", State::Unviewable},
        {"asked goes no-viewer+-", State::Unviewable},
        {"asked goes no-install+-", State::Unviewable},
        {"asked goes document-file other-file download+ download", State::Unviewable},
        {"asked goes ends+ document-file other-file- download", State::Arrived},
        {"asked goes shows frame-goes frame-shows frame-ends+ frame-fails- ends+", State::Arrived},
        {"asked goes frame-shows frame-ends frame-leaves-", State::Loading},
        {"asked goes leaves-", State::Failed},
        {"asked goes ends+ leaves-", State::Arrived},
        {"asked goes late ends", State::Failed},
        {"asked goes shows late ends+", State::Arrived},
    };
    for (const auto& [script, state] : rows) {
        Arrival arrival;
        std::istringstream words(script);
        std::string played;
        for (std::string word; words >> word;) {
            word.erase(word.find_last_not_of("+-") + 1);
            played += (played.empty() ? "" : " ") + word + events.at(word)(arrival);
        }
        EXPECT_EQ(played, script);
        EXPECT_EQ(arrival.state(), state) << script;
    }
}

TEST(ArrivalTest, EachNavigationHasItsNumberAndAFileItsAddress) {
    Arrival arrival;
    arrival.requested();
    const unsigned first = arrival.number();
    EXPECT_TRUE(arrival.beforeNavigate(top, page) && arrival.beforeNavigate(frame, page));
    EXPECT_EQ(arrival.number(), first);
    EXPECT_TRUE(arrival.download("http://h/player.swf?video_id=%20"));
    EXPECT_EQ(arrival.downloadAddress(), "http://h/player.swf?video_id=%20");
    EXPECT_FALSE(arrival.waiting());
    EXPECT_TRUE(arrival.beforeNavigate(top, page));
    EXPECT_NE(arrival.number(), first);
    EXPECT_EQ(arrival.downloadAddress(), "");
}

TEST(ArrivalTest, OnlyWebAddressesAndTheBlankPageAreFollowed) {
    for (const char* good : {"http://h/", "HTTPS://h/", "ABOUT:blank"})
        EXPECT_TRUE(isBrowsable(good)) << good;
    for (const char* bad :
         {"", "about:blank#x", "http:", "file:///C:/x", "httpx://h/", " http://h/"})
        EXPECT_FALSE(isBrowsable(bad)) << bad;
}

}  // namespace
}  // namespace velvox
