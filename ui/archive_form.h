// ArchiveForm: shows what a game archive holds and asks what becomes of it.
#pragma once

#include <optional>
#include <string>

#include "platform/controls.h"
#include "sharing/game_opening.h"

namespace brindlemoor {

struct ArchiveForm : Form {
  ArchiveForm();

  Label Head{"ArchiveHead"};        ///< which games, how many files and bytes
  Label Counts{"ArchiveCounts"};    ///< how many of them are new, and how many differ
  Label Remarks{"ArchiveRemarks"};  ///< what to think of
  ListBox Entries{"ArchiveFiles"};  ///< those that differ first
  Button PutThere{"PutThere"};
  Button Replace{"ReplaceMine"};  ///< shown in place of PutThere where files differ
  Button KeepMine{"KeepMine"};
  Button CancelButton{"CancelOpening"};

  /// What the user wants of the files that differ; nothing when the archive is not to be opened.
  std::optional<Differing> Ask(const GameArchive& archive, const OpeningPlan& plan);

 private:
  void Close(std::optional<Differing> answer);
  std::optional<Differing> answer_;
};

/// Opens an archive (path) as a game of the program's folder, after it was shown and the user has
/// agreed; the list of games is shown then. Says why where it can't be done.
void OpenGameArchive(const std::string& path);

}  // namespace brindlemoor
