// Composing the scenario of a trial, and watching it.
#include "editor/card_trial.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_rows.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "scenario/scenario_run.h"
#include "scenario/scene.h"
#include "text/one_line.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kTried = "Tried";
constexpr std::string_view kAlly = "Ally";
constexpr std::string_view kEnemy = "Enemy";
constexpr std::string_view kPlayer1 = "player1";
constexpr std::string_view kPlayer2 = "player2";
constexpr std::string_view kPlayerTrait = "PLAYER";
/// What games pay with, and how much of it the player cards of a trial have at least.
constexpr std::string_view kResources[] = {"MANA", "HEARTS", "MONSTERS"};
constexpr int kEnough = 20;
constexpr int kHitPoints = 30;
constexpr std::string_view kPath = "trial.scenario";

/// Stands for a brace in scenarios that have one: there "{NAME}" stands for something else.
constexpr std::string_view kBrace = "{brace}";
constexpr std::string_view kBraceLine = "let brace \"{\"\n";

/// A text as a word of a scenario.
std::string Word(std::string_view text) {
  std::string word = "\"";
  for (const char character : text) {
    if (character == '{') {
      word += kBrace;
      continue;
    }
    if (character == '"') word += '"';
    word += character == '\n' || character == '\r' ? ' ' : character;
  }
  return word + '"';
}

std::string TraitLines(const Card& card) {
  std::string lines;
  for (const TraitRow& row : CardRows::Of(card).Traits) {
    if (row.Name.empty()) continue;
    lines += Joined("  trait ", Word(row.Name), row.Value.empty() ? "" : " ",
                    row.Value.empty() ? "" : Word(row.Value), "\n");
  }
  return lines;
}

std::string EffectLines(const Card& card) {
  std::string lines;
  for (const EffectRow& row : CardRows::Of(card).Effects) {
    if (row.Script.empty()) continue;
    lines +=
        Joined("  effect ", Word(row.Target), " ", Word(row.Trigger), " ", Word(row.Script), "\n");
  }
  return lines;
}

int TraitsInCommon(const Card& one, const Card& other) {
  int common = 0;
  for (const auto& trait : one.Traits) {
    if (!trait.Name().empty() && HasTrait(other, trait.Name())) ++common;
  }
  return common;
}

/// The cards of the list that are most like a card, the best first, player cards left aside.
std::vector<const Card*> CardsLike(const Card& tried) {
  std::vector<std::pair<int, const Card*>> found;
  for (const Card& card : State().Collection) {
    if (IsFree(card) || card.Name == tried.Name || HasTrait(card, kPlayerTrait)) continue;
    found.emplace_back(TraitsInCommon(tried, card), &card);
  }
  std::ranges::stable_sort(found, std::greater<>(), &std::pair<int, const Card*>::first);
  std::vector<const Card*> cards;
  cards.reserve(found.size());
  for (const auto& entry : found) cards.push_back(entry.second);
  return cards;
}

/// The other cards of the table: made of the list, or like the tried one where it has no others.
struct Companions {
  Card Ally;
  Card Enemy;
};
Companions CompanionsOf(const Card& tried) {
  const auto like = CardsLike(tried);
  const auto made = [&](std::size_t index, std::string_view name) {
    if (!like.empty()) return *like[std::min(index, like.size() - 1)];
    Card card = tried;
    card.Effects = {};
    card.Name = name;
    return card;
  };
  return {made(0, kAlly), made(1, kEnemy)};
}

/// A player card as the game has it, with enough of what is paid with.
std::string PlayerLines(int side) {
  const Card* player = nullptr;
  for (const Card& card : State().Collection) {
    if (player == nullptr && !IsFree(card) && HasTrait(card, kPlayerTrait)) player = &card;
  }
  std::string lines = Joined(
      "player ", side, " ", Word(side == 1 ? "Your player card" : "The enemy's player card"), "\n");
  lines += player != nullptr ? TraitLines(*player)
                             : Joined("  trait PLAYER 1\n  trait HP ", kHitPoints, "\n");
  for (const std::string_view name : kResources) {
    if (player != nullptr && GetTrait(*player, name).Number() >= kEnough) continue;
    lines += Joined("  trait ", name, " ", kEnough, "\n");
  }
  return lines;
}

std::string CaptionLines(const Card& card) {
  std::string lines;
  for (const CaptionRow& row : CardRows::Of(card).Captions) {
    if (row.Trait.empty() || row.Caption.empty()) continue;
    lines += Joined("  caption ", Word(row.Trait), " ", Word(row.Caption), "\n");
  }
  return lines;
}

std::string CardLines(std::string_view word, const Card& card, int owner, std::string_view place) {
  return Joined("card ", word, " ", Word(card.Name), " owner ", owner, place, "\n",
                TraitLines(card), CaptionLines(card), EffectLines(card));
}

/// The trigger of an action as it fires: without what tells the editor more of it.
std::string FiredTrigger(const EffectRow& row) {
  constexpr std::string_view kMenu = "MENU";
  return std::string(FieldAt(row.Trigger, 1, ':') == kMenu ? FieldAt(row.Trigger, 2, ':')
                                                           : std::string_view(row.Trigger));
}

/// The number that an action of a row has when the card is laid out: rows without a script are no
/// actions.
int NumberOfAction(const CardRows& rows, int row) {
  int number = 0;
  for (int index = 1; index <= row; ++index) {
    if (!rows.Effects[index].Script.empty()) ++number;
  }
  return number;
}

std::string LayOut(const TrialRequest& request) {
  const Card& tried = request.Tried;
  const Companions others = CompanionsOf(tried);
  const std::string rules = FileNameOf(State().GameFileName);
  std::string text = Joined("# What ", OneLine(tried.Name), " does, tried in the card editor.\n");
  if (!ResolvePath(rules, 0).empty()) text += Joined("rules ", Word(rules), "\n");
  text += Joined("seed 1\n", PlayerLines(1), PlayerLines(2));
  const std::size_t cards = text.size();
  text += CardLines(kAlly, others.Ally, 1, "");
  text += CardLines(kEnemy, others.Enemy, 2, "");
  text += CardLines(kTried, tried, 1, request.Action == 0 ? " in hand" : "");
  if (text.find(kBrace) != std::string::npos) text.insert(cards, kBraceLine);
  return text;
}

std::string Act(const TrialRequest& request) {
  if (request.Action == 0) return Joined("pay ", kTried, "\nenter ", kTried, "\nflush\n");
  const CardRows rows = CardRows::Of(request.Tried);
  const int number = NumberOfAction(rows, request.Action);
  const EffectRow& row = rows.Effects[request.Action];
  std::string text;
  if (!request.Aim.empty()) text += Joined("aim ", kTried, " ", number, " ", request.Aim, "\n");
  if (FieldAt(row.Trigger, 1, ':') == "MENU") text += Joined("arm ", kTried, " ", number, "\n");
  return Joined(text, "fire ", kTried, " ", Word(FiredTrigger(row)), " action ", number,
                "\nflush\n");
}

using Traits = std::map<std::string, std::string>;
struct SeenCard {
  bool IsInPlay = false;
  Traits Has{};
  Traits Fields{};
};
/// The table and the player's hand at one moment, by the words of the scenario, or by name, and the
/// match under "".
using Moment = std::map<std::string, SeenCard>;

int CountOfActions(const Card& card) {
  int count = 0;
  for (const auto& effect : card.Effects) count += effect.Script.empty() ? 0 : 1;
  return count;
}

Moment Look(const Scene& scene) {
  std::map<std::int32_t, std::string> words;
  for (const auto& [word, handle] : scene.Handles) words[handle.GlobalID] = word;
  Moment moment;
  const auto see = [&](const Pile& cards, bool inPlay) {
    for (const Card& card : cards) {
      if (IsFree(card)) continue;
      const auto word = words.find(card.GlobalID);
      SeenCard& seen = moment[word == words.end() ? card.Name.Str() : word->second];
      seen.IsInPlay = inPlay;
      seen.Fields = {{"owner", Joined(int{card.Owner})},
                     {"name", card.Name.Str()},
                     {"actions", Joined(CountOfActions(card))}};
      for (const auto& trait : card.Traits) {
        if (trait.Name().empty()) continue;
        seen.Has.emplace(std::string(trait.Name()), RestDS(trait.AsText(), 2, ":"));
      }
    }
  };
  see(State().CardTable, true);
  see(State().Players[1].Hand, false);
  moment[""].Fields = {{"gameover", Joined(int{State().GameOver})}};
  return moment;
}

/// Changes of one card's traits. "" stands for a trait that is not there.
void AddTraitChanges(const std::string& card, const Traits& before, const Traits& after,
                     std::vector<TrialChange>& changes) {
  for (const auto& [name, value] : before) {
    const auto now = after.find(name);
    if (now == after.end()) {
      changes.push_back({card, name, value.empty() ? "there" : value, ""});
    } else if (now->second != value) {
      changes.push_back({card, name, value, now->second});
    }
  }
  for (const auto& [name, value] : after) {
    if (!before.contains(name))
      changes.push_back({card, name, "", value.empty() ? "there" : value});
  }
}

std::vector<TrialChange> Compare(const Moment& before, const Moment& after) {
  std::vector<TrialChange> changes;
  for (const auto& [card, seen] : before) {
    const auto now = after.find(card);
    if (now == after.end()) {
      changes.push_back({card, "", seen.IsInPlay ? "in play" : "in hand", "gone"});
      continue;
    }
    const bool isInPlay = now->second.IsInPlay;
    if (seen.IsInPlay != isInPlay) {
      changes.push_back(
          {card, "", isInPlay ? "in hand" : "in play", isInPlay ? "in play" : "in hand"});
    }
    AddTraitChanges(card, seen.Has, now->second.Has, changes);
    for (const auto& [field, value] : seen.Fields) {
      const std::string& present = now->second.Fields.at(field);
      if (present != value) changes.push_back({card, field, value, present, true});
    }
  }
  for (const auto& [card, seen] : after) {
    if (!before.contains(card)) changes.push_back({card, "", "", "in play"});
  }
  return changes;
}

/// The lines that hold the cards to what came of it.
std::string Expectations(const std::vector<TrialChange>& changes) {
  std::string text;
  for (const TrialChange& change : changes) {
    const std::string card = Word(change.Card);
    if (change.IsField) {
      text += Joined("expect ", change.Trait, " ", change.Card.empty() ? "" : card + " ",
                     Word(change.After), "\n");
      continue;
    }
    if (change.Trait.empty()) {
      text += Joined(change.After == "gone" ? "expect nocard " : "expect card ", card, "\n");
    } else if (change.After.empty()) {
      text += Joined("expect notrait ", card, " ", Word(change.Trait), "\n");
    } else if (change.After == "there") {
      text += Joined("expect trait ", card, " ", Word(change.Trait), "\n");
    } else {
      text += Joined("expect trait ", card, " ", Word(change.Trait), " ", Word(change.After), "\n");
    }
  }
  return text;
}

std::string PlainText(std::string_view html) {
  return WithoutTags(ReplacedCopy(html, "<br>", "\n"));
}

std::string Sentence(const TrialRequest& request, const std::optional<std::string>& payment,
                     const TrialResult& result, const ScenarioReport& report) {
  if (!report.Findings.empty()) return report.Findings.front().Text;
  std::string sentence;
  if (request.Action == 0 && payment) {
    sentence = *payment == "paid" ? "The price was paid." : "The price could not be paid.";
  }
  const bool isIdle = result.Changes.empty() && result.Said.empty();
  if (isIdle) sentence += sentence.empty() ? "Nothing happened." : "  Nothing else happened.";
  return sentence;
}

/// The session comes back at the end, and the folder that its files are kept to.
class OtherSession {
 public:
  OtherSession() : kept_(std::exchange(State(), Session{})) {}
  ~OtherSession() {
    State() = std::move(kept_);
    Desktop().Files().KeepTo(State().ProgramFolder);
  }
  OtherSession(const OtherSession&) = delete;
  OtherSession& operator=(const OtherSession&) = delete;

  FileSystem& Files() { return kept_.Desktop->Files(); }
  /// The user looks at the windows of this session while a scenario works. They ask their models
  /// only, which know nothing of the scenario's.
  void LendWindows(HeadlessPlatform& scenario) const {
    scenario.OnWork = [desktop = kept_.Desktop.get()] { desktop->ServeWindows(); };
  }
  const std::string& Folder() const { return kept_.ProgramFolder; }

 private:
  Session kept_;
};

}  // namespace

std::vector<TrialCard> TrialCards(const Card& tried) {
  const Companions others = CompanionsOf(tried);
  return {{std::string(kEnemy), Joined("Enemy: ", others.Enemy.Name)},
          {std::string(kAlly), Joined("Ally: ", others.Ally.Name)},
          {std::string(kTried), "This card"},
          {std::string(kPlayer2), "The enemy's player card"},
          {std::string(kPlayer1), "Your player card"}};
}

TrialResult TryCard(const TrialRequest& request) {
  const std::string layout = LayOut(request);
  TrialResult result;
  result.Scenario = Joined(layout, Act(request));
  const int laidOut = static_cast<int>(std::ranges::count(layout, '\n'));
  Moment before;
  Moment after;
  std::optional<std::string> payment;
  ScenarioReport report;
  {
    OtherSession other;
    ScenarioLibrary library(other.Files());
    const std::string path = Joined(other.Folder(), "/", kPath);
    library.Machine().Put(path, result.Scenario);
    RunScenarioFile(path, library, report, [&](const Scene& scene) {
      other.LendWindows(*scene.Desktop);
      if (scene.Last.Result) payment = std::string(*scene.Last.Result);
      if (scene.Line->Place.Line > laidOut) result.Said += PlainText(scene.Said());
      after = Look(scene);
      if (scene.Line->Place.Line <= laidOut) before = after;
    });
  }
  result.Changes = Compare(before, after);
  result.Outcome = Sentence(request, payment, result, report);
  if (payment) result.Scenario += Joined("# the price: ", *payment, "\n");
  result.Scenario += Expectations(result.Changes);
  return result;
}

}  // namespace brindlemoor
