#pragma once

#include <string_view>

#include "app/net/http_address.h"

namespace velvox {

/// Where the Location header of a reply from `base` leads, resolved by the rules of the URL
/// Standard for http and https, as browsers do: the host in its canonical form, dot steps taken,
/// blanks and the like percent-encoded. The port may be 0, which no request can be sent to.
/// Throws RuntimeFailure (Transfer) with a plain reason for an empty Location, any other scheme,
/// a host or port that cannot be one, a host beyond ASCII, and a user name or password.
HttpAddress resolveLocation(const HttpAddress& base, std::string_view location);

}  // namespace velvox
