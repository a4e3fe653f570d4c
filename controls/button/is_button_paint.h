// Painting of a push button into memory: the face by one of eleven painters, then caption, icon
// and focus.
#pragma once

#include "controls/button/is_button.h"
#include "controls/button/pixel_view.h"

namespace velvox {

/// What a picture depends on besides the button's own look.
struct ButtonScene {
    const SystemColours& colours;
    Rgb surroundings = 0;   ///< colour around the button, for smooth outer edges
    bool focusCue = false;  ///< the focus came by keyboard and has to be seen
    int lineWidth = 1;      ///< pixels of a thin line; frames and rings grow with it
};

/// State passed to a painter: the visual state, or 5 for a normal button that has the focus.
enum class FaceState { Normal = 1, Hot = 2, Pressed = 3, Disabled = 4, Focused = 5 };

/// Kinds of three-dimensional edges: the BDR_ flags of the system's call.
enum class ButtonEdge : unsigned { OuterSunken = 2, InnerRaised = 4, Raised = 5, Sunken = 10 };

/// The drawing done by the system. Each call leaves the pixels of the face up to date.
class ButtonDrawing {
 public:
    virtual ~ButtonDrawing() = default;

    /// Along all four sides of the face.
    virtual void edge(ButtonEdge kind) = 0;

    /// The visual style's push button over the whole face; false when it could not be drawn.
    virtual bool themedFace(FaceState state) = 0;

    /// The look's caption in the look's font.
    virtual void caption(const ButtonLook& look, const Rect& area, Rgb colour) = 0;

    /// A picture scaled to a square of `size` pixels.
    virtual void icon(const Picture& picture, Point corner, int size) = 0;
};

/// The input of a painter.
struct FacePlan {
    FaceState state = FaceState::Normal;
    bool focusShown = false;
    bool customColours = false;
    ButtonColours colours;
    const SystemColours& system;
    Rgb surroundings = 0;

    Rgb sys(int index) const { return system.colour(index); }
    /// BackColor or HighlightColor, or a system colour where custom colours are off.
    Rgb back() const { return customColours ? colours.back : sys(ButtonFaceColour); }
    Rgb highlight(int index) const { return customColours ? colours.highlight : sys(index); }
};

/// Draws the whole button. False when the style needs visual styles and they failed; then only
/// the plain background is drawn.
bool paintButton(PixelView face, const ButtonLook& look, const ButtonScene& scene,
                 ButtonDrawing& system);

// One painter for each style; the face is filled with the button face colour before.
void paintEdged(PixelView face, const FacePlan& plan, ButtonDrawing& system);  // 0
void paintThin(PixelView face, const FacePlan& plan, ButtonDrawing& system);   // 1
void paintTool(PixelView face, const FacePlan& plan, ButtonDrawing& system);   // 2
void paintSolid(PixelView face, const FacePlan& plan);                         // 3
void paintFlat(PixelView face, const FacePlan& plan);                          // 4
void paintPolished(PixelView face, const FacePlan& plan);                      // 5, custom colours
void paintSystem(PixelView face, const FacePlan& plan);                        // 5, system colours
void paintGlass(PixelView face, const FacePlan& plan);                         // 7
void paintBrushed(PixelView face, const FacePlan& plan);                       // 8
void paintPorcelain(PixelView face, const FacePlan& plan);                     // 9
void paintPill(PixelView face, const FacePlan& plan);                          // 10

}  // namespace velvox
