// What is wrong in a folder's card files, as a part of a page.
#pragma once

#include <string>

namespace brindlemoor {

/// The findings in the card files of a program's folder as HTML, the first hundred of them; "" when
/// there are none.
std::string FindingsPage(const std::string& folder);

}  // namespace brindlemoor
