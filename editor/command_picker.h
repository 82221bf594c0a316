// CommandPicker: what the effect picker and the counter picker share, the lists in which a designer
// picks commands and the script that comes of them.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/table.h"
#include "editor/picker_rows.h"
#include "platform/controls.h"
#include "script/command_table.h"

namespace brindlemoor {

/// What the answer to a question becomes in the script.
struct PickerArgument {
  ArgumentKind Kind = ArgumentKind::kText;
  bool InAction = false;  ///< of a whole action, whose target may be a card of its own
};

/// A row of the picker's table, or a pick of it with the answers filled in.
struct PickerCommand {
  std::string MenuText;
  std::string DisplayText;
  std::string Prompt1;
  std::string Answer1;
  std::string Prompt2;
  std::string Answer2;
  std::string Template;  ///< an item of Chosen without one is skipped
  std::string Note;      ///< what the engine does, where the texts say otherwise
};

struct CommandPicker : Form {
  std::vector<std::unique_ptr<ComboBox>> Combo1;  ///< the lists, from 0
  std::vector<std::unique_ptr<Label>> Label1;     ///< the sentence beside each list
  std::vector<std::unique_ptr<Button>> ClearButton;
  Button Command1{"Command1"};
  Label Label2{"Label2"};
  Label Label3{"Label3"};

  Table<PickerCommand> Commands;         ///< the rows, filled when the form loads
  FixedTable<PickerCommand, 14> Chosen;  ///< item i + 1 belongs to list i
  std::string Value;                     ///< the generated script
  bool Done = false;                     ///< it is wanted

  void InitCommands();
  void LoadCombos();
  /// Forgets what was picked for another action.
  void BeginEmpty();
  /// Makes Value without the form: command is a "#"-delimited text whose first field says nothing;
  /// "SET" adds the next field, "QUESTION" the answer to it.
  void RunCommand(std::string_view command);

  void Form_Load();
  void Combo1_Click(int index);
  void ClearButton_Click(int index);
  /// "Done": Value becomes the picked commands in list order, each with a ":" behind it.
  void Command1_Click();
  bool Form_QueryClose();

 protected:
  CommandPicker(std::string name, int lists, std::span<const PickerRow> rows,
                std::span<const PickerNote> notes);

  /// The answer to a prompt, nothing when the question was cancelled.
  virtual std::optional<std::string> Answer(const std::string& prompt,
                                            const PickerArgument& argument);

 private:
  void Arrange();
  void MakeList(int index);
  /// Asks the questions of a pick and fills the answers in. False when one was cancelled.
  bool AskAll(PickerCommand& item);
  /// Shows what is chosen in a list.
  void ShowChosen(int index);

  std::span<const PickerRow> rows_;
  std::span<const PickerNote> notes_;
};

}  // namespace brindlemoor
