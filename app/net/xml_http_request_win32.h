#pragma once

#include <windows.h>

#include <msxml.h>

#include "app/form1/xml_http_request.h"
#include "base/com_win32.h"

namespace velvox {

/// MSXML's request object, which needs the thread's message loop. If a reply announces more than 1
/// MB, the request is aborted and never becomes complete.
class MsxmlRequest : public XmlHttpRequest {
 public:
    MsxmlRequest();

    void open(std::string_view method, std::string_view address) override;
    void send() override;
    void abort() override;
    int readyState() const override;
    std::string responseText() const override;

 private:
    OleScope ole_;
    ComPtr<IXMLHttpRequest> request_;
};

}  // namespace velvox
