// Bytes as text of 64 characters.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// The standard alphabet of RFC 4648, filled up with "=".
std::string Base64(std::string_view bytes);

}  // namespace brindlemoor
