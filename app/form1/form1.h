// The portable main window: its controls, its handlers and its catchers. Handlers are named
// control_event. Each group of handlers has its own source file in this folder, each catcher has
// one in catchers/.
//
// Error handling: a catcher has one catch block for its whole body, which shows the catcher's red
// status line. Some handlers ignore errors statement by statement. The other handlers let
// exceptions through to the window, which reports them.
#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "app/form1/controls.h"
#include "app/form1/desktop.h"
#include "app/form1/result_pane.h"
#include "app/form1/transfer_control.h"
#include "app/form1/web_browser.h"
#include "app/form1/xml_http_request.h"
#include "base/control.h"
#include "controls/button/is_button.h"
#include "controls/text_box/xp_text_box.h"

namespace velvox {

class Form1;

/// A site that the program knows.
struct Site {
    std::string_view entry;        ///< the site's text in the site list
    std::string_view server;       ///< the example address up to its path
    std::string_view examplePath;  ///< path and query of the example address
    std::string_view host;         ///< host name that identifies addresses of the site
    std::string_view path;         ///< text that must follow the host in these addresses
    void (Form1::*catcher)();      ///< null for a site that is not listed and not downloaded from
};

/// Services and data that the main window uses. All of them must outlive the form.
struct Form1Services {
    TransferControl& transfer;
    ResultPane& resultPane;
    WebBrowser& webBrowser;
    Desktop& desktop;
    FormFrame& frame;
    const SystemColours& colours;
    std::span<const Site> sites;  ///< in the order of the site list and of Download's checks
    int twipsPerPixel = designTwipsPerPixel;
};

class Form1 : public Control {
 public:
    explicit Form1(const Form1Services& services);

    // Start-up and simple click handlers (start_up.cpp).
    void Form_Load();
    void ds_Click();
    void vd_Click();
    void Label12_Click();
    void isButton1_Click();
    void Timer1_Timer();

    /// Puts a pasted or dropped address into the address box, even while the box is disabled.
    /// Closes the result area, so that the user sees the address. Does nothing during a run or if
    /// `text` has no address.
    void takeAddress(std::string_view text);

    // The Download button (download.cpp).
    void UniXPButton1_Click();

    // Fetching and the result pane (download.cpp).
    std::string FetchPage(std::string_view url);
    void ShowStatus(std::string_view html);

    // Cuts links out of addresses at which the browser arrives (catchers/link_handling.cpp).
    void web_DocumentComplete();

    // News ticker (news_ticker.cpp).
    void Timer4_Timer();
    void Timer5_Timer();
    void Timer6_Timer();
    void Timer7_Timer();

    // Skinned frame (skinned_frame.cpp). `x` and `y` are not used, because a drag follows the
    // cursor on the screen.
    void Form_MouseDown(MouseButton button, int shift, float x, float y);
    void Form_MouseMove(MouseButton button, int shift, float x, float y);
    void Form_MouseUp(MouseButton button, int shift, float x, float y);
    void Form_Resize();
    void isButton2_Click();
    void isButton2_MouseEnter();
    void isButton2_MouseLeave();

    // Catchers, each in its own source file in catchers/.
    void YoutubeCatcher();
    void GoogleCatcher();
    void ClipVNCatcher();
    void SevenLoad();
    void veOH();
    void MetaCafe();
    void ComicVuiLen();

    /// Finds a control by name. Throws InvalidCall if the form has no such control.
    Control& control(std::string_view name);

    // Controls. `labels` owns all labels; the Label references name those that handlers use.
    std::deque<Label> labels;
    Label& vd;
    Label& Label4;
    Label& Label5;
    Label& Label12;
    Image skinicon{"skinicon"};
    Image skinbar{"skinbar"};
    PictureBox topendskin{"topendskin"};
    XPTextBox linkin;
    isButton UniXPButton1;
    ComboBox ds{"ds"};
    PictureBox Picture1{"Picture1"};
    PictureBox outer{"outer"};
    isButton isButton1;
    isButton isButton2;
    HiddenText ketqua;
    HiddenText link2;
    Timer Timer1{"Timer1"};
    Timer Timer4{"Timer4"};
    Timer Timer5{"Timer5"};
    Timer Timer6{"Timer6"};
    Timer Timer7{"Timer7"};
    TransferControl& Inet1;
    ResultPane& output;
    WebBrowser& web;

    // State of the form.
    std::string NewsText;
    std::string NewsPos;      ///< position of the first byte shown, as text; empty at first
    std::string CurrentSite;  ///< set by MetaCafe; never read
    bool Dragging = false;
    bool Moving = false;

 protected:
    void resized() override { Form_Resize(); }

 private:
    void applyDesign();
    void wireEvents();
    XmlHttpRequest& newsRequest();

    Desktop& desktop_;
    FormFrame& frame_;
    std::span<const Site> sites_;
    Point DragStartCursor;
    Rect DragStartRect;
    std::unique_ptr<XmlHttpRequest> newsRequest_;
};

/// Runs one statement and ignores its exception.
template <class Statement>
void ignoringErrors(Statement statement) {
    try {
        statement();
    } catch (const std::exception&) {
        // The caller continues with its next statement.
    }
}

}  // namespace velvox
