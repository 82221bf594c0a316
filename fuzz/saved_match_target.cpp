// A target that takes its bytes for the file of a match, and plays on what it reads.
#include <algorithm>
#include <set>

#include "core/cards.h"
#include "core/state.h"
#include "core/work_budget.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "game/kept_matches.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "game/windows.h"
#include "saving/saved_match.h"
#include "simulation/automatic_player.h"
#include "text/hash.h"
#include "text/text.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kName = "Ann_Small.match";
constexpr std::string_view kHead = "Brindlemoor match 2\n";
/// Cards of the report that are clicked, and actions of their menus.
constexpr int kMostClicks = 5;

/// Cuts the first line off and gives it.
std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
  const std::string_view line = bytes.substr(0, end);
  bytes.remove_prefix(end);
  return line;
}

/// The first line stays where there is one, and the hash is made right.
std::string WithRightHash(std::string_view bytes) {
  std::string_view head = kHead;
  if (bytes.starts_with(kHead.substr(0, kHead.find(' ')))) {
    head = TakeLine(bytes);
    if (!bytes.empty()) TakeLine(bytes);
  }
  return Joined(head, HashOf(bytes), "\n", bytes);
}

/// A match that has been read, as the bytes that the session composes of it; "" when it is refused.
std::string ComposedAgain(std::string_view bytes) {
  MatchRead read = ReadMatch(bytes, kName);
  MustHold((read.Match == nullptr) != read.Problem.empty(), "a match is read and refused at once");
  if (read.Match == nullptr) return "";
  const std::uint64_t clock = read.Match->Head.Clock;
  const std::string page = PageOf(read.Match->Head);
  TakeMatch(std::move(*read.Match), true);
  return BytesOfMatch(page, clock);
}

/// Looks at cards of the report and presses what their menus offer.
void ClickCards() {
  const std::set<std::int32_t> shown = State().Links.Cards;
  int clicks = 0;
  for (const std::int32_t number : shown) {
    if (++clicks > kMostClicks) return;
    const std::string folder = Joined("file://", kFuzzFolder, "/");
    WB_BeforeNavigate(Joined(folder, "CARD", number));
    for (int action = 1; action <= 3; ++action) {
      CardDescWB_BeforeNavigate(Joined(folder, "MENUACTION:", number, ":", action));
    }
  }
}

void PlayOn() {
  ShowPlayMenu();
  ClickCards();
  PlanAutomaticPlays();
  TakeTurn(0);
  const WorkAccount account;
  Windows().UpdateHand();
}

void Play(std::string_view bytes, Owned owned) {
  FuzzSession session;
  for (const FolderFile& file : FilesOfText(SmallGame())) session.WriteFile(file.Name, file.Bytes);
  PlayDeckManagers(session.Desktop());
  NewGame();
  MatchRead read = ReadMatch(bytes, kName);
  if (read.Match == nullptr || GameOfMatch(read.Match->Head) == 0) return;
  ShowSavedMatch(std::move(*read.Match), owned);
  MustBeHarmless(session.ReadFile("Display.html"));
  MustHold(!State().Links.Games, "the report of a match offers other games");
  PlayOn();
  MustHold(!CanKeepMatch() || ComposeMatchFile().Problem.empty(), "a match can't be saved again");
  TheMainWindow().Command1.Click();
  EndGame();
}

}  // namespace

void FuzzSavedMatch(std::string_view bytes) {
  {
    FuzzSession session;
    SavedMatchHead head;
    ReadMatchHead(bytes, kName, head);
    ComposedAgain(bytes);
  }
  const std::string file = WithRightHash(bytes);
  {
    FuzzSession session;
    const std::string first = ComposedAgain(file);
    if (first.empty()) return;
    const std::string second = ComposedAgain(first);
    MustHold(first == second, "a match changes when it is read and composed");
  }
  Play(file, Owned::kAsSaved);
  Play(file, Owned::kOfPlayerFile);
}

}  // namespace brindlemoor
