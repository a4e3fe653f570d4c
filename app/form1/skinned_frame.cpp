// The window has its own title bar of three pictures. The user drags the window by these pictures,
// by the title and by the window's background. The mouse is captured from press to release.
#include "app/form1/form1.h"

namespace velvox {
namespace {

// Twips. The quit button moves down a little while the pointer is over it.
constexpr int quitTopHovered = 130;
constexpr int quitTop = 100;
constexpr int rightEndMargin = 60;

}  // namespace

void Form1::Form_MouseDown(MouseButton button, int, float, float) {
    if (button != MouseButton::Left) return;
    Dragging = true;
    DragStartCursor = frame_.cursorPosition();
    DragStartRect = frame_.windowRect();
    frame_.setCapture();
}

void Form1::Form_MouseMove(MouseButton button, int, float, float) {
    if (button != MouseButton::Left || !Dragging || Moving) return;
    Moving = true;
    desktop_.yield();
    const Point cursor = frame_.cursorPosition();
    frame_.moveTo({DragStartRect.left - DragStartCursor.x + cursor.x,
                   DragStartRect.top - DragStartCursor.y + cursor.y});
    Moving = false;
}

void Form1::Form_MouseUp(MouseButton button, int, float, float) {
    if (button != MouseButton::Left || !Dragging) return;
    Dragging = false;
    frame_.releaseCapture();
}

void Form1::Form_Resize() {
    ignoringErrors([&] { skinicon.Top(0); });
    ignoringErrors([&] { skinicon.Left(0); });
    ignoringErrors([&] { topendskin.Top(0); });
    ignoringErrors([&] { skinbar.Top(0); });
    ignoringErrors([&] { skinbar.Left(skinicon.Width()); });
    ignoringErrors(
        [&] { skinbar.Width(Width() - (skinbar.Left() + skinicon.Width() + rightEndMargin)); });
    ignoringErrors([&] { topendskin.Left(skinbar.Left() + skinbar.Width()); });
}

void Form1::isButton2_Click() {
    desktop_.endProgram();
}

void Form1::isButton2_MouseEnter() {
    isButton2.Top(quitTopHovered);
}

void Form1::isButton2_MouseLeave() {
    isButton2.Top(quitTop);
}

}  // namespace velvox
