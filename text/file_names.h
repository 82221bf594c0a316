// Names of players and games as parts of file names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlemoor {

/// Characters that no file name can hold on some system.
inline constexpr std::string_view kNotInFileNames = "/\\:*?\"<>|";

/// A name with "%", control characters, what no file name can hold and the characters of
/// alsoEncoded as "%" and two hexadecimal digits a byte. No two names give the same.
std::string EncodedForFileName(std::string_view name, std::string_view alsoEncoded = "");

/// The same in at most so many bytes (20 or more): a longer one is cut between two characters and
/// ends with "%~" and 16 digits of a hash of the whole name.
std::string BoundedForFileName(std::string_view name, std::size_t bytes,
                               std::string_view alsoEncoded = "");

}  // namespace brindlemoor
