#include "app/window/form1_children_win32.h"

#include "app/window/combo_box_win32.h"
#include "app/window/label_win32.h"
#include "base/accessible_name_win32.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "catchers/sites.h"
#include "controls/button/is_button_win32.h"

namespace velvox {
namespace {

int idOf(std::string_view name) {
    return static_cast<int>(controlId(name));
}

RECT designPixels(std::string_view name) {
    return toPixels(designOf(name).bounds);
}

// Bounds of the quit button's click area: 24 pixels at 96 DPI, large enough for a finger or an
// unsteady hand.
RECT quitPlace() {
    constexpr int margin = 30;
    const Bounds button = designOf("isButton2").bounds;
    return toPixels({button.left - margin, button.top - margin, button.width + 2 * margin,
                     button.height + 2 * margin});
}

// The caption of a label without the colon and the blanks at its end.
std::wstring accessibleNameFor(std::string_view label) {
    const std::string_view caption = designOf(label).text.caption;
    return widen(caption.substr(0, caption.find_last_not_of(" :") + 1));
}

PictureBoxWindow::Painter skinPainter(const Skin& skin, Skin::Piece piece) {
    return [&skin, piece](HDC dc, const RECT& client) { skin.draw(dc, piece, client); };
}

}  // namespace

Form1Window::Children::Children(Form1Window& owner)
    : window(owner.handle()),
      topendskin(designOf("topendskin"), window, idOf("topendskin"),
                 skinPainter(owner.skin_, Skin::Piece::RightEnd)),
      Picture1(designOf("Picture1"), window, idOf("Picture1"),
               skinPainter(owner.skin_, Skin::Piece::NewsStrip)),
      outer(designOf("outer"), window, idOf("outer"),
            [&owner](HDC dc, const RECT& client) { owner.paintResultArea(dc, client); }),
      output(outer.handle(), designPixels("output"), idOf("output"), owner.desktop_),
      web(outer.handle(), designPixels("web"), idOf("web"), owner.session_, owner.limits_),
      form({owner.transfer_, output, web, owner.desktop_, owner, owner.colours_, sites,
            twipsPerInch / screenDpi()}),
      titleObserver(window),
      timers{{{form.Timer1, window, 1},
              {form.Timer4, window, 4},
              {form.Timer5, window, 5},
              {form.Timer6, window, 6},
              {form.Timer7, window, 7}}} {
    for (const ControlDesign& design : controlDesigns()) create(design, owner);
    quitTarget.emplace(topendskin.handle(), quitPlace(), [this] { form.isButton2.activate(); });
    outer.onVisible = [&owner](bool visible) { owner.coverControls(visible); };
    outer.onHidden = [this] { output.prepare(); };
    output.accessibleName(accessibleNameFor("Label3"));
    // Screen readers take the name of the site list from the label before it, but find no label for
    // the following windows.
    setAccessibleName(linkin->editHandle(), accessibleNameFor("Label1"));
    setAccessibleName(web.handle(), accessibleNameFor("Label2"), ROLE_SYSTEM_PANE);
    setAccessibleName(handle("isButton2"), L"Quit");
}

HWND Form1Window::Children::handle(std::string_view name) const {
    const std::string_view parent = name.empty() ? name : designOf(name).parent;
    return parent.empty() ? window : GetDlgItem(handle(parent), idOf(name));
}

// Creates the window of a control, which then observes the control. Windows with the same parent
// are created in tab order.
void Form1Window::Children::create(const ControlDesign& design, const Form1Window& owner) {
    const HWND parent = handle(design.parent);
    const int id = idOf(design.name);
    switch (design.kind) {
        case ControlKind::Form:
        case ControlKind::Pane:
        case ControlKind::Preview: break;
        case ControlKind::TitlePiece: form.control(design.name).setObserver(&titleObserver); break;
        case ControlKind::Box:
            for (PictureBoxWindow* box : {&topendskin, &Picture1, &outer})
                if (GetDlgCtrlID(box->handle()) == id) box->bind(model<PictureBox>(design));
            break;
        case ControlKind::Address:
            linkin = &add<XPTextBoxWindow>(form.linkin, parent, id, owner.colours_);
            break;
        case ControlKind::Button: add<isButtonWindow>(model<isButton>(design), parent, id); break;
        case ControlKind::List: add<ComboBoxWindow>(form.ds, parent, id); break;
        default: add<LabelWindow>(model<Label>(design), parent, id, design.kind, owner.skin_);
    }
}

}  // namespace velvox
