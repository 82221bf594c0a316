// The display commands of the script language: messages, colours and the frame of a run's text.
#include "core/state.h"
#include "language/traits.h"
#include "pages/battlefield.h"
#include "pages/card_pages.h"
#include "pages/messages.h"
#include "script/command_table.h"
#include "script/run.h"

namespace brindlemoor {

namespace {

/// How the four message commands differ.
struct Message {
  bool Pictures = false;       ///< the run's pictures may stand in the message
  bool TargetPicture = false;  ///< the target's picture stands before it, too
  bool Caption = false;        ///< a trait action's own wording replaces it
  bool Once = false;           ///< at most one in a firing, and the caller may replace it
};
constexpr Message kEcho{.Pictures = true, .TargetPicture = true, .Caption = true};
constexpr Message kEchoLocked{.Pictures = true, .TargetPicture = true};
constexpr Message kEchoMinor{};
constexpr Message kEchoOnce{.Pictures = true, .Caption = true, .Once = true};

/// The message before its expansion.
std::string Wording(const Run& run, const Message& kind) {
  std::string message(run.Argument(1));
  if (kind.Caption) {
    const std::string_view trait = run.Fields.DeclaredTrait("TRAITEFFECT");
    std::string caption = trait != "NONE" ? TraitCaptionText(run.Source, trait) : std::string();
    if (!caption.empty()) message = std::move(caption);
  }
  if (kind.Once && !run.Options.EchoOverride.empty()) message = run.Options.EchoOverride;
  return message;
}

/// The sentence about a change of HP that is due, which is then no longer so.
std::string HpSentence(Run& run) {
  const int report = std::exchange(State().HpReport, std::uint8_t{0});
  if (report == 1) {
    return Joined("<br>(", ColoredName(run.Target), " has ", HPText(run.Target, 0),
                  "<font color=#FFFF00> HP</font> left.)<br>");
  }
  if (report == 2) {
    return Joined("<br>(", ColoredName(run.Source), " now has ", HPText(run.Source, 0),
                  "<font color=#FFFF00> HP</font>.)<br>");
  }
  return {};
}

/// PERMANENT runs its script on the stored card without a word: the card in play tells it.
bool IsSilent(const Run& run) { return run.Options.Nested == 1 && run.Options.EchoOverride == " "; }

template <const Message& kind>
Step ShowMessage(Run& run) {
  if (IsSilent(run)) return Step::kNext;
  Session& session = State();
  run.EchoFailText.clear();
  if (kind.Once) {
    if (run.Options.Nested == 1) session.EchoedOnce = 1;
    if (session.EchoedOnce != 0) return Step::kNext;
  }
  run.ShowRun = true;
  std::string message = Wording(run, kind);
  const bool isFilled = kind.Pictures ? ExpandShownMessage(run.Source, run.Target, message,
                                                           run.SourcePicture, run.TargetPicture)
                                      : ExpandShownMessage(run.Source, run.Target, message, "", "");
  if (!isFilled) {
    session.HpReport = 0;
    if (kind.Once) session.EchoedOnce = 1;
    return Step::kNext;
  }
  if (kind.Pictures) run.Show(run.SourcePicture);
  if (kind.TargetPicture) run.Show(run.TargetPicture);
  message += HpSentence(run);
  message += "<br><br>";
  run.Show(message);
  if (kind.Once) session.EchoedOnce = 1;
  return Step::kNext;
}

Step EchoFail(Run& run) {
  if (IsSilent(run)) return Step::kNext;
  run.ShowRun = true;
  run.EchoFailText = run.Argument(1);
  if (!ExpandShownMessage(run.Source, run.Target, run.EchoFailText, "", "")) return Step::kNext;
  run.EchoFailText += "<br><br>";
  return Step::kNext;
}

Step PassOver(Run&) { return Step::kNext; }

Step ReverseColor(Run& run) {
  run.ColorState = run.ColorState == 0 ? 1 : 0;
  return Step::kNext;
}
Step TargetColor(Run& run) {
  run.ColorState = 2;
  return Step::kNext;
}
Step FrameColor(Run& run) {
  run.FrameColor = Joined(" bgcolor = ", run.Argument(1));
  return Step::kNext;
}

constexpr Command kCommands[] = {
    {"ECHO", 1, false, InTest::kSkip, ShowMessage<kEcho>,
     "MESSAGE | says MESSAGE; both cards' pictures stand with it", true, CommandRole::kShows},
    {"ECHOLOCKED", 1, false, InTest::kSkip, ShowMessage<kEchoLocked>,
     "MESSAGE | says MESSAGE; as ECHO, but a card's own wording does not replace it", true,
     CommandRole::kShows},
    {"ECHOMINOR", 1, false, InTest::kSkip, ShowMessage<kEchoMinor>,
     "MESSAGE | says MESSAGE; no pictures stand with it", false, CommandRole::kShows},
    {"ECHOONCE", 1, false, InTest::kSkip, ShowMessage<kEchoOnce>,
     "MESSAGE | says MESSAGE once, however many targets the action has", true, CommandRole::kShows},
    {"ECHOFAIL", 1, false, InTest::kRuns, EchoFail,
     "MESSAGE | says MESSAGE if the action fails before its next message", false,
     CommandRole::kShows},
    {"FAILECHO", 1, false, InTest::kRuns, EchoFail, "MESSAGE | the same as ECHOFAIL", false,
     CommandRole::kShows},
    {"ECHOTRAIT", 1, false, InTest::kSkip, PassOver, "TRAIT | does nothing", false,
     CommandRole::kShows},
    {"REVERSECOLOR", 0, false, InTest::kRuns, ReverseColor, "| writes in the other side's colours",
     false, CommandRole::kShows},
    {"TARGETCOLOR", 0, false, InTest::kRuns, TargetColor, "| writes in the target's colours", false,
     CommandRole::kShows},
    {"FRAMECOLOR", 1, false, InTest::kRuns, FrameColor,
     "COLOR | makes COLOR the background of the text", false, CommandRole::kShows},
};

}  // namespace

std::span<const Command> DisplayCommands() { return kCommands; }

}  // namespace brindlemoor
