#include "app/arrival.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

using State = Arrival::State;

constexpr bool top = true;
constexpr bool frame = false;
constexpr const char* page = "http://host.example/page";
constexpr std::uint32_t noClass = 0x80040154;

Arrival loading() {
    Arrival arrival;
    arrival.requested();
    EXPECT_TRUE(arrival.beforeNavigate(top, page));
    return arrival;
}

Arrival arrivedAtPage() {
    Arrival arrival = loading();
    arrival.navigateComplete(top);
    EXPECT_TRUE(arrival.documentComplete(top));
    return arrival;
}

TEST(ArrivalTest, ADocumentArrivesOnceAndALinkInItLeadsToAnother) {
    Arrival arrival = arrivedAtPage();
    EXPECT_FALSE(arrival.waiting());
    EXPECT_FALSE(arrival.documentComplete(top));
    const unsigned number = arrival.number();
    EXPECT_TRUE(arrival.beforeNavigate(top, "https://host.example/next"));
    EXPECT_NE(arrival.number(), number);
    arrival.navigateComplete(top);
    EXPECT_TRUE(arrival.documentComplete(top));
}

TEST(ArrivalTest, WhatIsToldOfASupersededDocumentIsNoArrival) {
    Arrival arrival = loading();
    arrival.navigateComplete(top);
    const unsigned before = arrival.number();
    arrival.requested();
    EXPECT_NE(arrival.number(), before);
    arrival.navigateComplete(top);
    EXPECT_FALSE(arrival.documentComplete(top));
    EXPECT_FALSE(arrival.documentComplete(frame));
    EXPECT_FALSE(arrival.navigateError(top, noClass).arrival);
    EXPECT_FALSE(arrival.download("http://host.example/old.swf"));
    EXPECT_EQ(arrival.state(), State::Requested);
}

TEST(ArrivalTest, TheStatusOfAnErrorTellsWhetherItArrives) {
    const struct {
        std::uint32_t status;
        bool arrival, cancel, complete;
        State state;
    } rows[] = {
        {404, false, false, true, State::Arrived},  // the server's own page
        {0x800C0008, false, true, false, State::Failed},
        {0, false, true, false, State::Failed},
        {noClass, true, true, false, State::Unviewable},
        {0x800C0010, true, true, false, State::Unviewable},
        {0x800C0100, true, true, false, State::Unviewable},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.status);
        Arrival arrival = loading();
        const auto verdict = arrival.navigateError(top, row.status);
        EXPECT_EQ(verdict.arrival, row.arrival);
        EXPECT_EQ(verdict.cancel, row.cancel);
        arrival.navigateComplete(top);
        EXPECT_EQ(arrival.documentComplete(top), row.complete);
        EXPECT_EQ(arrival.state(), row.state);
    }
}

TEST(ArrivalTest, TheDownloadOfTheDocumentIsAnArrivalAndAnyOtherIsRefused) {
    Arrival arrival = loading();
    EXPECT_FALSE(arrival.fileDownload(true).cancel);
    EXPECT_FALSE(arrival.fileDownload(false).cancel);
    EXPECT_TRUE(arrival.download("http://host.example/player.swf?video_id=%20"));
    EXPECT_EQ(arrival.downloadAddress(), "http://host.example/player.swf?video_id=%20");
    EXPECT_FALSE(arrival.download("http://host.example/second.swf"));

    Arrival shown = arrivedAtPage();
    EXPECT_FALSE(shown.fileDownload(true).cancel);
    EXPECT_TRUE(shown.fileDownload(false).cancel);
    EXPECT_FALSE(shown.download("http://host.example/setup.exe"));
    EXPECT_EQ(shown.state(), State::Arrived);
}

TEST(ArrivalTest, FramesFinishDocumentsOfTheirOwn) {
    Arrival arrival = loading();
    arrival.navigateComplete(top);
    const unsigned number = arrival.number();
    EXPECT_TRUE(arrival.beforeNavigate(frame, "http://ads.example/"));
    arrival.navigateComplete(frame);
    EXPECT_TRUE(arrival.documentComplete(frame));
    EXPECT_FALSE(arrival.navigateError(frame, noClass).arrival);
    EXPECT_TRUE(arrival.documentComplete(top));
    EXPECT_EQ(arrival.number(), number);
    EXPECT_FALSE(arrival.beforeNavigate(frame, "mailto:a@b.example"));
    EXPECT_EQ(arrival.state(), State::Arrived);
}

TEST(ArrivalTest, OnlyWebAddressesAndTheBlankPageAreFollowed) {
    for (const char* good : {"http://h/", "HTTPS://h/", "ABOUT:blank"})
        EXPECT_TRUE(isBrowsable(good)) << good;
    for (const char* bad : {"", "about:blank#x", "http:", "file:///C:/x", "javascript:x()",
                            "C:\\x.exe", "httpx://h/", " http://h/"})
        EXPECT_FALSE(isBrowsable(bad)) << bad;

    Arrival redirected = loading();
    EXPECT_FALSE(redirected.beforeNavigate(top, "mailto:a@b.example"));
    EXPECT_EQ(redirected.state(), State::Failed);
    Arrival clicked = arrivedAtPage();
    EXPECT_FALSE(clicked.beforeNavigate(top, "javascript:x()"));
    EXPECT_EQ(clicked.state(), State::Arrived);
}

TEST(ArrivalTest, AWaitThatWasEndedHasNoArrivalUnlessTheDocumentWasThere) {
    for (const bool there : {false, true}) {
        Arrival arrival = loading();
        if (there) arrival.navigateComplete(top);
        arrival.abandoned();
        EXPECT_EQ(arrival.documentComplete(top), there);
    }
}

}  // namespace
}  // namespace velvox
