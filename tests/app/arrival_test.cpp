#include "app/arrival.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

using State = Arrival::State;

constexpr bool top = true;
constexpr bool frame = false;
constexpr const char* page = "http://host.example/page";
constexpr std::uint32_t noClass = 0x80040154;
constexpr std::uint32_t unreachable = 0x800C0008;

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

TEST(ArrivalTest, ADocumentArrivesOnce) {
    Arrival arrival = arrivedAtPage();
    EXPECT_FALSE(arrival.waiting());
    EXPECT_FALSE(arrival.documentComplete(top));

    Arrival errorPage = loading();
    const auto verdict = errorPage.navigateError(top, 404);
    EXPECT_FALSE(verdict.arrival || verdict.cancel);
    errorPage.navigateComplete(top);
    EXPECT_TRUE(errorPage.documentComplete(top));
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

    EXPECT_TRUE(arrival.beforeNavigate(top, page));
    arrival.navigateComplete(top);
    EXPECT_TRUE(arrival.documentComplete(top));
}

TEST(ArrivalTest, AnAddressThatCannotBeReachedIsNoArrivalAndNeitherIsItsErrorPage) {
    for (const std::uint32_t status : {unreachable, std::uint32_t{0x800C0004}, std::uint32_t{0}}) {
        Arrival arrival = loading();
        const auto verdict = arrival.navigateError(top, status);
        EXPECT_FALSE(verdict.arrival) << status;
        EXPECT_TRUE(verdict.cancel) << status;
        arrival.navigateComplete(top);
        EXPECT_FALSE(arrival.documentComplete(top)) << status;
        EXPECT_EQ(arrival.state(), State::Failed) << status;
    }
}

TEST(ArrivalTest, ADocumentThatNothingCanShowIsAnArrival) {
    for (const std::uint32_t status : {noClass, 0x800C0010U, 0x800C0100U}) {
        Arrival arrival = loading();
        const auto verdict = arrival.navigateError(top, status);
        EXPECT_TRUE(verdict.arrival && verdict.cancel) << status;
        EXPECT_EQ(arrival.state(), State::Unviewable) << status;
        EXPECT_FALSE(arrival.documentComplete(top)) << status;
    }
}

TEST(ArrivalTest, TheDownloadOfTheDocumentIsAnArrivalAndAnyOtherIsRefused) {
    Arrival arrival = loading();
    EXPECT_FALSE(arrival.fileDownload(true).cancel);
    EXPECT_FALSE(arrival.fileDownload(false).cancel);
    EXPECT_TRUE(arrival.download("http://host.example/player.swf?video_id=%20"));
    EXPECT_EQ(arrival.downloadAddress(), "http://host.example/player.swf?video_id=%20");
    EXPECT_FALSE(arrival.download("http://host.example/second.swf"));
    arrival.requested();
    EXPECT_EQ(arrival.downloadAddress(), "");

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
    const struct {
        const char* address;
        bool follow;
    } rows[] = {
        {"http://h/", true},
        {"HTTPS://h/", true},
        {"about:blank", true},
        {"ABOUT:blank", true},
        {"", false},
        {"about:blank#x", false},
        {"about:home", false},
        {"http:", false},
        {"file:///C:/x", false},
        {"javascript:x()", false},
        {"mailto:a@b", false},
        {"res://x.dll/y", false},
        {"C:\\x.exe", false},
        {"httpx://h/", false},
        {" http://h/", false},
        {"ms-calc:", false},
        {"view-source:h", false},
    };
    for (const auto& row : rows) EXPECT_EQ(isBrowsable(row.address), row.follow) << row.address;

    Arrival redirected = loading();
    EXPECT_FALSE(redirected.beforeNavigate(top, "mailto:a@b.example"));
    EXPECT_EQ(redirected.state(), State::Failed);

    Arrival asked;
    asked.requested();
    EXPECT_FALSE(asked.beforeNavigate(top, "file:///C:/"));
    EXPECT_EQ(asked.state(), State::Failed);

    Arrival clicked = arrivedAtPage();
    EXPECT_FALSE(clicked.beforeNavigate(top, "javascript:x()"));
    EXPECT_EQ(clicked.state(), State::Arrived);
}

TEST(ArrivalTest, ALinkInThePageLeadsToANewArrival) {
    Arrival arrival = arrivedAtPage();
    const unsigned number = arrival.number();
    EXPECT_TRUE(arrival.beforeNavigate(top, "https://host.example/next"));
    EXPECT_NE(arrival.number(), number);
    arrival.navigateComplete(top);
    EXPECT_TRUE(arrival.documentComplete(top));
}

TEST(ArrivalTest, AWaitThatWasEndedHasNoArrivalUnlessTheDocumentWasThere) {
    Arrival silent = loading();
    silent.abandoned();
    EXPECT_FALSE(silent.waiting());
    EXPECT_FALSE(silent.documentComplete(top));

    Arrival halfDone = loading();
    halfDone.navigateComplete(top);
    halfDone.abandoned();
    EXPECT_TRUE(halfDone.documentComplete(top));
}

}  // namespace
}  // namespace velvox
