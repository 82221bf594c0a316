// Keeping what became of actions.
#include "scenario/scene_trace.h"

#include <algorithm>
#include <vector>

#include "core/state.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kLines = 20000;  // of a report

bool AsksWhy(const std::vector<ScenarioLine>& lines) {
  return std::ranges::any_of(lines,
                             [](const ScenarioLine& line) { return line.Word->Word == "why"; });
}

}  // namespace

SceneTrace::SceneTrace(Scene& scene)
    : scene_(scene), trace_([this](const AskedAction& asked) { Note(asked); }) {}

void SceneTrace::Note(const AskedAction& asked) {
  last_[{asked.GlobalID, asked.Number}] = asked;
  ScenarioReport& report = scene_.Report;
  if (!report.Traces || asked.Acted || report.Trace.size() >= kLines) return;
  const ScenarioPlace place = scene_.Line->Place;
  report.Trace.push_back(Joined(ShownText(scene_.Text.Files[static_cast<std::size_t>(place.File)]),
                                ":", place.Line, ": did nothing: ", RefusalLine(asked)));
  if (report.Trace.size() == kLines) report.Trace.emplace_back("The rest was left out.");
}

const AskedAction* SceneTrace::LastOf(std::int32_t globalId, int action) const {
  const auto found = last_.find({globalId, action});
  return found != last_.end() ? &found->second : nullptr;
}

SceneTrace::Listening::Listening(Scene& scene) {
  if (scene.Trace != nullptr) State().Trace = &scene.Trace->trace_;
}

SceneTrace::Listening::~Listening() { State().Trace = nullptr; }

bool WantsTrace(const Scene& scene) {
  return scene.Report.Traces || AsksWhy(scene.Text.Head) || AsksWhy(scene.Case.Lines);
}

std::string WhyNot(const Scene& scene, std::int32_t globalId, const Card* card, int action) {
  const AskedAction* asked = scene.Trace->LastOf(globalId, action);
  if (asked != nullptr) return asked->Acted ? "it acted" : asked->Reason;
  if (card == nullptr || action == 0 || card->Effects[action].Script.empty()) {
    return "there is no such action";
  }
  const CardEffect& effect = card->Effects[action];
  return Joined("waits for its trigger: ", effect.Trigger, " has not come",
                effect.MenuState == kMenuAction ? ", and nobody chose it in its menu" : "",
                card->InPlay == 0 ? ", and the card is not in play" : "");
}

}  // namespace brindlemoor
