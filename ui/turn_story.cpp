// The story of a turn as plain text.
#include "ui/turn_story.h"

#include <utility>
#include <vector>

#include "core/state.h"
#include "game/plans.h"
#include "text/joined.h"
#include "text/one_line.h"
#include "ui/forms.h"
#include "ui/match_end.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostNews = 12;  // of a side
constexpr std::string_view kRefused = "Came to nothing: ";
constexpr std::string_view kYours = "Your side: ";
constexpr std::string_view kTheirs = "The other side: ";

std::string WordsOf(const CardNews& news) {
  const OneLine name(news.Name.View());
  switch (news.Fate) {
    case CardFate::kHitPoints:
      return Joined(name, news.Change > 0 ? " +" : " ", news.Change, " HP (", news.Left, " left)");
    case CardFate::kCame:
      return Joined(name, " came");
    case CardFate::kDied:
      return Joined(name, " died");
    case CardFate::kWent:
      return Joined(name, " went");
    case CardFate::kChangedSides:
      return Joined(name, " changed sides");
    case CardFate::kDrawn:
      return Joined("you drew ", name);
  }
  return "";
}

std::string TokensText(std::int32_t tokens) {
  return tokens < 0 ? Joined(-tokens, " tokens spent") : Joined(tokens, " tokens earned");
}

/// "" when nothing happened there.
std::string LineOf(std::string_view title, std::vector<std::string> news) {
  if (news.empty()) return "";
  const std::size_t more = news.size() > kMostNews ? news.size() - kMostNews : 0;
  news.resize(news.size() - more);
  std::string line(title);
  for (std::size_t index = 0; index < news.size(); ++index) {
    line += Joined(index == 0 ? "" : ", ", news[index]);
  }
  if (more > 0) line += Joined(" and ", more, " more");
  return line + ".\n";
}

std::string RefusedLine(const TurnRecord& turn) {
  std::string line;
  for (const RefusedPlan& refusal : turn.Refusals) {
    line += Joined(line.empty() ? kRefused : std::string_view("; "), refusal.Name);
    if (refusal.Reason.empty()) continue;
    std::string_view reason = refusal.Reason;
    if (reason.ends_with('.')) reason.remove_suffix(1);
    line += Joined(" (", reason, ")");
  }
  return line.empty() ? line : line + ".\n";
}

/// The words that begin the lines, in colours.
std::vector<TextRun> TitlesOf(const std::string& text) {
  std::vector<TextRun> runs;
  for (const std::string_view title : {kRefused, kYours, kTheirs}) {
    const std::size_t at = text.starts_with(title) ? 0 : text.find(Joined("\n", title));
    if (at == std::string::npos) continue;
    const TextStyle style = title == kRefused ? TextStyle::kUnknown : TextStyle::kCommand;
    runs.push_back({at == 0 ? 0 : at + 1, title.size(), style, ""});
  }
  return runs;
}

}  // namespace

TurnStory::TurnStory() {
  Lines.MultiLine = true;
  Lines.ReadOnly = true;
  Lines.Spoken = "What the last turn brought";
  Lines.Visible = false;
  Lines.Runs = TitlesOf;
}

void TurnStory::Update(bool hasPlace) {
  const bool plays = IsAtTable();
  std::string earlier = TheMainWindow().History.WhatIsShown();
  Lines.Text = !plays ? std::string() : earlier.empty() ? StoryOfTurn() : std::move(earlier);
  Lines.Visible = plays && hasPlace;
}

namespace {

/// In a store or at a starter deck it tells how one leaves, and counts what one takes home.
std::string StoryOfVisit() {
  const TurnRecord& turn = State().LastTurn;
  // First what is needed in any case: on a low screen the rest may have to be scrolled to.
  std::string story =
      Joined(RefusedLine(turn), "File, Quit / New Game leads back to the list of games.");
  if (turn.Tokens != 0) story += Joined("\n", TokensText(turn.Tokens), ".");
  if (const std::string cards = NewCardsText(); !cards.empty()) story += "\n" + cards;
  return story;
}

}  // namespace

std::string StoryOfTurn() {
  if (State().Match.IsVisit) return StoryOfVisit();
  const TurnRecord& turn = State().LastTurn;
  std::vector<std::string> yours;
  std::vector<std::string> theirs;
  for (const CardNews& news : turn.News) (news.Side == 1 ? yours : theirs).push_back(WordsOf(news));
  if (turn.Tokens != 0) yours.push_back(TokensText(turn.Tokens));
  std::string story = RefusedLine(turn) + LineOf(kYours, yours) + LineOf(kTheirs, theirs);
  if (story.empty()) return "Nothing has changed on the table.";
  story.pop_back();
  return story;
}

}  // namespace brindlemoor
