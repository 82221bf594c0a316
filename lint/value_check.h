// The part of the script checker that looks inside value expressions.
#pragma once

#include <string_view>

#include "lint/finding_list.h"
#include "script/command_table.h"

namespace brindlemoor {

/// Checks a part of the list's text as a value expression.
void CheckValuePart(FindingList& findings, std::string_view expression);

/// True when a number, 0 included, stands in front of a text.
bool BeginsWithNumber(std::string_view text);

/// True when a text that may be stored as written (kContent, kSetting) is computed instead.
bool IsComputed(std::string_view text, ArgumentKind kind);

}  // namespace brindlemoor
