// CommandPicker: what the effect picker and the counter picker share, the lists in which a designer
// picks commands and the script that comes of them.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/table.h"
#include "editor/picker_rows.h"
#include "platform/controls.h"

namespace brindlemoor {

/// A row of the picker's table, or a pick of it with the answers filled in.
struct PickerCommand {
  std::string MenuText;
  std::string DisplayText;
  std::string Prompt1;
  std::string Answer1;
  std::string Prompt2;
  std::string Answer2;
  std::string Template;  ///< an item of Chosen without one is skipped
};

struct CommandPicker : Form {
  std::vector<std::unique_ptr<ComboBox>> Combo1;  ///< the lists, from 0
  std::vector<std::unique_ptr<Label>> Label1;     ///< the sentence beside each list
  Button Command1{"Command1"};
  Label Label2{"Label2"};
  Label Label3{"Label3"};

  Table<PickerCommand> Commands;         ///< the rows, filled when the form loads
  FixedTable<PickerCommand, 14> Chosen;  ///< item i + 1 belongs to list i; kept while hidden
  std::string Value;                     ///< the generated script

  void InitCommands();
  void LoadCombos();
  /// Makes Value without the form: command is a "#"-delimited text whose first field says nothing;
  /// "SET" adds the next field, "QUESTION" the answer to it.
  void RunCommand(std::string_view command);

  void Form_Load();
  void Combo1_Click(int index);
  /// "Done": Value becomes the picked commands in list order, each with a ":" behind it.
  void Command1_Click();
  bool Form_QueryClose();

 protected:
  CommandPicker(std::string name, int lists, std::span<const PickerRow> rows);

  /// Answers a prompt that is more than a question for an input box and empties it; leaves any
  /// other prompt as it is.
  virtual void AnswerSpecially(std::string& prompt, std::string& answer) = 0;

 private:
  void Arrange();
  /// Makes a pick of a row: asks its questions and fills the answers in.
  void SetCommand(PickerCommand& item, const PickerCommand& row);
  void Ask(std::string& prompt, std::string& answer);

  std::span<const PickerRow> rows_;
};

}  // namespace brindlemoor
