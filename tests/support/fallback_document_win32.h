// An HTML engine for systems that have none: with it the browser control is created and raises the
// events of every navigation, although its documents show nothing.
#pragma once

#include "base/com_win32.h"

namespace velvox {

/// Serves the HTML documents of this thread, for the length of this object's life.
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
