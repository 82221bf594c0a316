// RecordingFiles: a file system that tells a journal what it answers and what is written.
#pragma once

#include <map>
#include <set>
#include <string>

#include "journal/journal_text.h"
#include "platform/files.h"

namespace brindlemoor {

class JournalWriter;

/// What lies in the program's folder is known from the state at the start, so only answers about
/// files outside of it are told, and only where they differ from the one before (at first: that
/// nothing is there). Before a file of the folder is changed for the first time, its text is told.
/// What others make of a player's file meanwhile is told when the program looks at it.
/// Never told are the bytes of what a link leads to, and of files outside that the program has no
/// business with: those that are no text files of cards or players and that no user chose.
class RecordingFiles : public FileSystem {
 public:
  /// below, the writer and the folder (absolute) are those of the program that is recorded.
  RecordingFiles(FileSystem& below, JournalWriter& writer, std::string folder);

  void KeepTo(const std::string& programFolder) override { below_.KeepTo(programFolder); }
  void TakeChoice(const std::string& path) override;
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Followed(const std::string& path) const override { return below_.Followed(path); }
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;
  std::string AddFolder(const std::string& path) override;
  /// Told as what it comes to: the one file is written and the other removed.
  std::string Rename(const std::string& from, const std::string& to) override;
  std::string RemoveFolderOfFiles(const std::string& folder) override;
  HoldResult Hold(const std::string& path) override;
  void LetGo(const std::string& path) override { below_.LetGo(path); }

 private:
  void Tell(std::string_view what, const std::string& path, JournalFields answer) const;
  /// What is to be told before a file changes; no fields for nothing.
  JournalFields Before(const std::string& name, const std::string& path);
  void TellBefore(const JournalFields& before);
  void TellWritten(const std::string& name, std::string_view bytes);
  void TellChange(const std::string& path) const;

  FileSystem& below_;
  JournalWriter& writer_;
  const std::string folder_;
  mutable std::map<std::string, JournalFields> told_;  // answers about the outside
  // Players' files of the folder as the journal knows them: the fields of "changed", a hash for the
  // text.
  mutable std::map<std::string, JournalFields> known_;
  std::set<std::string> changed_;  // files of the folder
  std::set<std::string> chosen_;   // paths
};

}  // namespace brindlemoor
