// The lists of the pickers, the questions of a pick and the script that comes of them.
#include "editor/command_picker.h"

#include "core/desktop.h"
#include "core/replacing.h"
#include "core/strings.h"
#include "editor/word_choice.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void FillAnswersIn(PickerCommand& item) {
  ReplaceAll(item.DisplayText, "$AMT1", item.Answer1);
  ReplaceAll(item.DisplayText, "$AMT2", item.Answer2);
  // One after the other over the text as it stands: an answer that holds "AMT2" is filled as well.
  ReplaceAll(item.Template, "$AMT1", item.Answer1);
  ReplaceAll(item.Template, "$AMT2", item.Answer2);
  ReplaceAll(item.Template, "AMT1", item.Answer1);
  ReplaceAll(item.Template, "AMT2", item.Answer2);
}

/// The argument that stands in the place of a placeholder.
PickerArgument ArgumentAt(std::string_view scriptTemplate, std::string_view placeholder) {
  FieldWalker fields(scriptTemplate, ':');
  const Command* command = FindCommand(fields.Next());
  if (command == nullptr) return {};
  PickerArgument argument;
  FieldWalker names(ArgumentNames(*command), ' ');
  while (!fields.AtEnd() && !names.AtEnd()) {
    argument.Kind = KindOfArgument(names.Next());
    if (fields.Next() == placeholder) return argument;
    argument.InAction |= argument.Kind == ArgumentKind::kTrigger;
  }
  return {};
}

constexpr std::string_view kListTip =
    "Pick what happens at this place of the script.  If the command needs more, you are asked "
    "at once; pick it again to answer anew.";

}  // namespace

CommandPicker::CommandPicker(std::string name, int lists, std::span<const PickerRow> rows,
                             std::span<const PickerNote> notes)
    : Form(std::move(name)), rows_(rows), notes_(notes) {
  Caption = "Effect Picker";
  Width = 1180;
  Height = 160 + 40 * lists;  // room for sentences of two lines
  for (int index = 0; index < lists; ++index) MakeList(index);
  Label2.Caption =
      "Choose one or more effects from the dropdown lists below.  Effects occur in sequential "
      "order.";
  Label3.Caption =
      "Note: This menu does not include all possible commands.  For a complete list, consult the "
      "help files.";
  Command1.Caption = "Done";
  Command1.ToolTip =
      "Add the picked commands to the action script.  Closing the window instead adds nothing.";
  Command1.Click = [this] { Command1_Click(); };
  QueryClose = [this] { return Form_QueryClose(); };
  Arrange();
}

void CommandPicker::MakeList(int index) {
  auto& combo = Combo1.emplace_back(std::make_unique<ComboBox>(Joined("Combo1(", index, ")")));
  combo->Change = [this, index] { Combo1_Click(index); };
  Label1.push_back(std::make_unique<Label>(Joined("Label1(", index, ")")));
  auto& clear =
      ClearButton.emplace_back(std::make_unique<Button>(Joined("ClearButton(", index, ")")));
  clear->Caption = "Clear";
  clear->ToolTip = "Take the command of this list out again.";
  clear->Click = [this, index] { ClearButton_Click(index); };
  ShowChosen(index);
}

void CommandPicker::Arrange() {
  using Kind = Layout::Kind;
  const auto cell = [](Control& control, int stretch = 0) {
    return Layout{.Direction = Kind::kControl, .Leaf = &control, .Stretch = stretch};
  };
  Arrangement = {.Direction = Kind::kColumn, .Children = {cell(Label2)}};
  for (std::size_t index = 0; index < Combo1.size(); ++index) {
    Arrangement.Children.push_back({.Direction = Kind::kRow,
                                    .Children = {cell(*Combo1[index], 6), cell(*ClearButton[index]),
                                                 cell(*Label1[index], 5)}});
  }
  Arrangement.Children.push_back(Layout{.Stretch = 1});
  Arrangement.Children.push_back(
      {.Direction = Kind::kRow,
       .Children = {cell(Label3, 1),
                    {.Direction = Kind::kControl, .Leaf = &Command1, .Width = 120}}});
}

void CommandPicker::Form_Load() {
  InitCommands();
  LoadCombos();
}

void CommandPicker::InitCommands() {
  Commands.Reset(0);
  for (const PickerRow& row : rows_) {
    PickerCommand& command = Commands[Commands.Append({})];
    command.MenuText = row.MenuText;
    command.DisplayText = row.DisplayText;
    command.Template = row.Template;
    command.Prompt1 = row.Prompt1;
    command.Prompt2 = row.Prompt2;
  }
  for (const PickerNote& note : notes_) Commands[note.Row].Note = note.Text;
}

void CommandPicker::LoadCombos() {
  std::vector<std::string> items;
  std::vector<std::string> notes;
  for (const PickerCommand& command : Commands) {
    if (command.MenuText.empty()) continue;
    items.push_back(command.MenuText);
    notes.push_back(command.Note);
  }
  for (const auto& combo : Combo1) {
    combo->Items = items;
    combo->ItemToolTips = notes;
    combo->Text = "";
  }
}

void CommandPicker::BeginEmpty() {
  Done = false;
  Value.clear();
  for (int list = 0; list < static_cast<int>(Combo1.size()); ++list) ClearButton_Click(list);
}

void CommandPicker::ShowChosen(int index) {
  const auto list = static_cast<std::size_t>(index);
  const PickerCommand& item = Chosen[index + 1];
  Combo1[list]->Text = item.MenuText;
  Combo1[list]->ToolTip = item.Note.empty() ? std::string(kListTip) : item.Note;
  Label1[list]->Caption = item.DisplayText;
  Label1[list]->ToolTip = item.Note;
  ClearButton[list]->Enabled = !item.Template.empty();
}

void CommandPicker::Combo1_Click(int index) {
  const std::string picked = Combo1[static_cast<std::size_t>(index)]->Text;
  for (const PickerCommand& command : Commands) {
    if (command.MenuText.empty() || command.MenuText != picked) continue;
    PickerCommand item = command;
    if (AskAll(item)) Chosen[index + 1] = std::move(item);
    break;
  }
  ShowChosen(index);
}

void CommandPicker::ClearButton_Click(int index) {
  Chosen[index + 1] = {};
  ShowChosen(index);
}

bool CommandPicker::AskAll(PickerCommand& item) {
  const auto ask = [&](const std::string& prompt, std::string& answer, std::string_view place) {
    if (prompt.empty()) return true;
    auto given = Answer(prompt, ArgumentAt(item.Template, place));
    if (given) answer = std::move(*given);
    return given.has_value();
  };
  if (!ask(item.Prompt1, item.Answer1, "AMT1") || !ask(item.Prompt2, item.Answer2, "AMT2")) {
    return false;
  }
  FillAnswersIn(item);
  return true;
}

std::optional<std::string> CommandPicker::Answer(const std::string& prompt,
                                                 const PickerArgument& argument) {
  if (argument.Kind == ArgumentKind::kTrigger) return AskTrigger(prompt);
  if (argument.Kind == ArgumentKind::kTarget) return AskTarget(prompt, !argument.InAction);
  return Desktop().AskText(prompt);
}

void CommandPicker::Command1_Click() {
  Value.clear();
  for (const PickerCommand& item : Chosen) {
    if (!item.Template.empty()) Value += item.Template + ":";
  }
  Done = true;
  Desktop().HideForm(*this);
}

bool CommandPicker::Form_QueryClose() {
  Value.clear();
  Done = false;
  return false;
}

void CommandPicker::RunCommand(std::string_view command) {
  Value.clear();
  FieldWalker fields(command, '#');
  fields.Next();
  std::string_view field = fields.Next();
  while (!field.empty()) {
    // The field behind a word is its argument and is looked at as a word itself after it.
    const std::string_view next = fields.Next();
    if (field == "SET") Value += Joined(next, ":");
    if (field == "QUESTION") Value += Desktop().AskText(next).value_or("") + ":";
    field = next;
  }
}

}  // namespace brindlemoor
