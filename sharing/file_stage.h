// FileStage: where the new files of a program's folder lie until all of them are there.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class FileSystem;

/// What stages are for. Those of one purpose exclude one another.
struct StagePurpose {
  std::string_view Name;      ///< of the stage's folder, behind kPassingFile
  std::string_view ListHead;  ///< what its list begins with, a line
  /// Why a file that is moved can't have a name; "" when it can.
  std::string (*WhyNoName)(std::string_view name);
  bool KeepsReplaced;  ///< beside, as "Cards.txt.old~"; else what was replaced goes in the end
};

/// A folder in the program's folder with numbered files, and a list of the names that they will
/// have and of files that will go. As long as the list is missing nothing has changed; once it is
/// there, every file that is left goes to its place, whoever carries that out.
class FileStage {
 public:
  /// Whether what is there under a name may be replaced or removed now; nothing where that can't be
  /// told.
  using Permission = std::function<std::optional<bool>(const std::string& name)>;

  FileStage(FileSystem& files, std::string folder, const StagePurpose& purpose);
  ~FileStage();
  FileStage(const FileStage&) = delete;
  FileStage& operator=(const FileStage&) = delete;

  /// False while another program has the stage.
  bool IsHeld() const { return held_; }
  /// True when something was left by a program that was ended.
  bool HasLeftovers() const;
  /// True when all that was left is in its place already, or nothing was begun.
  bool IsBare() const;

  bool IsEmpty() const { return entries_.empty(); }
  /// Writes a file aside. "" or what went wrong.
  std::string Add(std::string_view name, std::string_view bytes);
  /// A file of the folder that will go.
  void AddRemoval(std::string_view name);
  /// Writes the list: from now on the files belong to the folder. "" or what went wrong.
  std::string Complete();
  /// Takes over what was left. False when its list is missing or is none.
  bool TakeLeftovers();

  /// Moves the files to their places and what was there beside; what may not be replaced stays. ""
  /// or what went wrong; then all is as it was, as far as the files let themselves be moved back.
  std::string MoveIn(const Permission& mayReplace = nullptr);
  /// Removes the stage with what is in it. False while it would still be carried out.
  bool Clear();

  std::size_t Moved() const { return moved_; }
  /// What replaced files are called now.
  const std::vector<std::string>& Kept() const { return kept_; }

 private:
  struct Entry {
    std::string Name;
    bool IsRemoval = false;
  };
  struct Move {
    std::string From;
    std::string To;
  };
  std::string PathOf(std::string_view name) const;
  std::string StagedPath(std::size_t index) const;
  std::string PathForOld(std::size_t index) const;
  std::string MoveOne(std::size_t index, const Permission& mayReplace);
  /// Makes the way free for a file, or removes one.
  std::string MoveOldOne(std::size_t index);
  std::string MakeFolderOf(const std::string& name);
  /// Takes back what was moved; false when something stays moved.
  bool TakeBack();

  FileSystem& files_;
  const std::string folder_;
  const StagePurpose& purpose_;
  const std::string stage_;
  const std::string lock_;
  bool held_;
  std::vector<Entry> entries_;
  std::vector<Move> moves_;
  std::size_t moved_ = 0;
  std::vector<std::string> kept_;
};

}  // namespace brindlemoor
