// OpeningStage: where the files of an opened archive lie until all of them are there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class FileSystem;

/// A folder in the program's folder with numbered files, and a list of the names that they will
/// have. As long as the list is missing nothing has changed; once it is there, every file that is
/// left goes to its place, whoever carries that out.
class OpeningStage {
 public:
  OpeningStage(FileSystem& files, std::string folder);
  ~OpeningStage();
  OpeningStage(const OpeningStage&) = delete;
  OpeningStage& operator=(const OpeningStage&) = delete;

  /// False while another program has the stage.
  bool IsHeld() const { return held_; }
  /// True when something was left by a program that was ended.
  bool HasLeftovers() const;
  /// True when all that was left is in its place already, or nothing was begun.
  bool IsBare() const;

  bool IsEmpty() const { return names_.empty(); }
  /// Writes a file aside. "" or what went wrong.
  std::string Add(std::string_view name, std::string_view bytes);
  /// Writes the list: from now on the files belong to the folder. "" or what went wrong.
  std::string Complete();
  /// Takes over what was left. False when its list is missing or is none.
  bool TakeLeftovers();

  /// Moves the files to their places and what was there beside. "" or what went wrong; then all is
  /// as it was, as far as the files let themselves be moved back.
  std::string MoveIn();
  /// Removes the stage with what is in it. False while it would still be carried out.
  bool Clear();

  std::size_t Moved() const { return moved_; }
  /// What replaced files are called now.
  const std::vector<std::string>& Kept() const { return kept_; }

 private:
  struct Move {
    std::string From;
    std::string To;
  };
  std::string PathOf(std::string_view name) const;
  std::string StagedPath(std::size_t index) const;
  std::string NameForOld(const std::string& name) const;
  std::string MoveOne(std::size_t index);
  std::string MakeFolderOf(const std::string& name);
  /// Takes back what was moved; false when something stays moved.
  bool TakeBack();

  FileSystem& files_;
  const std::string folder_;
  const std::string stage_;
  bool held_;
  std::vector<std::string> names_;
  std::vector<Move> moves_;
  std::size_t moved_ = 0;
  std::vector<std::string> kept_;
};

}  // namespace brindlemoor
