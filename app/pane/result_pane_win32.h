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

/// The result pane. Its window text is the HTML exactly as last written, up to 16 MB. WM_SETTEXT
/// does nothing.
class ResultPaneWindow : public Window, public ResultPane {
 public:
    ResultPaneWindow(HWND parent, const RECT& pixels, int id, Desktop& desktop);
    ~ResultPaneWindow() override;

    void DocumentHTML(std::string_view html) noexcept override;

    /// Makes the next write faster by replacing a control that is slow to clear. Call this while
    /// the pane is hidden and the user does not wait, because a new control takes several
    /// milliseconds.
    void prepare() noexcept;

    /// Shows the current content again if its colours depend on system colours that have changed.
    /// The selection and the scroll position stay.
    void systemColoursChanged();

    /// The control that shows the text. A later write may replace this control.
    HWND textWindow() const { return text().handle(); }

    const std::vector<TextLink>& links() const { return text().links(); }

    /// Sets the name of the text for screen readers.
    void accessibleName(std::wstring name);

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    RECT textPlace() const;
    LinkText& text() const;
    void show(std::string_view html, const TextView& view);
    void renewSlowText();
    void paint(HDC dc) const;

    Desktop& desktop_;
    std::string html_;
    PaneColours colours_;                     ///< system colours when the content was shown
    mutable std::unique_ptr<LinkText> text_;  ///< created on first use, for a faster start-up
    std::wstring name_;
};

}  // namespace velvox
