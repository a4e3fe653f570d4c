// A fake HTML engine for systems that have none. With it the browser control can be created and
// raises the events of every navigation, although its documents show nothing.
#pragma once

#include "base/com_win32.h"

namespace velvox {

/// Provides the HTML documents of this thread as long as the object exists.
class FallbackDocumentRegistration {
 public:
    /// Throws RuntimeFailure (Platform).
    FallbackDocumentRegistration();
    FallbackDocumentRegistration(const FallbackDocumentRegistration&) = delete;
    FallbackDocumentRegistration& operator=(const FallbackDocumentRegistration&) = delete;
    ~FallbackDocumentRegistration();

 private:
    OleScope ole_;
    DWORD cookie_ = 0;
};

}  // namespace velvox
