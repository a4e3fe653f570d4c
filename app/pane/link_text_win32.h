// The rich-edit control inside the result pane: shows text with links, read-only. Where a link is
// is always looked up by character position, independent of the control's own link support.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "app/form1/desktop.h"
#include "app/pane/address_tip_win32.h"
#include "app/pane/rich_text.h"
#include "base/window_win32.h"

namespace velvox {

/// Commands of its context menu.
enum class LinkCommand : int { Open = 1, CopyAddress, CopyAllAddresses, SaveAllAddresses };

/// A click opens a link. Up and Down move from link to link and select it; Enter opens the one at
/// the selection. Both must begin after the link was painted, and a held key opens nothing.
/// Copying selected links copies their addresses. Hovering shows the address. No caret is visible.
class LinkText : public SystemControl {
 public:
    LinkText(HWND parent, const RECT& pixels, Desktop& desktop);
    ~LinkText() override;

    /// Replaces the content and scrolls to its top. Nothing is painted before the caller asks for
    /// it.
    void show(RichText text);

    const std::vector<TextLink>& links() const noexcept { return links_; }

    /// Lines of the current content, as written.
    std::size_t lines() const noexcept { return lines_; }

    /// The link at the start of the selection, or null.
    const TextLink* currentLink() const;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> onEvent(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> onKey(WPARAM key, bool repeated);
    std::optional<LRESULT> onPointer(UINT message, WPARAM wParam, LPARAM lParam);
    bool beganAfterPaint() const;
    void markLinks(const RichText& text, bool streamedAsLinks);
    LRESULT press(UINT message, WPARAM wParam, LPARAM lParam);
    void release(WPARAM wParam, LPARAM lParam);
    bool goToLink(bool down);
    void select(const TextLink& link);
    CharacterRange selection() const;
    POINT placeOf(std::size_t character) const;
    const TextLink* linkUnder(POINT point) const;
    bool pointerOverLink() const;
    void trackHover();
    void showTip(POINT point);
    void hideTip();
    void showMenu(LPARAM screenPoint);
    void perform(LinkCommand command);
    bool copySelectedAddresses();
    void open(const TextLink* link);

    Desktop& desktop_;
    std::vector<TextLink> links_;
    std::size_t lines_ = 1;
    const TextLink* pressed_ = nullptr;  ///< link that the button went down on
    const TextLink* tipped_ = nullptr;   ///< link whose address the tool tip shows
    std::string menuAddress_;            ///< what the menu was opened on
    std::optional<AddressTip> tip_;
    bool painted_ = false;  ///< the current content has been
    DWORD paintedAt_ = 0;   ///< when, in the system's milliseconds
};

}  // namespace velvox
