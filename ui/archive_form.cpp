// The question before a game archive is opened, and the opening.
#include "ui/archive_form.h"

#include <array>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/saving.h"
#include "game/leaving.h"
#include "game/player_files.h"
#include "platform/arrangement.h"
#include "sharing/first_lines.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

struct FateWords {
  FileFate Fate;
  std::string_view Words;
};
/// In the order in which the files are listed.
constexpr std::array<FateWords, 3> kFates = {{{FileFate::kDiffers, "unlike yours"},
                                              {FileFate::kNew, "new"},
                                              {FileFate::kSame, "there already"}}};

std::string GamesOf(const GameArchive& archive) {
  std::string games;
  for (const std::string& game : archive.Games) games += Joined(games.empty() ? "" : ", ", game);
  return games;
}

std::vector<std::string> ListOf(const GameArchive& archive, const OpeningPlan& plan) {
  std::vector<std::string> lines;
  lines.reserve(archive.Files.size());
  for (const FateWords& row : kFates) {
    for (std::size_t index = 0; index < archive.Files.size(); ++index) {
      const ArchiveFile& file = archive.Files[index];
      if (plan.Fates[index] != row.Fate) continue;
      lines.push_back(Joined(file.Name, "  (", row.Words, ", ", SizeText(file.Bytes.size()), ")"));
    }
  }
  return lines;
}

/// "2 unlike yours, 3 new."
std::string CountsOf(const OpeningPlan& plan) {
  std::string counts;
  for (const FateWords& row : kFates) {
    const std::size_t count = plan.Count(row.Fate);
    if (count == 0) continue;
    counts += Joined(counts.empty() ? "" : ", ", count, " ", row.Words);
  }
  return Joined(counts, ".");
}

void TellOfOpening(const GameArchive& archive, const OpeningResult& result) {
  std::string text =
      Joined(GamesOf(archive), ": ", CountText(static_cast<int>(result.Written), "file"),
             " put into the folder.");
  if (!result.Kept.empty()) {
    text += Joined("\n\nYour own files are kept as:\n", FirstLines(result.Kept));
  }
  Desktop().MessageBox(text);
}

}  // namespace

ArchiveForm::ArchiveForm() : Form("ArchiveForm") {
  constexpr int kWidth = 640;
  constexpr int kHeight = 480;
  Caption = "Open a Game Archive";
  Width = kWidth;
  Height = kHeight;
  Head.Headline = true;
  Entries.Spoken = "The files of the archive";
  PutThere.Caption = "Put into My Games";
  PutThere.Click = [this] { Close(Differing::kKeepMine); };
  Replace.Caption = "Replace Mine, Keep Copies";
  Replace.Click = [this] { Close(Differing::kReplace); };
  KeepMine.Caption = "Keep Mine";
  KeepMine.Click = [this] { Close(Differing::kKeepMine); };
  CancelButton.Caption = "Cancel";
  CancelButton.Cancel = true;
  CancelButton.Click = [this] { Close(std::nullopt); };
  Arrangement = Column({Cell(Head), Cell(Counts), Cell(Remarks), Cell(Entries, 1),
                        Row({Layout{.Stretch = 1}, Cell(PutThere), Cell(Replace), Cell(KeepMine),
                             Cell(CancelButton)})});
}

void ArchiveForm::Close(std::optional<Differing> answer) {
  answer_ = answer;
  Desktop().HideForm(*this);
}

std::optional<Differing> ArchiveForm::Ask(const GameArchive& archive, const OpeningPlan& plan) {
  const std::size_t differing = plan.Count(FileFate::kDiffers);
  Head.Caption =
      Joined(GamesOf(archive), ": ", CountText(static_cast<int>(archive.Files.size()), "file"),
             ", ", SizeText(archive.Bytes));
  Counts.Caption = CountsOf(plan);
  Remarks.Caption = FirstLines(plan.Remarks);
  Remarks.Visible = !plan.Remarks.empty();
  Entries.Items = ListOf(archive, plan);
  Entries.Selected = 1;
  PutThere.Visible = differing == 0;
  Replace.Visible = differing > 0;
  KeepMine.Visible = differing > 0;
  (differing == 0 ? PutThere : KeepMine).TakeFocus();
  answer_.reset();
  Desktop().ShowForm(*this, true);
  return answer_;
}

void OpenGameArchive(const std::string& path) {
  FileSystem& files = Desktop().Files();
  const auto bytes = files.Read(path);
  if (!bytes) return Desktop().MessageBox(CantRead(FileNameOf(path), path));
  const GameArchive archive = ReadGameArchive(*bytes);
  if (!archive.Problem.empty()) return Desktop().MessageBox(archive.Problem);
  const std::string& folder = State().ProgramFolder;
  if (const std::string done = FinishOpening(files, folder); !done.empty()) {
    Desktop().MessageBox(done);
  }
  const OpeningPlan plan = PlanOpening(archive, files, folder);
  if (!plan.Problem.empty()) return Desktop().MessageBox(plan.Problem);
  if (plan.Count(FileFate::kSame) == archive.Files.size()) {
    return Desktop().MessageBox(Joined(GamesOf(archive), ": all files are in the folder already."));
  }
  const auto answer = TheArchiveForm().Ask(archive, plan);
  if (!answer || !MayLeaveGame()) return;
  const OpeningResult result = OpenInFolder(archive, plan, *answer, files, folder);
  if (!result.Problem.empty()) return Desktop().MessageBox(result.Problem);
  TellOfOpening(archive, result);
  EndGame();
  State().RefCache = {};  // read from files that may be others now
  LeaveEndedGame();
}

}  // namespace brindlemoor
