// Legibility in the system's colours, measured on the screen. Each test runs in a separate session
// with a file of tools/schemes.
#include <gtest/gtest.h>

#include <map>

#include "base/colour.h"
#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

std::vector<Rgb> pixelsOf(const Bounds& r) {
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

/// Contrast between the most frequent colour of a rectangle and its most distinct pixels, without
/// the pixels of a frame at the rectangle's edge.
double contrastWithin(Bounds place) {
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

/// `least` is the minimum contrast of texts whose colour is not given by the design.
void expectLegible(const Program& program, double least,
                   std::initializer_list<const char*> controls) {
    for (const std::string name : controls) {
        // By design, the red home link and the green Close have less contrast outside high
        // contrast.
        const bool designed = least == textContrast && (name == "Label12" || name == "isButton1");
        double shown = 0;
        EXPECT_TRUE(eventually(
            [&] {
                shown = contrastWithin(driver().rect(program.control(controlId(name))));
                return shown >= (designed ? 3 : least);
            },
            Milliseconds(20'000)))
            << name << " has the contrast " << shown;
    }
}

void expectAllLegible(const Program& program, double least) {
    program.enter("http://www.veoh.com/videos/v669398tRxFQc4d");
    expectLegible(program, least,
                  {"Label5", "isButton2", "Label1", "linkin", "UniXPButton1", "Label6", "ds",
                   "Label7", "vd", "Label11", "Label12", "Label13", "Label4"});
    program.startExample(0);
    EXPECT_TRUE(eventually([&] { return program.pane().find("<a href=") != std::string::npos; }));
    program.awaitEndOfRun();
    expectLegible(program, least, {"Label3", "output", "Label2", "web", "isButton1", "Label4"});
    program.closeArea();
    program.start("http://www.veoh.com/videos/v000000gone0000");
    EXPECT_TRUE(eventually([&] { return program.pane().find("color=") != std::string::npos; }));
    program.awaitEndOfRun();
    expectLegible(program, least, {"output"});
}

TEST(DarkSchemeTest, EveryTextCanBeRead) {
    expectAllLegible(Program(), textContrast);
}

TEST(HighContrastTest, EveryTextCanBeRead) {
    expectAllLegible(Program(paths::sitesPort(), "velvox-high-contrast.exe"), highTextContrast);
}

}  // namespace
}  // namespace velvox::e2e
