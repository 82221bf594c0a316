// The part of the script checker that looks inside messages.
#pragma once

#include <string_view>

#include "lint/finding_list.h"

namespace brindlemoor {

/// Checks a part of the list's text as a message.
void CheckMessagePart(FindingList& findings, std::string_view text);

/// Tells of markup in a part of the list's text that no page shows.
void CheckMarkupPart(FindingList& findings, std::string_view text);

}  // namespace brindlemoor
