// Expectations on what an action came to, what the pages say, and the session.
#include <algorithm>
#include <array>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "scenario/expectation.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "scenario/state_digest.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::array<std::string_view, 6> kResults = {"clean",  "mixed", "nothing",
                                                      "failed", "paid",  "refused"};

void ResultIs(Scene& scene, WordReader& line) {
  const std::string expected = line.Take("a result");
  if (!line.Ends()) return;
  if (std::ranges::find(kResults, expected) == kResults.end()) {
    scene.Stop(Joined("\"", ShownText(expected), "\" is no result."));
  } else if (!scene.Last.Result) {
    scene.Stop("The last action has no result.");
  } else {
    const std::string& reason = State().FailReason;
    ExpectEqual(scene, reason.empty() ? "result" : Joined("result (", reason, ")"), expected,
                *scene.Last.Result);
  }
}

template <class Number>
void ExpectNumber(Scene& scene, WordReader& line, std::string_view what,
                  const std::optional<Number>& found) {
  const std::string expected = line.Take("a number");
  if (!line.Ends()) return;
  if (!found) {
    scene.Stop(Joined("The last action has no ", what, "."));
    return;
  }
  ExpectEqual(scene, what, expected, NumberText(static_cast<double>(*found)));
}

void PickedIs(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card, or none,");
  if (!line.Ends()) return;
  if (!scene.Last.Picked) {
    scene.Stop("The last action picked no target.");
    return;
  }
  const int slot = *scene.Last.Picked;
  const PlacedCard expected = FindScenarioCard(scene, reference);
  const int expectedSlot = expected.Record != nullptr ? expected.Record->Slot : 0;
  const bool known = reference == "none" || expected.Record != nullptr;
  const Pile& table = State().CardTable;
  ExpectTrue(scene, known && slot == expectedSlot, Joined("picked target is ", reference),
             Joined("it was ", table.Holds(slot) ? table[slot].Name.Str() : std::string("none")));
}

void PageIs(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a file");
  if (!line.Good()) return;
  const auto bytes = Desktop().Files().Read(InProgramFolder(name));
  if (bytes) {
    ExpectText(scene, line, name, *bytes);
  } else {
    ExpectTrue(scene, false, name, "there is no such file");
  }
}

void ViewIs(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a view");
  if (line.Good()) ExpectText(scene, line, name, scene.Desktop->Pages[name]);
}

void FileIsNot(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a file");
  if (!line.Ends()) return;
  ExpectTrue(scene, !Desktop().Files().Exists(InProgramFolder(name)), Joined("no file ", name),
             "it is there");
}

void MessagesAre(Scene& scene, WordReader& line) {
  std::string all;
  for (const std::string& message : scene.Desktop->Messages) {
    all += Joined(all.empty() ? "" : "\n", message);
  }
  std::erase(all, '\r');
  std::ranges::replace(all, '\n', ' ');
  ExpectText(scene, line, "messages", all);
}

void ProblemsAre(Scene& scene, WordReader& line) {
  std::string all;
  for (const Problem& problem : State().Problems) {
    all += Joined(all.empty() ? "" : "\n", FileNameOf(problem.File), ":", problem.Line, ": ",
                  problem.Message);
  }
  ExpectText(scene, line, "problems", all);
}

void NothingChanged(Scene& scene, WordReader& line) {
  if (!line.Ends()) return;
  if (scene.DigestBefore.empty()) {
    scene.Stop("Nothing was done before.");
    return;
  }
  const std::string difference = FirstDifference(scene.DigestBefore, StateDigest());
  ExpectTrue(scene, difference.empty(), "unchanged", difference);
}

void SessionValueIs(Scene& scene, WordReader& line) {
  const std::string& word = scene.Line->Tokens[1].Text;
  const std::string expected = line.Take("a value");
  if (line.Ends()) ExpectEqual(scene, word, expected, NumberText(FindSessionValue(word)->Read()));
}

using Line = WordReader;

// clang-format off
constexpr std::array<ScenarioWord, 16> kExpectations = {{
    {"result", WordKind::kExpect, ResultIs, "expect result clean | mixed | nothing | failed | paid | refused", "how the last run ended, or whether the price could be paid"},
    {"failures", WordKind::kExpect, [](Scene& s, Line& line) { ExpectNumber(s, line, "failures", s.Last.Failures); }, "expect failures N", "how many actions failed when the last trigger fired"},
    {"amount", WordKind::kExpect, [](Scene& s, Line& line) { ExpectNumber(s, line, "amount", s.Last.Amount); }, "expect amount N", "the incoming value as the last run left it"},
    {"picked", WordKind::kExpect, PickedIs, "expect picked CARD | none", "the target that the engine chose"},
    {"quality", WordKind::kExpect, [](Scene& s, Line& line) { ExpectNumber(s, line, "quality", s.Last.Quality); }, "expect quality N", "how good it is: 0 none, 1 in part, 2 without a failure"},
    {"fail", WordKind::kExpect, [](Scene& s, Line& line) { ExpectText(s, line, "fail", State().FailReason); }, "expect fail TEXT", "why the last requirement failed"},
    {"said", WordKind::kExpect, [](Scene& s, Line& line) { ExpectText(s, line, "said", s.Said()); }, "expect said TEXT", "what the last action added to the report"},
    {"banner", WordKind::kExpect, [](Scene& s, Line& line) { ExpectText(s, line, "banner", s.Banner()); }, "expect banner TEXT", "all that scripts said this turn; behind a turn, what they said in it"},
    {"page", WordKind::kExpect, PageIs, "expect page FILE TEXT", "a page, or another file of the program's folder"},
    {"nopage", WordKind::kExpect, FileIsNot, "expect nopage FILE", "there is no such file"},
    {"view", WordKind::kExpect, ViewIs, "expect view VIEW TEXT", "what WB, InPlayWB or CardDescWB show"},
    {"messages", WordKind::kExpect, MessagesAre, "expect messages TEXT", "the message boxes that were shown, one behind the other; line ends are blanks"},
    {"problems", WordKind::kExpect, ProblemsAre, "expect problems TEXT", "what was wrong in card files: \"FILE:LINE: TEXT\""},
    {"newaction", WordKind::kExpect, [](Scene& s, Line& line) { ExpectText(s, line, "newaction", State().PendingEffectText.View()); }, "expect newaction TEXT", "the action that an ADDEFFECT leaves for later"},
    {"unchanged", WordKind::kExpect, NothingChanged, "expect unchanged", "the last action changed nothing in the match"},
    {"VALUE", WordKind::kExpect, SessionValueIs, "expect VALUE N", "a value of the session, see the values below"},
}};
// clang-format on

}  // namespace

std::span<const ScenarioWord> PageExpectations() { return kExpectations; }

}  // namespace brindlemoor
