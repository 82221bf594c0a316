// A page that stands for itself: with its pictures in it, for a browser anywhere.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// The bytes of a page as WritePage has written them, with the pictures that lie where they should
/// in place of their addresses, a title and the encoding. Links lead nowhere. Pictures that are
/// missing, or for which there is no room left, keep their address.
std::string PageSnapshot(std::string_view page, std::string_view title);

}  // namespace brindlemoor
