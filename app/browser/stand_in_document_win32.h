// On a system without an HTML engine the browser control navigates, follows redirects and then
// finds no document to show, so that it never arrives. A document of our own, registered in this
// process alone, stands in: it shows nothing and notes the type and size of what it was given.
#pragma once

#include <memory>
#include <string>

#include "app/browser/document_facts.h"
#include "base/com_win32.h"

namespace velvox {

struct StandInChannel;

class StandInListener {
 public:
    virtual ~StandInListener() = default;

    /// Told from inside the control, at least once when a document's end is known.
    virtual void documentFacts(const DocumentFacts& facts) = 0;
};

/// Whether the system can make an HTML document. Found out once, by making one; needs OLE.
bool systemHasHtmlEngine();

/// The registration of the stand-in for this thread's HTML documents.
class StandInRegistration {
 public:
    /// Throws RuntimeFailure (Platform). The listener must outlive this.
    explicit StandInRegistration(StandInListener& listener);
    StandInRegistration(const StandInRegistration&) = delete;
    StandInRegistration& operator=(const StandInRegistration&) = delete;
    ~StandInRegistration();

 private:
    std::shared_ptr<StandInChannel> channel_;
    DWORD cookie_ = 0;
};

/// Asks a server for the facts of a document by a request for its header alone.
class HeaderRequest {
 public:
    /// Failures are quiet: then the listener is not told anything.
    HeaderRequest(const std::string& address, StandInListener& listener);
    HeaderRequest(const HeaderRequest&) = delete;
    HeaderRequest& operator=(const HeaderRequest&) = delete;
    ~HeaderRequest();

 private:
    std::shared_ptr<StandInChannel> channel_;
};

}  // namespace velvox
