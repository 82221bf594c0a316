// ReplayFiles: the files as they were when a journal was recorded.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "journal/journal_tape.h"
#include "platform/files.h"
#include "platform/headless/overlay_files.h"

namespace brindlemoor {

/// The files of a folder under the name that it had in the journal, set back to the state before
/// the session. What is written stays in memory; nothing on the machine is changed. What lay
/// outside of the folder is answered from the journal.
class ReplayFiles : public FileSystem {
 public:
  /// folder is where the program's folder lies now, absolute. The tape outlives this.
  ReplayFiles(const Journal& journal, JournalTape& tape, const std::string& folder);

  /// What differs from the journal in the state before the session, a line for each file.
  std::vector<std::string> Differences();
  /// Gets the text of every page and other text file that is written.
  std::function<void(const std::string& name, std::string_view bytes)> OnText;

  void KeepTo(const std::string& programFolder) override { machine_.KeepTo(programFolder); }
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;
  std::string AddFolder(const std::string& path) override;
  HoldResult Hold(const std::string& path) override;

 private:
  /// The machine's files under the journal's name of the folder.
  class MovedFolder : public FileSystem {
   public:
    MovedFolder(std::string from, std::string to) : from_(std::move(from)), to_(std::move(to)) {}
    void KeepTo(const std::string& programFolder) override {
      machine_.KeepTo(Moved(programFolder));
    }
    bool Exists(const std::string& path) const override { return machine_.Exists(Moved(path)); }
    bool FolderExists(const std::string& path) const override {
      return machine_.FolderExists(Moved(path));
    }
    std::vector<std::string> ListFiles(const std::string& folder) const override {
      return machine_.ListFiles(Moved(folder));
    }
    std::vector<std::string> ListFolders(const std::string& folder) const override {
      return machine_.ListFolders(Moved(folder));
    }
    std::optional<std::string> Read(const std::string& path) const override {
      return machine_.Read(Moved(path));
    }
    std::string WhyUnread(const std::string& path) const override {
      return machine_.WhyUnread(Moved(path));
    }
    std::string Followed(const std::string& path) const override {
      return machine_.Followed(Moved(path)) == Moved(path) ? path : "";
    }
    std::string Write(const std::string&, std::string_view) override { return "read only"; }
    std::string Remove(const std::string&) override { return "read only"; }

   private:
    std::string Moved(const std::string& path) const;
    LocalFileSystem machine_;
    const std::string from_;
    const std::string to_;
  };

  std::string PathOf(const std::string& name) const { return folder_ + "/" + name; }
  void SetBack(const Journal& journal);
  /// The answer about something outside; empty for what is not there.
  const JournalFields& Outside(std::string_view what, const std::string& name) const;
  /// What others made of a player's file before the program looked at it.
  void TakeChange(const std::string& name) const;
  /// What went wrong at the same place of the session; nothing when it went well.
  std::optional<std::string> Failure(std::string_view what, const std::string& name);

  const std::string folder_;  // as the journal names it
  JournalTape& tape_;
  const std::vector<JournalRecord> recordedState_;
  MovedFolder machine_;
  mutable OverlayFileSystem inside_;
  mutable std::map<std::string, std::string> unread_;     // why a player's file could not be read
  std::set<std::string> absent_;                          // paths of files that were not there
  mutable std::map<std::string, JournalFields> outside_;  // answers, as they stand
};

}  // namespace brindlemoor
