// What check finds in open files, as editors show it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "server/json_values.h"
#include "server/text_positions.h"

namespace brindlemoor {

/// The findings in files, with an entry for each. A file of a game is held against the game's other
/// files, one of no game is looked at alone. Reads through the desktop of the session.
std::map<std::string, std::vector<Finding>> FindingsIn(const std::vector<std::string>& paths);

/// The findings in a text, as the protocol has them.
Json DiagnosticsOf(const std::vector<Finding>& findings, std::string_view text,
                   PositionUnits units);

}  // namespace brindlemoor
