// The result pane: a window that holds what was last written, and shows it.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/form1/desktop.h"
#include "app/form1/result_pane.h"
#include "app/pane/link_text_win32.h"
#include "app/pane/rich_text.h"
#include "base/window_win32.h"

namespace velvox {

/// Its window text is the HTML exactly as last written, 16 MB at most. Setting it from outside does
/// nothing.
class ResultPaneWindow : public Window, public ResultPane {
 public:
    ResultPaneWindow(HWND parent, const RECT& pixels, int id, Desktop& desktop);
    ~ResultPaneWindow() override;

    void DocumentHTML(std::string_view html) noexcept override;

    /// Shows the current content again when its colours are no longer legible.
    void systemColoursChanged();

    /// The control that shows the text; a later write may replace it by another.
    HWND textWindow() const { return text().handle(); }

    const std::vector<TextLink>& links() const { return text().links(); }

    /// What screen readers call the text.
    void accessibleName(std::wstring name);

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT textPlace() const;
    LinkText& text() const;
    void renewText();
    void paint(HDC dc) const;

    Desktop& desktop_;
    std::string html_;
    PaneColours colours_;                     ///< that the current content was shown with
    mutable std::unique_ptr<LinkText> text_;  ///< made when first used: it would delay the start
    std::wstring name_;
};

}  // namespace velvox
