// The lists of the pickers, the questions of a pick and the script that comes of them.
#include "editor/command_picker.h"

#include "core/desktop.h"
#include "core/replacing.h"
#include "core/strings.h"
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

std::string AskInBox(std::string_view prompt) { return Desktop().AskText(prompt).value_or(""); }

}  // namespace

CommandPicker::CommandPicker(std::string name, int lists, std::span<const PickerRow> rows)
    : Form(std::move(name)), rows_(rows) {
  Caption = "Effect Picker";
  Width = 1180;
  Height = 160 + 40 * lists;  // room for sentences of two lines
  for (int index = 0; index < lists; ++index) {
    auto& combo = Combo1.emplace_back(std::make_unique<ComboBox>(Joined("Combo1(", index, ")")));
    combo->ToolTip =
        "Pick what happens at this place of the script.  If the command needs more, you are asked "
        "at once; pick it again to answer anew.";
    combo->Change = [this, index] { Combo1_Click(index); };
    Label1.push_back(std::make_unique<Label>(Joined("Label1(", index, ")")));
  }
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

void CommandPicker::Arrange() {
  using Kind = Layout::Kind;
  const auto cell = [](Control& control, int stretch = 0) {
    return Layout{.Direction = Kind::kControl, .Leaf = &control, .Stretch = stretch};
  };
  Arrangement = {.Direction = Kind::kColumn, .Children = {cell(Label2)}};
  for (std::size_t index = 0; index < Combo1.size(); ++index) {
    Arrangement.Children.push_back(
        {.Direction = Kind::kRow, .Children = {cell(*Combo1[index], 6), cell(*Label1[index], 5)}});
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
    PickerCommand command;
    command.MenuText = row.MenuText;
    command.DisplayText = row.DisplayText;
    command.Template = row.Template;
    command.Prompt1 = row.Prompt1;
    command.Prompt2 = row.Prompt2;
    Commands.Append(std::move(command));
  }
}

void CommandPicker::LoadCombos() {
  std::vector<std::string> items;
  for (const PickerCommand& command : Commands) {
    if (!command.MenuText.empty()) items.push_back(command.MenuText);
  }
  for (const auto& combo : Combo1) {
    combo->Items = items;
    combo->Text = "";
  }
}

void CommandPicker::Combo1_Click(int index) {
  const auto list = static_cast<std::size_t>(index);
  const std::string picked = Combo1[list]->Text;
  for (const PickerCommand& command : Commands) {
    if (command.MenuText.empty() || command.MenuText != picked) continue;
    PickerCommand& item = Chosen[index + 1];
    SetCommand(item, command);
    Label1[list]->Caption = item.DisplayText;
    return;
  }
}

void CommandPicker::SetCommand(PickerCommand& item, const PickerCommand& row) {
  item.MenuText = row.MenuText;
  item.DisplayText = row.DisplayText;
  item.Template = row.Template;
  item.Prompt1 = row.Prompt1;
  item.Prompt2 = row.Prompt2;
  Ask(item.Prompt1, item.Answer1);
  Ask(item.Prompt2, item.Answer2);
  FillAnswersIn(item);
}

void CommandPicker::Ask(std::string& prompt, std::string& answer) {
  AnswerSpecially(prompt, answer);
  if (!prompt.empty()) answer = AskInBox(prompt);
}

void CommandPicker::Command1_Click() {
  Value.clear();
  for (const PickerCommand& item : Chosen) {
    if (!item.Template.empty()) Value += item.Template + ":";
  }
  Desktop().HideForm(*this);
}

bool CommandPicker::Form_QueryClose() {
  Value.clear();
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
    if (field == "QUESTION") Value += AskInBox(next) + ":";
    field = next;
  }
}

}  // namespace brindlemoor
