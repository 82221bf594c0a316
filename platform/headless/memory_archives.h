// MemoryArchiveLibrary: archives in a plain format, for desktops without a library.
#pragma once

#include <string>
#include <vector>

#include "platform/archive_library.h"

namespace brindlemoor {

/// Its archives are a line "FILES" and, for each file, a line with kind (FILE, FOLDER, LINK, OTHER,
/// LOCKED), number of bytes and name, then the bytes. So tests write by hand what no honest library
/// would.
class MemoryArchiveLibrary : public ArchiveLibrary {
 public:
  std::string Read(std::string_view archive, ArchiveVisitor& visitor) const override;
  std::string Write(std::span<const ArchiveFile> files, std::string& archive) const override;
};

}  // namespace brindlemoor
