// The page of the text box: one box for each property, and a list of the events that the boxes
// raise.
#pragma once

#include <list>
#include <optional>
#include <string_view>

#include "base/system_win32.h"
#include "controls/text_box/xp_text_box_win32.h"
#include "gallery/event_list_win32.h"
#include "gallery/page_win32.h"
#include "gallery/sheet_win32.h"

namespace velvox {

class TextBoxPage : public Page {
 public:
    ~TextBoxPage() override;

    std::string_view title() const override { return "Text box"; }
    void create(HWND parent) override;

 private:
    XPTextBox& add(const Bounds& at, std::string_view name, std::string_view text);
    void layOutSamples();
    void layOutSelection(int y);
    void listen(XPTextBox& box);

    CurrentSystemColours colours_;
    std::optional<Sheet> sheet_;
    EventList events_;
    std::list<XPTextBox> boxes_;
    std::list<XPTextBoxWindow> windows_;
};

}  // namespace velvox
