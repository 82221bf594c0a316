// The commands that the pickers offer, in the words of the user interface.
#pragma once

#include <span>
#include <string_view>

namespace brindlemoor {

/// What one entry of a picker's lists says, asks and writes. Its place in the table is its place in
/// the lists.
struct PickerRow {
  std::string_view MenuText;     ///< the entry in the lists
  std::string_view DisplayText;  ///< sentence with $AMT1 and $AMT2
  std::string_view Template;     ///< script text with AMT1 and AMT2
  std::string_view Prompt1{};    ///< "" asks nothing
  std::string_view Prompt2{};
};

std::span<const PickerRow> EffectPickerRows();
std::span<const PickerRow> CounterPickerRows();

/// What the engine really does with a row, given by its number from 1, whose texts say otherwise.
struct PickerNote {
  int Row;
  std::string_view Text;
};

std::span<const PickerNote> EffectPickerNotes();  // editor/picker_notes.cpp
std::span<const PickerNote> CounterPickerNotes();

}  // namespace brindlemoor
