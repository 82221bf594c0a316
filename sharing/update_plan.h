// What an update of the games that come with the program means for a user's folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sharing/shipped_list.h"

namespace brindlemoor {

class FileSystem;

/// What the program has put into a user's folder, and whether it is still that.
class PutBefore {
 public:
  /// record is the list in the folder; nothing where the first edition was put there, which has
  /// none. Then what any edition has shipped counts as the program's.
  PutBefore(const FileSystem& files, std::string folder, std::optional<ShippedList> record,
            const ShippedList& shipped);

  const FileHashes& Files() const { return record_ ? record_->Latest : shipped_.First; }
  /// True when a file is there as it was put there; nothing when it should be readable and is not.
  /// Links, what lies behind them and files that are guarded against writing are the user's.
  std::optional<bool> IsUntouched(const std::string& name) const;
  /// True when the games were put there at all: a folder may hold others only.
  bool WasFilled() const;

 private:
  const FileSystem& files_;
  std::string folder_;
  std::optional<ShippedList> record_;
  const ShippedList& shipped_;
};

/// Names of files in the program's folder, each in one list at most.
struct UpdatePlan {
  std::vector<std::string> Written;  ///< new, or in place of one that nobody has touched
  std::vector<std::string> Removed;  ///< shipped no more
  std::vector<std::string> Kept;     ///< the user's own: the shipped ones are left out
  std::vector<std::string> Named;    ///< shipped no more, but a file of the user's names them
  std::string Problem;               ///< why nothing can be told; "" when it can
};

/// Compares a user's folder (absolute) with what an edition ships. Only files that differ between
/// the editions are read; what the user has removed stays away.
UpdatePlan PlanUpdate(const FileSystem& files, const std::string& folder, const PutBefore& before,
                      const FileHashes& shipped);

}  // namespace brindlemoor
