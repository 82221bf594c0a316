// The editor's windows.
#pragma once

#include <memory>

#include "editor/card_edit.h"
#include "editor/card_grid.h"
#include "editor/counter_picker.h"
#include "editor/effect_picker.h"
#include "editor/trial_form.h"
#include "editor/value_generator.h"
#include "images/picture_picker.h"

namespace brindlemoor {

/// Every window of the editor; each is made at its first use.
struct EditorForms {
  std::unique_ptr<CardEdit> Cards;
  std::unique_ptr<EffectPicker> Effects;
  std::unique_ptr<CounterPicker> Counters;
  std::unique_ptr<ValGen> Values;
  std::unique_ptr<PicPick> Pictures;
  std::unique_ptr<CardGrid> Grid;
  std::unique_ptr<TrialForm> Trial;
};

/// The windows, each made at its first use; the pickers are loaded then. Who opens the card editor
/// loads it.
CardEdit& TheCardEdit();
EffectPicker& TheEffectPicker();
CounterPicker& TheCounterPicker();
ValGen& TheValGen();
CardGrid& TheCardGrid();
TrialForm& TheTrialForm();
PicPick& ThePicPick();

}  // namespace brindlemoor
