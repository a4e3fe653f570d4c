// The rich-edit control inside the result pane, which shows read-only text with links. Links are
// found by character position, independent of the control's own link support.
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

/// Commands of the context menu.
enum class LinkCommand : int { Open = 1, CopyAddress, CopyAllAddresses, SaveAllAddresses };

/// The selection and the scroll position of a text. The default is the top, with nothing selected.
struct TextView {
    CharacterRange selection;
    POINT scroll{};  ///< in pixels
};

/// A click opens a link. Up and Down select the previous and the next link, or scroll if there is
/// none; Enter opens the selected link. Clicks and keys open a link only if they began after the
/// link was painted, and a held key opens nothing. Copying selected links copies their addresses.
/// Hovering over a link shows its address. No caret is visible.
class LinkText : public SystemControl {
 public:
    LinkText(HWND parent, const RECT& pixels, Desktop& desktop);
    ~LinkText() override;

    /// Replaces the content. The caller must then repaint the control.
    void show(RichText text, const TextView& view);

    TextView view() const;

    const std::vector<TextLink>& links() const noexcept { return links_; }

    /// Number of lines of the current content, before the control wraps them.
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
    const TextLink* pressed_ = nullptr;  ///< link on which the left button was pressed
    const TextLink* tipped_ = nullptr;   ///< link whose address the tool tip shows
    std::string menuAddress_;            ///< address of the link for which the menu was opened
    std::optional<AddressTip> tip_;
    bool painted_ = false;  ///< whether the current content has been painted
    DWORD paintedAt_ = 0;   ///< first painting, in milliseconds since the system has started
};

}  // namespace velvox
