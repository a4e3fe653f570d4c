// What the user can read in the system's colours, measured on the screen. Each test has a session
// of its own with a file of tools/schemes.
#include <gtest/gtest.h>

#include <map>

#include "base/colour.h"
#include "tests/e2e/program.h"
#include "tools/drive/client/places.h"

namespace velvox::e2e {
namespace {

std::vector<Rgb> pixelsOf(const Rectangle& r) {
    const auto number = [](int n) { return std::to_string(n); };
    const std::string bytes = outputOf(
        {"import", "-window", "root", "-crop",
         number(r.width) + 'x' + number(r.height) + '+' + number(r.left) + '+' + number(r.top),
         "+repage", "-depth", "8", "rgb:-"});
    std::vector<Rgb> pixels;
    const auto channel = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    for (std::size_t at = 0; at + 2 < bytes.size(); at += 3)
        pixels.push_back(rgb(channel(at), channel(at + 1), channel(at + 2)));
    return pixels;
}

/// Contrast of the most distinct pixels of a place to its most frequent colour, without the pixels
/// of a frame around it.
double contrastWithin(Rectangle place) {
    constexpr int frame = 3;
    place = {place.left + frame, place.top + frame, place.width - 2 * frame,
             place.height - 2 * frame};
    std::map<Rgb, int> counts;
    for (const Rgb pixel : pixelsOf(place)) ++counts[pixel];
    const auto byCount = [](const auto& a, const auto& b) { return a.second < b.second; };
    const Rgb background = std::max_element(counts.begin(), counts.end(), byCount)->first;
    double most = 1;
    for (const auto& [colour, count] : counts) most = std::max(most, contrast(colour, background));
    return most;
}

struct Text {
    const char* name;
    ControlId control;
    double least = textContrast;
};

void expectLegible(const Program& program, std::initializer_list<Text> texts, double leastOfAll) {
    for (const Text& text : texts) {
        double shown = 0;
        EXPECT_TRUE(eventually(
            [&] {
                shown = contrastWithin(driver().rect(program.control(text.control)));
                return shown >= std::max(text.least, leastOfAll);
            },
            Milliseconds(20'000)))
            << text.name << " has the contrast " << shown;
    }
}

void expectAllLegible(const Program& program, double leastOfAll) {
    // Colours that are given by the design are less distinct: the home link's red, Close's green.
    constexpr double designed = 3;
    program.enter("http://www.veoh.com/videos/v669398tRxFQc4d");
    expectLegible(program,
                  {{"title", controlId("Label5")},
                   {"quit button", controlId("isButton2")},
                   {"address's caption", controlId("Label1")},
                   {"address", controlId("linkin")},
                   {"Download", controlId("UniXPButton1")},
                   {"list's caption", controlId("Label6")},
                   {"list", controlId("ds")},
                   {"example's caption", controlId("Label7")},
                   {"example", controlId("vd")},
                   {"before the home link", controlId("Label11")},
                   {"home link", controlId("Label12"), designed},
                   {"after the home link", controlId("Label13")},
                   {"news", controlId("Label4")}},
                  leastOfAll);
    program.startExample(0);
    EXPECT_TRUE(eventually([&] { return program.pane().find("<a href=") != std::string::npos; }));
    program.awaitEndOfRun();
    expectLegible(program,
                  {{"pane's caption", controlId("Label3")},
                   {"link", controlId("output")},
                   {"preview's caption", controlId("Label2")},
                   {"preview", controlId("web")},
                   {"Close", controlId("isButton1"), designed},
                   {"news", controlId("Label4")}},
                  leastOfAll);
    program.closeArea();
    program.start("http://www.veoh.com/videos/v000000gone0000");
    EXPECT_TRUE(eventually([&] { return program.pane().find("color=") != std::string::npos; }));
    program.awaitEndOfRun();
    expectLegible(program, {{"failure", controlId("output")}}, leastOfAll);
}

TEST(DarkSchemeTest, EveryTextCanBeRead) {
    expectAllLegible(Program(), 0);
}

TEST(HighContrastTest, EveryTextCanBeRead) {
    expectAllLegible(Program(Network::sites(), places::highContrastVelvox()), highTextContrast);
}

}  // namespace
}  // namespace velvox::e2e
