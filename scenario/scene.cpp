// One scenario while it is carried out.
#include "scenario/scene.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "scenario/scenario_library.h"
#include "scenario/scenario_words.h"
#include "scenario/state_digest.h"
#include "script/card_setup.h"
#include "script/trait_actions.h"
#include "text/text.h"
#include "ui/window_session.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kFilledBytes = 1U << 20;      // of one text
constexpr std::size_t kAllFilledBytes = 64U << 20;  // of a scenario

ScenarioFinding FindingAt(const Scene& scene, bool unreadable, std::string text) {
  const ScenarioPlace place = scene.Line != nullptr ? scene.Line->Place : scene.Case.Place;
  return {unreadable,      scene.Text.Files[static_cast<std::size_t>(place.File)],
          place.Line,      std::move(text),
          scene.Case.Name, scene.Row != nullptr ? scene.Row->Place.Line : 0,
          scene.Seed};
}

/// True for the name of a text, or of a number of a card. Other braces are plain characters.
bool IsName(std::string_view text) {
  for (const std::string_view number : {std::string_view("gid:"), std::string_view("slot:")}) {
    if (text.starts_with(number)) return true;
  }
  return IsScenarioName(text);
}

/// What "{NAME}" stands for; nothing for an unknown name.
std::optional<std::string> FilledName(Scene& scene, std::string_view name) {
  if (scene.Row != nullptr) {
    const auto& columns = scene.Case.Columns;
    const auto column = std::ranges::find(columns, name);
    if (column != columns.end()) {
      // A cell may name cards and texts, but no other cell.
      const ScenarioRow* row = std::exchange(scene.Row, nullptr);
      std::string cell =
          FilledIn(scene, row->Cells[static_cast<std::size_t>(column - columns.begin())]);
      scene.Row = row;
      return cell;
    }
  }
  if (const auto text = scene.Texts.find(name); text != scene.Texts.end()) return text->second;
  if (name == "folder") return State().ProgramFolder;
  const bool wantsId = name.starts_with("gid:");
  if (!wantsId && !name.starts_with("slot:")) return std::nullopt;
  const PlacedCard card = FindScenarioCard(scene, name.substr(name.find(':') + 1));
  if (card.Record == nullptr) return std::nullopt;
  return Joined(wantsId ? card.Record->GlobalID : std::int32_t{card.Record->Slot});
}

}  // namespace

void Scene::Fail(std::string text, std::optional<AcceptedText> change) {
  ScenarioFinding finding = FindingAt(*this, false, std::move(text));
  finding.Accepted = std::move(change);
  Report.Add(std::move(finding));
}

void Scene::Stop(std::string text) {
  if (!Stopped) Report.Add(FindingAt(*this, true, std::move(text)));
  Stopped = true;
}

bool Scene::WorkedTooMuch() {
  if (State().Work.Total <= WorkLeft) return false;
  Stop("The scripts of this file's scenarios take too many steps.");
  return true;
}

std::string Scene::Banner() const { return State().LastTurn.Said + State().PhaseBanner; }

std::string Scene::Said() const {
  const std::string banner = Banner();
  return banner.size() < BannerBefore ? banner : banner.substr(BannerBefore);
}

void OpenScene(Scene& scene, const std::string& folder) {
  auto files = std::make_unique<ScenarioFiles>(scene.Library.Machine());
  scene.Files = files.get();
  scene.Desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  scene.Desktop->BlanksForLineEnds = true;
  OpenWindowSession(scene.Desktop, folder);
  if (WantsTrace(scene)) scene.Trace = std::make_unique<SceneTrace>(scene);
  const OwnSequence sequence;
  PrepareTables();
  InitCard(State().RulesCard, 1, 1);
  State().RulesCard.Name = "RulesCard";
}

void BeginAction(Scene& scene) {
  scene.Pristine = false;
  if (std::exchange(scene.Changed, false)) {
    ReapplyTraitActions(0);
    for (int side = 1; side <= 3; ++side) {
      for (Card& card : State().Players[side].Hand) ApplyTraitActions(card, "");
    }
    for (Card& card : scene.Aside) ApplyTraitActions(card, "");
    State().HpReport = 0;
  }
  State().LastTurn.Said.clear();
  scene.BannerBefore = State().PhaseBanner.size();
  scene.Last = {};
  if (scene.Line->Watched) scene.DigestBefore = StateDigest();
}

void CloseScene(Scene& scene) {
  scene.Line = nullptr;
  HeadlessPlatform& desktop = *scene.Desktop;
  for (const std::string& dialog : desktop.UnexpectedDialogs) {
    scene.Fail(Joined("nobody expected the ", ShownText(dialog)));
  }
  for (const std::string& message : desktop.ExpectedMessages) {
    scene.Fail(Joined("the message never came: ", ShownText(message)));
  }
  const std::size_t left = desktop.YesNoAnswers.size() + desktop.TextAnswers.size() +
                           desktop.FileAnswers.size() + desktop.FolderAnswers.size() +
                           desktop.ColorAnswers.size() + desktop.ModalForms.size();
  if (left > 0) scene.Fail(Joined("answers that no dialog asked for: ", left));
}

std::string FilledIn(Scene& scene, const std::string& text) {
  std::string filled;
  std::string_view rest = text;
  while (true) {
    const std::size_t open = rest.find('{');
    filled += rest.substr(0, open);
    if (open == std::string_view::npos) return filled;
    rest.remove_prefix(open);
    const std::size_t close = rest.find('}');
    const std::string_view name =
        close == std::string_view::npos ? std::string_view() : rest.substr(1, close - 1);
    if (!IsName(name)) {
      filled += '{';
      rest.remove_prefix(1);
      continue;
    }
    const auto value = FilledName(scene, name);
    if (!value) {
      scene.Stop(Joined("\"{", ShownText(name), "}\" stands for nothing."));
      return filled;
    }
    filled += *value;
    rest.remove_prefix(close + 1);
    scene.FilledBytes += value->size();
    if (filled.size() > kFilledBytes || scene.FilledBytes > kAllFilledBytes) {
      scene.Stop("A text grows too long.");
      return "";
    }
  }
}

WordReader::WordReader(Scene& scene, std::size_t first)
    : scene_(scene), first_(std::min(first, scene.Line->Tokens.size())) {
  const auto& tokens = scene.Line->Tokens;
  tokens_.assign(tokens.begin() + static_cast<std::ptrdiff_t>(first_), tokens.end());
  scene.Compared.reset();
  for (ScenarioToken& token : tokens_) {
    if (token.Text.find('{') != std::string::npos) token.Text = FilledIn(scene, token.Text);
  }
}

bool WordReader::TakeIf(std::string_view word) {
  if (AtEnd() || NextIsQuoted() || tokens_[next_].Text != word) return false;
  ++next_;
  return true;
}

bool WordReader::NextIsNumber() const {
  const std::string_view text = Peek();
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string WordReader::Take(std::string_view what) {
  if (!AtEnd()) {
    scene_.Compared = {first_ + next_, 1};
    return tokens_[next_++].Text;
  }
  scene_.Stop(Joined(what, " is missing. Usage: ", scene_.Line->Word->Usage));
  return "";
}

int WordReader::TakeWhole(std::string_view what, int least, int most) {
  const std::string text = Take(what);
  int number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure == std::errc() && end == text.data() + text.size() && number >= least &&
      number <= most) {
    return number;
  }
  scene_.Stop(Joined("\"", ShownText(text), "\" is no whole number from ", least, " to ", most,
                     " for ", what, "."));
  return least;
}

double WordReader::TakeNumber(std::string_view what) {
  const std::string text = Take(what);
  double number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = failure == std::errc() && end == text.data() + text.size() &&
                        number - number == 0;  // neither infinite nor undefined
  if (!isNumber) scene_.Stop(Joined("\"", ShownText(text), "\" is no number for ", what, "."));
  return isNumber ? number : 0;
}

PlacedCard WordReader::TakeCard(std::string_view what) {
  const std::string reference = Take(what);
  const PlacedCard card = FindScenarioCard(scene_, reference);
  if (card.Record == nullptr) scene_.Stop(Joined("There is no card ", ShownText(reference), "."));
  return card;
}

const PlaceRow* WordReader::TakePlace() {
  const std::string word = Take("a place");
  const PlaceRow* place = FindPlace(word);
  if (place == nullptr) scene_.Stop(Joined("\"", ShownText(word), "\" is no place."));
  return place;
}

std::string WordReader::TakeRest() {
  scene_.Compared = {first_ + next_, tokens_.size() - next_};
  std::string rest;
  for (; !AtEnd(); ++next_) {
    rest += Joined(rest.empty() || tokens_[next_].Text.empty() ? "" : " ", tokens_[next_].Text);
  }
  return rest;
}

bool WordReader::Ends() {
  if (!AtEnd()) {
    scene_.Stop(
        Joined("\"", ShownText(Peek()), "\" is too much here. Usage: ", scene_.Line->Word->Usage));
  }
  return Good();
}

}  // namespace brindlemoor
