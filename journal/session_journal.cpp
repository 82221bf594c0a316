// Recording the start of a session, and playing one again.
#include "journal/session_journal.h"

#include <algorithm>
#include <memory>

#include "core/program_version.h"
#include "core/state.h"
#include "editor/program_session.h"
#include "game/plans.h"
#include "game/program_start.h"
#include "journal/journal_writer.h"
#include "journal/replay_files.h"
#include "journal/replay_platform.h"
#include "journal/start_state.h"
#include "platform/controls.h"

namespace brindlemoor {

void WriteSessionHead(JournalWriter& writer, const SessionStart& start, FileSystem& files) {
  Journal head;
  head.Program = kProgramVersion;
  head.Kind = kSessionJournal;
  head.Folder = start.Folder;
  head.Options["debug"] = start.Debug ? "1" : "0";
  head.Options["seed"] = start.Seed ? std::to_string(*start.Seed) : "clock";
  if (start.Copy > 1) head.Options["copy"] = std::to_string(start.Copy);
  head.Files = StartStateOf(files, start.Folder);
  WriteHead(writer, head);
}

namespace {

/// Tells of each click on the turn button that takes a turn.
class TurnObserver : public EventObserver {
 public:
  explicit TurnObserver(const std::function<void()>& beforeTurn) : beforeTurn_(beforeTurn) {}

  void EventBegins(const Form& form, const UserEvent& event) override {
    const bool isTurn = event.Kind == UserEventKind::kClick && event.Control == "Command1" &&
                        form.Name == "MainWindow";
    if (isTurn && IsAtTable() && State().TurnRunning == 0) beforeTurn_();
  }
  void EventEnds() override {}

 private:
  const std::function<void()>& beforeTurn_;
};

}  // namespace

ReplayResult ReplaySession(const Journal& journal, const ReplayOptions& options) {
  JournalTape tape(journal.Records);
  auto files = std::make_unique<ReplayFiles>(journal, tape, options.Folder);
  files->OnText = options.OnText;
  if (options.OnFiles) options.OnFiles(files->Differences());
  auto desktop = std::make_shared<ReplayPlatform>(std::move(files), tape);
  if (options.Archives) desktop->SetArchives(options.Archives);
  OpenProgramSession(desktop, journal.Folder);
  State().DebugMode = journal.Number("debug") == 1 ? 1 : 0;
  State().CopyOfProgram =
      static_cast<int>(std::clamp<std::uint64_t>(journal.Number("copy"), 1, 99));
  TurnObserver observer(options.BeforeTurn);
  if (options.BeforeTurn) desktop->SetObserver(&observer);
  desktop->Play(StartProgram);
  desktop->SetObserver(nullptr);
  State() = Session{};
  tape.Result.CutOff = !journal.Ended;
  return tape.Result;
}

}  // namespace brindlemoor
