// Paths as browsers write them: file URLs and the addresses of pictures on pages.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What the address of a file begins with.
inline constexpr std::string_view kFileScheme = "file://";

/// The file URL of an absolute path, special characters escaped, and of a place in it.
std::string FileUrl(std::string_view path, std::string_view anchor = {});

/// The path that a file URL leads to, "" for other addresses.
std::string PathOfUrl(std::string_view url);

/// Takes the next character off an address, be it escaped or not. The address is not empty.
char TakeUrlCharacter(std::string_view& url);

/// A path as the quoted address of a picture on a page: only what a browser would
/// read as something else is escaped.
std::string PageAddress(std::string path);

}  // namespace brindlemoor
