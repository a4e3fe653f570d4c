// Painting of a push button: the face by one of eleven painters, then caption, icon and focus.
#pragma once

#include "controls/button/is_button.h"
#include "controls/button/is_button_face_win32.h"
#include "controls/button/is_button_theme_win32.h"

namespace velvox {

/// What a picture depends on besides the button's own look.
struct ButtonScene {
    HWND window = nullptr;  ///< whose theme is asked for
    ThemeLibrary* themes = nullptr;
    const SystemColours* colours = nullptr;
    Rgb surroundings = 0;   ///< colour behind the button, for smooth outer edges
    bool focusCue = false;  ///< the focus came by keyboard and has to be seen
};

/// State handed to a painter: the visual state, or 5 for a normal button that has the focus.
enum class FaceState { Normal = 1, Hot = 2, Pressed = 3, Disabled = 4, Focused = 5 };

/// What a painter draws from.
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

/// Draws the whole button. False when the style needs visual styles and they refused; then only
/// the plain background is drawn.
bool paintButton(ButtonFace& face, const ButtonLook& look, const ButtonScene& scene);

/// The shape of a style's window.
OwnedRegion buttonRegion(int style, int width, int height);

// One painter for each style; the surface is filled with the button face colour before.
void paintEdged(ButtonFace& face, const FacePlan& plan);      // 0
void paintThin(ButtonFace& face, const FacePlan& plan);       // 1
void paintTool(ButtonFace& face, const FacePlan& plan);       // 2
void paintSolid(ButtonFace& face, const FacePlan& plan);      // 3
void paintFlat(ButtonFace& face, const FacePlan& plan);       // 4
void paintPolished(ButtonFace& face, const FacePlan& plan);   // 5, custom colours
void paintSystem(ButtonFace& face, const FacePlan& plan);     // 5, system colours
void paintGlass(ButtonFace& face, const FacePlan& plan);      // 7
void paintBrushed(ButtonFace& face, const FacePlan& plan);    // 8
void paintPorcelain(ButtonFace& face, const FacePlan& plan);  // 9
void paintPill(ButtonFace& face, const FacePlan& plan);       // 10

}  // namespace velvox
