// Where a command writes what it has made.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Why nothing could be written to a path, as far as that can be told before; "" otherwise. An
/// empty path is the standard output.
std::string OutputProblem(const std::string& path);

/// Writes a whole file, or nothing: the old file stays until the new one is complete. Devices and
/// pipes are written to as they are. "" or what went wrong.
std::string WriteOutput(const std::string& path, std::string_view bytes);

}  // namespace brindlemoor
