// What the main window needs of the desktop.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "app/form1/xml_http_request.h"
#include "base/geometry.h"

namespace velvox {

class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Handles the window messages that are waiting, then returns.
    virtual void yield() = 0;

    /// Opens a web address in the user's browser. Does nothing for any other address.
    virtual void openAddress(std::string_view address) = 0;

    /// A modal box with the exclamation icon, the program's title and an OK button.
    virtual void showExclamation(std::string_view text) = 0;

    /// Current date and time in the system's default text form.
    virtual std::string dateTimeText() const = 0;

    /// A new request object, or RuntimeFailure (Platform) when the system has none.
    virtual std::unique_ptr<XmlHttpRequest> createXmlHttpRequest() = 0;

    /// Ends the program at once.
    virtual void endProgram() = 0;
};

/// The main window's own frame on the screen.
class FormFrame {
 public:
    virtual ~FormFrame() = default;

    virtual Point cursorPosition() const = 0;
    virtual Rect windowRect() const = 0;

    /// Moves the window, keeping its size and its place in the stack.
    virtual void moveTo(Point topLeft) = 0;
    virtual void setCapture() = 0;
    virtual void releaseCapture() = 0;
};

}  // namespace velvox
