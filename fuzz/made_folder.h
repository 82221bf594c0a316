// MadeFolder: a folder of the disk that an input describes, with a user's files around it.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// A fresh folder of the machine, taken away in the end:
///   home/own.txt        a file of the user
///   home/Imp SECRET.txt a card file of the user; SECRET stands in it and follows from the input
///   games/beside.txt    a file directly in the parent of the program's folder
///   games/game/         the program's folder, as the input describes it
/// An entry of the input begins with "@", a letter and a blank; what makes no entry is skipped:
///   "@@ NAME"           a text file: the lines up to the next entry
///   "@/ NAME"           a folder
///   "@> NAME > TARGET"  a symbolic link; TARGET is relative, or begins with $SECRET, $HOME, $ZERO
///                       (/dev/zero) or $PROC (a file of /proc)
///   "@= NAME > OTHER"   a second name of the file OTHER of the folder, or of $OWN
///   "@| NAME"           a pipe
///   "@0 NAME > KIB"     a file of zeros without blocks; "huge" is more than is ever read
/// In names "%0A" stands for a byte and "%*" for 200 letters. No name leads out of the folder or
/// through a link.
class MadeFolder {
 public:
  explicit MadeFolder(std::string_view input);
  ~MadeFolder();
  MadeFolder(const MadeFolder&) = delete;
  MadeFolder& operator=(const MadeFolder&) = delete;

  std::string Path() const { return folder_.string(); }
  /// Regular files with ".txt" names that no link leads to, by path.
  std::vector<std::string> CardFiles() const;
  /// Ends the program when bytes that it writes hold the secret.
  void MustNotTell(std::string_view bytes) const;
  /// Ends the program when something has changed outside of the folder, or the secret is in it.
  void MustHaveKeptTheRest() const;

 private:
  void AddEntry(char kind, std::string_view line);
  void AddText(const std::filesystem::path& path);
  void AddLink(const std::filesystem::path& path, std::string_view target) const;
  void AddName(const std::filesystem::path& path, std::string_view other) const;
  /// The path of a name of the input; "" for one that can't be made.
  std::filesystem::path Place(std::string_view name) const;
  /// All that is around the folder: path, and what is to stay as it is.
  std::map<std::string, std::string> Rest() const;

  std::string secret_;
  std::filesystem::path root_;
  std::filesystem::path folder_;
  std::filesystem::path text_;  ///< the text file that lines are added to
  std::map<std::string, std::string> rest_;
};

/// Inputs to begin with, made around a game (FolderText).
std::vector<std::string> StrangeFolders(const std::string& game);

}  // namespace brindlemoor
