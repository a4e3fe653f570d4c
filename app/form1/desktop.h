// Services of the system that the main window uses.
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

    /// Handles the window messages in the queue, then returns.
    virtual void yield() = 0;

    /// Opens a web address in the user's browser. Does nothing for other texts.
    virtual void openAddress(std::string_view address) = 0;

    /// Shows a modal box with the exclamation icon, the program's title and an OK button.
    virtual void showExclamation(std::string_view text) = 0;

    /// The current date and time in the system's default text form.
    virtual std::string dateTimeText() const = 0;

    /// Creates a request object. Throws RuntimeFailure (Platform) if the system has none.
    virtual std::unique_ptr<XmlHttpRequest> createXmlHttpRequest() = 0;

    /// Ends the program at once.
    virtual void endProgram() = 0;
};

/// Position and mouse capture of the main window on the screen.
class FormFrame {
 public:
    virtual ~FormFrame() = default;

    virtual Point cursorPosition() const = 0;
    virtual Rect windowRect() const = 0;

    /// Moves the window and keeps its size and its z-order.
    virtual void moveTo(Point topLeft) = 0;
    virtual void setCapture() = 0;
    virtual void releaseCapture() = 0;
};

}  // namespace velvox
