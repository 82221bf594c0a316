// Scene: the state of one scenario while it is carried out. WordReader: the words of its lines.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/records.h"
#include "platform/headless/headless_platform.h"
#include "scenario/card_places.h"
#include "scenario/machine_files.h"
#include "scenario/scenario_report.h"
#include "scenario/scenario_text.h"
#include "scenario/scene_trace.h"

namespace brindlemoor {

class ScenarioLibrary;

/// A card as a scenario knows it.
struct CardHandle {
  std::int32_t GlobalID = 0;
  const PlaceRow* Place = nullptr;  ///< where it was put: there it is looked for first
  int Side = 0;
};

/// What the last action came to.
struct ActionOutcome {
  std::optional<std::string_view> Result;  ///< word for how a run or a payment ended
  std::optional<int> Failures;             ///< of a trigger
  std::optional<double> Amount;
  std::optional<int> Picked;   ///< slot
  std::optional<int> Quality;  ///< of the picked target
};

struct Scene {
  ScenarioLibrary& Library;
  ScenarioReport& Report;
  const ScenarioText& Text;
  const ScenarioCase& Case;
  std::int64_t WorkLeft;             ///< steps that scripts of the whole file may still take
  const ScenarioRow* Row = nullptr;  ///< of the table, nullptr without one
  const ScenarioLine* Line = nullptr;

  std::shared_ptr<HeadlessPlatform> Desktop{};
  ScenarioFiles* Files = nullptr;
  std::map<std::string, CardHandle, std::less<>> Handles{};
  std::map<std::string, std::string, std::less<>> Texts{};  ///< of "let"
  Pile Aside{};                                             ///< cards that lie nowhere yet
  /// The words of the line, by index and number, that its reader took last.
  std::optional<std::pair<std::size_t, std::size_t>> Compared{};
  int Seed = 0;                  ///< of "random seeds", from 1; 0 without such a line
  std::string CardInHand{};      ///< name of the card that "trait" and the like speak of
  bool Changed = false;          ///< cards were laid out since the last action
  bool Pristine = true;          ///< nothing of the session was laid out yet
  bool OwnFiles = false;         ///< the scenario wrote files of its own
  bool Stopped = false;          ///< a line could not be carried out
  std::size_t FilledBytes = 0;   ///< put in for "{NAME}" so far
  std::size_t BannerBefore = 0;  ///< length of the banner when the last action began
  std::string DigestBefore{};
  ActionOutcome Last{};
  Card CopiedSource{};  ///< scratch copies of the last test run
  Card CopiedTarget{};
  std::string CopiedSourceName{};
  std::string CopiedTargetName{};
  std::unique_ptr<SceneTrace> Trace{};  ///< empty when nobody asks why actions do nothing

  /// A failed expectation; change is what would make the file expect what was there.
  void Fail(std::string text, std::optional<AcceptedText> change = std::nullopt);
  /// A line that can't be carried out; the scenario ends.
  void Stop(std::string text);
  /// True when the scripts of the file have done too much; the scenario is stopped then.
  bool WorkedTooMuch();
  /// What scripts have said in this turn, the one that the last action took included.
  std::string Banner() const;
  /// What the last action added to that.
  std::string Said() const;
};

/// A fresh session on files in memory over those of a folder.
void OpenScene(Scene& scene, const std::string& folder);
/// Before an action: cards get their trait actions and their entries in the table of triggers.
void BeginAction(Scene& scene);
/// What an end of a scenario tells: dialogs that came unasked or never.
void CloseScene(Scene& scene);
/// A text with its "{NAME}" filled in: cells of the row, named texts, "{gid:CARD}", "{slot:CARD}",
/// "{folder}".
std::string FilledIn(Scene& scene, const std::string& text);

/// Takes the words of a line one by one. What is missing or wrong stops the scenario.
class WordReader {
 public:
  /// Fills in all words behind the first ones.
  WordReader(Scene& scene, std::size_t first);

  bool AtEnd() const { return next_ == tokens_.size(); }
  /// Takes the next word if it is this one and not in quotes.
  bool TakeIf(std::string_view word);
  bool NextIsQuoted() const { return !AtEnd() && tokens_[next_].Quoted; }
  std::string_view Peek() const { return AtEnd() ? std::string_view() : tokens_[next_].Text; }
  /// True when the next word is a whole number, in quotes or not.
  bool NextIsNumber() const;
  /// The next word; what names it in the message when it is missing.
  std::string Take(std::string_view what);
  int TakeWhole(std::string_view what, int least, int most);
  double TakeNumber(std::string_view what);
  /// A living card; stops the scenario when there is none.
  PlacedCard TakeCard(std::string_view what = "a card");
  const PlaceRow* TakePlace();
  /// All that is left, joined by blanks.
  std::string TakeRest();
  /// False when the line can't be carried out, or words are left.
  bool Ends();
  bool Good() const { return !scene_.Stopped; }

 private:
  Scene& scene_;
  std::vector<ScenarioToken> tokens_;
  std::size_t first_;
  std::size_t next_ = 0;
};

}  // namespace brindlemoor
