// ZipLibrary: archives that every system opens.
#pragma once

#include "platform/archive_library.h"

namespace brindlemoor {

/// Reads and writes zip archives, and no other format. Names are UTF-8 in what it writes; those
/// that it reads come as they are where they say nothing of their encoding.
class ZipLibrary : public ArchiveLibrary {
 public:
  std::string Read(std::string_view archive, ArchiveVisitor& visitor) const override;
  std::string Write(std::span<const ArchiveFile> files, std::string& archive) const override;
};

}  // namespace brindlemoor
