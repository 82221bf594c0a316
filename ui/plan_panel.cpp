// The plan below the report, and the prices on the hand.
#include "ui/plan_panel.h"

#include "core/cards.h"
#include "core/state.h"
#include "game/plan_forecast.h"
#include "game/plans.h"
#include "platform/arrangement.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr int kListHeight = 66;
constexpr int kButtonWidth = 110;
constexpr std::int32_t kWarningColor = 0xF0B060;

std::string LineOf(const PlannedStep& step) {
  std::string line = step.Words;
  for (const std::string& note : {step.Problem, step.Advice}) {
    if (!note.empty()) line += Joined("  -  ", note);
  }
  return line;
}

/// What there is to plan, in words for somebody who has not planned anything yet.
std::string_view NothingPlanned() {
  return HoldsCards(State().Players[1].Hand)
             ? "Nothing yet: click a card of your hand to plan it."
             : "Nothing yet: click a card on the table to see what it can do.";
}

std::string LeftText(const PlanForecast& forecast) {
  const std::string amounts = AmountsText(forecast.Left);
  if (amounts.empty()) return "";
  return Joined(forecast.Steps.empty() ? "You have " : "Left after your plan: ", amounts, ".");
}

std::string WarningText(const PlanForecast& forecast) {
  std::string names;
  for (const PlannedStep& step : forecast.Steps) {
    if (!step.Problem.empty()) names += Joined(names.empty() ? "" : "; ", step.Words);
  }
  return names.empty() ? names : Joined("This will not work: ", names, ".");
}

std::string BadgeOf(const HandForecast& card) {
  if (!card.IsPriceKnown) return "";
  return card.Price.empty() ? "free" : AmountsText(card.Price);
}

void MarkHand(const PlanForecast& forecast, bool plans) {
  for (int position = 1; position <= kHandPositions; ++position) {
    const auto place = static_cast<std::size_t>(position);
    const HandForecast& card = forecast.Hand[place];
    PictureBox& picture = *TheMainWindow().Picture2[place];
    picture.Badge = plans ? BadgeOf(card) : std::string();
    picture.Framed = plans && card.IsPlanned;
    picture.Dimmed = plans && picture.Visible && !card.IsPayable;
  }
}

}  // namespace

PlanPanel::PlanPanel() {
  Panel.Caption = "Your plan for the coming turn";
  Panel.Visible = false;
  Warning.TextColor = kWarningColor;
  Warning.Visible = false;
  Lines.Spoken = "What you have planned";
  Lines.Open = [this] { TakeBack_Click(); };
  TakeBack.Caption = "Take Back";
  TakeBack.ToolTip = "Takes the chosen line out of your plan.";
  TakeBack.Click = [this] { TakeBack_Click(); };
  AimAnew.Caption = "Aim Anew";
  AimAnew.ToolTip = "Takes the target of the chosen line back, so that you can click another one.";
  AimAnew.Click = [this] { AimAnew_Click(); };
  Lines.Click = [this] { ShowChoice(); };
}

Layout PlanPanel::Arrangement() {
  Layout layout =
      Column({Cell(Left), Cell(Warning),
              Row({Cell(Lines, 1, 0, kListHeight),
                   Column({Cell(TakeBack, 0, kButtonWidth), Cell(AimAnew, 0, kButtonWidth)})})});
  layout.Group = &Panel;
  return layout;
}

void PlanPanel::Update() {
  const bool plans = HasTurnToPlan();
  const PlanForecast forecast = plans ? ForecastPlan() : PlanForecast();
  MarkHand(forecast, plans);
  std::vector<std::string> lines;
  steps_.clear();
  for (const PlannedStep& step : forecast.Steps) {
    lines.push_back(LineOf(step));
    steps_.push_back({step.Entry, step.Slot, step.Effect, step.IsAimed});
  }
  if (const std::string waiting = WaitingMenuAction(); plans && !waiting.empty()) {
    lines.push_back(Joined(waiting, "  -  Now click its target."));
    steps_.push_back({});
  }
  const int last = static_cast<int>(lines.size());
  if (lines.empty()) lines.emplace_back(NothingPlanned());
  Lines.Items = std::move(lines);
  Lines.Selected = last;
  ShowChoice();
  Left.Caption = LeftText(forecast);
  Left.Visible = !Left.Caption.Get().empty();
  Warning.Caption = WarningText(forecast);
  Warning.Visible = !Warning.Caption.Get().empty();
  Panel.Visible = plans;
}

const PlanPanel::Step* PlanPanel::Chosen() const {
  const int line = Lines.Selected;
  if (line < 1 || line > static_cast<int>(steps_.size())) return nullptr;
  return &steps_[static_cast<std::size_t>(line) - 1];
}

void PlanPanel::ShowChoice() {
  const Step* chosen = Chosen();
  TakeBack.Enabled = chosen != nullptr;
  AimAnew.Enabled = chosen != nullptr && chosen->IsAimed;
}

void PlanPanel::AimAnew_Click() {
  const Step* chosen = Chosen();
  if (State().TurnRunning == 1 || chosen == nullptr || !chosen->IsAimed) return;
  if (chosen->Entry != 0) {
    AwaitPlayTarget(chosen->Entry);
  } else {
    AwaitMenuTarget(chosen->Slot, chosen->Effect);
  }
  ShowPlayMenu();
}

void PlanPanel::TakeBack_Click() {
  Session& state = State();
  const Step* chosen = Chosen();
  if (state.TurnRunning == 1 || chosen == nullptr) return;
  const Step step = *chosen;
  if (step.Entry != 0) {
    QueuePlay(state.PlayQueue[step.Entry], 0);
  } else if (state.CardTable.Holds(step.Slot) &&
             state.CardTable[step.Slot].Effects.Holds(step.Effect)) {
    state.CardTable[step.Slot].Effects.Edit(step.Effect).MenuState = kMenuAction;
  }
  state.AwaitingPlayTarget = 0;
  ForgetSelection();
  ShowPlayMenu();
}

void ShowPlan() {
  MainWindow& window = TheMainWindow();
  // At the list of games there is no turn to take or to plan, and the list needs the room.
  window.Command1.Visible = IsAtTable();
  window.InPlayWB.Visible = IsAtTable();
  window.Plan.Update();
  window.Aim.Update();
  window.Story.Update(!window.Aim.Words.Visible);
}

}  // namespace brindlemoor
