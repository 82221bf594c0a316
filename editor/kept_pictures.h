// KeptPictures: pictures that files name, kept where they are found by their names.
#pragma once

#include <string>
#include <utility>

#include "editor/picture_files.h"

namespace brindlemoor {

/// Finds the names under which files may speak of pictures. One that lies where no game looks, or
/// behind another one of its name, is copied beside the card file, under a name that is free.
class KeptPictures {
 public:
  /// Of a card file's folder with its separator.
  explicit KeptPictures(std::string folder) : folder_(std::move(folder)) {}

  /// The name of a picture (absolute path), without a folder; FindPicture finds the same bytes by
  /// it. "" when it can't be copied.
  std::string Keep(const std::string& path);
  /// True when a picture could not be kept.
  bool HasFailed() const { return !problem_.empty(); }
  /// Sentences for the user: of the copies, and of the first one that failed; "" for none.
  std::string Copied() const;
  const std::string& Problem() const { return problem_; }

 private:
  /// A name of which nothing is found, or the same bytes; "" for none.
  std::string NameFor(const std::string& name, const std::string& bytes) const;
  std::string Fail(const std::string& name, std::string_view error);

  std::string folder_;
  ShortList copied_;
  std::string problem_;
};

}  // namespace brindlemoor
