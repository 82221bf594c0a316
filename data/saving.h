// Saving a text file, or saying why it could not be saved.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A text as it is saved: valid UTF-8.
std::string TextAsSaved(std::string_view text);

/// Writes a text to a path as valid UTF-8. Returns "" or what went wrong; then the old file is as
/// it was.
std::string SaveText(const std::string& path, std::string_view text);

/// Writes a text to a path, beside the old file and renamed over it. True when it is there; else
/// the old file is as it was and a message box says why the file called shownName was not saved.
bool SaveOrTell(const std::string& path, std::string_view shownName, std::string_view text);

/// The same for bytes that are saved as they are.
bool SaveBytesOrTell(const std::string& path, std::string_view shownName, std::string_view bytes);

/// What a user is told of a file that can't be read, and why where that is known.
std::string CantRead(std::string_view shownName, const std::string& path);

}  // namespace brindlemoor
