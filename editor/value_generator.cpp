// The value generator: what each of its buttons asks and adds to the expression.
#include "editor/value_generator.h"

#include "core/desktop.h"
#include "editor/editor_forms.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kTrait = "Which trait?";
constexpr std::string_view kSides = "How many sides on each die?";

/// Words of an expression and the question whose answer stands behind them, "" for none.
struct Piece {
  std::string_view Words{};
  std::string_view Prompt{};
};

/// A button that adds a part to the expression.
struct Builder {
  std::string_view Caption;
  std::string_view ToolTip;
  Piece First;
  Piece Second{};
};

constexpr std::array<Builder, 8> kBuilders = {{
    {"Roll Dice equal to one of my traits",
     "Rolls as many dice as the trait of the acting card says.",
     {"SRCTRAIT/", kTrait},
     {"/RTRAITDie", kSides}},
    {"Gain an amount equal to one of my traits",
     "Adds what the trait of the acting card says.",
     {"SRCTRAIT/", kTrait},
     {"/TRAITPLUS1"}},
    {"Roll Dice equal to one of the target card's traits",
     "Rolls as many dice as the trait of the target says.",
     {"TARGTRAIT/", kTrait},
     {"/RTRAITDie", kSides}},
    {"Gain an amount equal to one of the target card's traits",
     "Adds what the trait of the target says.",
     {"TARGTRAIT/", kTrait},
     {"/TRAITPLUS1"}},
    {"Roll Dice",
     "Rolls a number of dice that never changes.",
     {"R", "How many dice?"},
     {"Die", kSides}},
    {"Return my Global ID", "The number that names the acting card alone.", {"MYGID"}},
    {"Return target's Global ID", "The number that names the target alone.", {"TARGETGID"}},
    {"Add an arbitrary amount", "Adds a number that you type.", {"", "How much?"}},
}};

/// Nothing when the question was cancelled.
std::optional<std::string> Answered(const Piece& piece) {
  if (piece.Prompt.empty()) return std::string(piece.Words);
  const auto answer = Desktop().AskText(piece.Prompt);
  if (!answer) return std::nullopt;
  return Joined(piece.Words, *answer);
}

void AddPart(TextBox& expression, const Builder& builder) {
  const auto first = Answered(builder.First);
  const auto second = first ? Answered(builder.Second) : std::nullopt;
  if (!second) return;
  const std::string& old = expression.Text.Get();
  expression.Text = Joined(old, old.empty() ? "" : "/", *first, *second);
}

Layout Arrange(ValGen& form) {
  using Kind = Layout::Kind;
  const auto cell = [](Control& control) {
    return Layout{.Direction = Kind::kControl, .Leaf = &control, .Stretch = 1};
  };
  const auto row = [&](Control& left, Control& right) {
    return Layout{.Direction = Kind::kRow, .Children = {cell(left), cell(right)}};
  };
  // What concerns the acting card stands at the left, the target at the right.
  auto& traits = form.Command1;
  return {
      .Direction = Kind::kColumn,
      .Children = {
          {.Direction = Kind::kControl, .Leaf = &form.Label1},
          {.Direction = Kind::kControl, .Leaf = &form.Text1},
          row(*traits[0], *traits[2]),
          row(*traits[1], *traits[3]),
          row(form.Command2, form.Command3),
          row(*traits[4], form.Command4),
          {.Direction = Kind::kRow,
           .Children = {Layout{.Stretch = 1},
                        {.Direction = Kind::kControl, .Leaf = &form.Command5, .Width = 120},
                        {.Direction = Kind::kControl, .Leaf = &form.CancelButton, .Width = 120}}},
      }};
}

}  // namespace

ValGen::ValGen() : Form("ValGen") {
  Caption = "Value Generator";
  Width = 860;
  Text1.Spoken = "Value";
  Text1.ToolTip =
      "The value so far.  The buttons add behind it; you can also type here, or clear it to begin "
      "anew.";
  for (std::size_t index = 0; index < Command1.size(); ++index) {
    Command1[index] = std::make_unique<Button>(Joined("Command1(", index, ")"));
  }
  const std::array<Button*, kBuilders.size()> buttons = {
      Command1[0].get(), Command1[1].get(), Command1[2].get(), Command1[3].get(),
      Command1[4].get(), &Command2,         &Command3,         &Command4};
  for (std::size_t index = 0; index < buttons.size(); ++index) {
    const Builder& builder = kBuilders[index];
    buttons[index]->Caption = std::string(builder.Caption);
    buttons[index]->ToolTip = std::string(builder.ToolTip);
    buttons[index]->Click = [this, &builder] { AddPart(Text1, builder); };
  }
  Command5.Caption = "DONE";
  Command5.ToolTip = "Take the value as it stands in the box.";
  Command5.Click = [this] {
    Done = true;
    Desktop().HideForm(*this);
  };
  CancelButton.Caption = "Cancel";
  CancelButton.ToolTip = "Leave everything as it was before the question.";
  CancelButton.Cancel = true;
  CancelButton.Click = [this] { Desktop().HideForm(*this); };
  Arrangement = Arrange(*this);
}

std::optional<std::string> AskValue(std::string_view prompt) {
  ValGen& form = TheValGen();
  form.Label1.Caption = std::string(prompt);
  form.Text1.Text = "";
  form.Done = false;
  Desktop().ShowForm(form, true);
  return form.Done ? std::optional(form.Text1.Text.Get()) : std::nullopt;
}

}  // namespace brindlemoor
