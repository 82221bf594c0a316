// Saying what waits for a target, and giving it up.
#include "ui/aim_banner.h"

#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "game/aiming.h"
#include "game/plans.h"
#include "platform/arrangement.h"
#include "text/one_line.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr int kHeight = 68;  // three lines
constexpr int kButtonWidth = 90;
constexpr int kButtonHeight = 34;
constexpr int kShare = 10'000;
constexpr std::int32_t kColor = 0xF5C542;

}  // namespace

AimBanner::AimBanner() {
  Words.TextColor = kColor;
  Words.Visible = false;
  Stop.Caption = "Stop";
  Stop.ToolTip = "Takes back what waits for a target.";
  Stop.Cancel = true;
  Stop.Visible = false;
  Stop.Click = [this] { Stop_Click(); };
}

Layout AimBanner::Arrangement(Control& otherwise) {
  // The space keeps the row as wide as the page when all are hidden.
  return Row({Cell(Words, kShare, 0, kHeight), Cell(Stop, 0, kButtonWidth, kButtonHeight),
              Cell(otherwise, kShare, 0, kHeight), Layout{.Stretch = 1}});
}

void AimBanner::Show(std::string words, const std::vector<int>& slots) {
  const Pile& table = State().CardTable;
  std::vector<std::string> links;
  links.reserve(slots.size());
  for (const int slot : slots) links.push_back(Joined("CARD", table[slot].GlobalID));
  TheMainWindow().WB.OutlinedLinks = std::move(links);
  Stop.Visible = !words.empty();
  Words.Visible = !words.empty();
  Words.ToolTip = words;
  Words.Caption = std::move(words);
}

void AimBanner::Update() {
  // On an earlier report there is nothing to aim at.
  if (TheMainWindow().History.LooksBack()) return Show("", {});
  const bool plans = HasTurnToPlan();
  aimed_ = std::exchange(told_, 0);
  const Pile& table = State().CardTable;
  const int target = State().PlayQueue.Holds(aimed_) ? int{State().PlayTarget[aimed_]} : 0;
  const Card* aimed = table.Holds(target) ? AimableCard(aimed_) : nullptr;
  if (aimed == nullptr) aimed_ = 0;
  if (!plans) return Show("", {});
  if (aimed != nullptr) {
    return Show(Joined(OneLine(aimed->Name), " is aimed at ", OneLine(table[target].Name),
                       ", the card that you clicked before.  Esc takes the aim back."),
                {target});
  }
  const auto awaited = TargetAwaited();
  if (!awaited) return Show("", {});
  TheMainWindow().WB.PointDelay = 0;
  Show(awaited->Targets.empty() ? Joined(awaited->Name, " finds no target now.  Esc stops.")
                                : Joined("Choose a target for ", awaited->Name, ".  Esc stops."),
       awaited->Targets);
}

void AimBanner::Stop_Click() {
  Session& state = State();
  if (state.TurnRunning == 1 || !Stop.Visible) return;
  if (aimed_ != 0) {
    AwaitPlayTarget(aimed_);
  } else if (state.AwaitingMenuTarget != 0) {
    ForgetSelection();
  } else if (AimableCard(state.AwaitingPlayTarget) != nullptr) {
    QueuePlay(state.PlayQueue[state.AwaitingPlayTarget], 0);
    state.AwaitingPlayTarget = 0;
  }
  ShowPlayMenu();
}

}  // namespace brindlemoor
