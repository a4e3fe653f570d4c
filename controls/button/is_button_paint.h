// Painting of a push button into memory: the face by one of eleven painters, then caption, icon
// and focus.
#pragma once

#include "controls/button/is_button.h"
#include "controls/button/pixel_view.h"

namespace velvox {

/// Conditions outside the button that its picture depends on.
struct ButtonScene {
    const SystemColours& colours;
    Rgb surroundings = 0;   ///< colour around the button, for smooth outer edges
    bool focusCue = false;  ///< the focus came by keyboard, so it must be visible
    int lineWidth = 1;      ///< width of a thin line in pixels; frames and rings scale with it
};

/// State passed to a painter: the visual state, or 5 for a normal button that has the focus.
enum class FaceState { Normal = 1, Hot = 2, Pressed = 3, Disabled = 4, Focused = 5 };

/// Kinds of three-dimensional edges: the BDR_ flags of the system's call.
enum class ButtonEdge : unsigned { OuterSunken = 2, InnerRaised = 4, Raised = 5, Sunken = 10 };

/// Drawing operations that the system performs on the face. After each call the face's pixels are
/// up to date.
class ButtonDrawing {
 public:
    virtual ~ButtonDrawing() = default;

    /// Draws an edge along all four sides of the face.
    virtual void edge(ButtonEdge kind) = 0;

    /// Draws the visual style's push button over the whole face. Returns false on failure.
    virtual bool themedFace(FaceState state) = 0;

    /// Draws the look's caption in the look's font.
    virtual void caption(const ButtonLook& look, const Rect& area, Rgb colour) = 0;

    /// Draws `picture` scaled to a square of `size` pixels.
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
    /// BackColor and HighlightColor. Without custom colours they are the system's button face
    /// colour and the system colour `index`.
    Rgb back() const { return customColours ? colours.back : sys(ButtonFaceColour); }
    Rgb highlight(int index) const { return customColours ? colours.highlight : sys(index); }
};

/// Draws the whole button. Returns false when the style needs the system's visual styles and
/// drawing them failed; the face is then a plain background.
bool paintButton(PixelView face, const ButtonLook& look, const ButtonScene& scene,
                 ButtonDrawing& system);

// One painter for each style, whose number ends the line. The caller has already filled the face
// with the button face colour.
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
