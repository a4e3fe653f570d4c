#pragma once

#include <string_view>

#include "app/net/http_address.h"

namespace velvox {

/// Resolves the Location header of a reply from `base` by the rules of the URL Standard for http
/// and https, as browsers do: the host is made canonical, "." and ".." are resolved, and blanks and
/// similar bytes are percent-encoded. The port of the result may be 0, to which no request can be
/// sent. Throws RuntimeFailure (Transfer) with a readable reason for an empty Location, any other
/// scheme, an invalid host or port, a non-ASCII host, and a user name or password.
HttpAddress resolveLocation(const HttpAddress& base, std::string_view location);

}  // namespace velvox
