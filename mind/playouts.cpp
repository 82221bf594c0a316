// Playing trials of a turn.
#include "mind/playouts.h"

#include <algorithm>
#include <utility>

#include "core/desktop.h"
#include "core/random.h"
#include "data/card_reader.h"
#include "game/card_play.h"
#include "game/planned_turn.h"
#include "game/turn.h"
#include "game/windows.h"
#include "mind/hidden_cards.h"
#include "script/run_services.h"
#include "simulation/automatic_player.h"
#include "simulation/borrowed_files.h"
#include "simulation/desktop.h"

namespace brindlemoor {
namespace {

void EndTrial() { State().GameOver = 1; }

/// Shows nothing of the trials, but serves the windows of the program meanwhile.
class TrialDesktop : public SimulationDesktop {
 public:
  explicit TrialDesktop(std::shared_ptr<Platform> outer)
      : SimulationDesktop(
            std::make_unique<CachedFileSystem>(std::make_unique<BorrowedFiles>(outer->Files()))),
        outer_(std::move(outer)) {}

  void ServeWindows() noexcept override { outer_->ServeWindows(); }

 private:
  std::shared_ptr<Platform> outer_;
};

constexpr RunServices kServices = {TakeCardsOut, PayCost, EndTrial};

/// The seed of a turn of a trial: every plan is tried on the same deals, and on the same dice where
/// they are thrown alike, so that luck tells least.
constexpr std::uint64_t SeedOf(std::uint64_t number, int turn) {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  constexpr std::uint64_t kTurns = 1000;
  return (number * kTurns + static_cast<std::uint64_t>(turn) + 1) * kSpread;
}

}  // namespace

Playouts::Playouts(int side, std::int64_t steps) : side_(side), left_(steps) {
  Session& session = State();
  desktop_ = std::make_shared<TrialDesktop>(session.Desktop);
  session.Desktop = desktop_;
  session.Services = &kServices;
  session.Windows = &kNoWindows;
  session.Trace = nullptr;
  session.Log = nullptr;
  session.DebugMode = 0;
  session.Quiet = true;
  session.ThinkOfTurn = nullptr;
  session.EnemyPlan.reset();
  session.TurnRunning = 0;
  session.LimitsReported.clear();
  session.PhaseBanner.clear();
  session.Match.Winners = 0;
  session.Work = {};
  session.Random = {};
  // Only the start of a match looks at them, and each trial would copy them.
  session.MasterCards.Reset(1);
  session.MasterPlaces.clear();
  ForgetHiddenCards(side);
  base_ = session;
}

Playouts::~Playouts() = default;

void Playouts::CountWork() {
  std::int64_t& steps = State().Work.Total;
  left_ -= std::exchange(steps, 0);
}

void Playouts::Look() {
  CountWork();
  Session& session = State();
  session = base_;
  session.Work = {.Limit = std::clamp<std::int64_t>(left_, 1, limits::kStepsOfTurn)};
}

std::optional<double> Playouts::Play(const std::optional<TurnPlan>& plan, std::uint64_t number,
                                     int turns, const std::function<void()>& played) {
  Look();
  desktop_->ServeWindows();
  Session& session = State();
  session.Random = {SeedOf(number, 0)};
  desktop_->Restart(SeedOf(number, 0));
  DealHiddenCards(side_);
  if (side_ == 2) session.EnemyPlan = plan;
  for (int turn = 1; turn <= turns && session.GameOver == 0; ++turn) {
    session.Random = {SeedOf(number, turn)};
    if (turn == 1 && side_ == 1 && plan) {
      LineUp(*plan);
    } else {
      PlanAutomaticPlays();
    }
    TakeTurn(0);
    if (session.Work.Total >= left_) break;
    if (session.GameOver == 0) played();
  }
  session.Work.Spend(1);  // nothing is for nothing
  CountWork();
  if (session.GameOver == 0) return std::nullopt;
  const int winners = session.Match.Winners;
  if (winners != 1 && winners != 2) return 0.5;
  return winners == side_ ? 1 : 0;
}

}  // namespace brindlemoor
