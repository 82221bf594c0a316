// The beginning of a list that is told in a message.
#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// The first four, a line each, and how many more there are.
std::string FirstLines(const std::vector<std::string>& lines);

}  // namespace brindlemoor
