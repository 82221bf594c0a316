// The card editor: the quiet lines under its boxes, its preview and its search.
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/card_find.h"
#include "editor/card_preview.h"
#include "editor/script_hints.h"
#include "editor/script_parts.h"
#include "editor/script_suggestions.h"
#include "reference/reference_page.h"
#include "ui/help_window.h"

namespace brindlemoor {

namespace {

constexpr int kHintColor = 0xD9B36C;
constexpr int kSentenceColor = 0x9DB2C6;
constexpr int kPause = 400;  // milliseconds

}  // namespace

/// What screen readers call the controls: the words of the labels beside them.
void CardEdit::NameForReaders() {
  const std::pair<Control*, const char*> names[] = {{&DescText, "Card Description"},
                                                    {&RarityCombo, "Rarity"},
                                                    {&ActivateCombo, "Enters Play During"},
                                                    {&CardCombo, "Card"},
                                                    {&FileCombo, "File of the card"},
                                                    {&TemplateCombo, "Template"},
                                                    {&MainPic, "Card image"},
                                                    {&MiniPic, "Thumbnail"},
                                                    {&OutputText, "Card text"},
                                                    {&PreviewWB, "The card as players see it"},
                                                    {&FindText, "Find a card"}};
  for (const auto& [control, name] : names) control->Spoken = name;
}

void CardEdit::NameAids() {
  NameForReaders();
  for (int row = 0; row < kVisibleRows; ++row) NameScriptAids(row);
  for (Label* label : {&NameHint, &FindNote}) label->TextColor = kHintColor;
  FindText.Placeholder = "Find a card";
  FindText.ToolTip =
      "Words of a card's name, traits or description, such as \"HP>3\", or a piece of an action "
      "script, trigger or target.";
  FindText.Change = [this] { ShowNote(""); };
  FindText.Enter = FindNext.Click = [this] { FindNext_Click(); };
  FindNext.Caption = "Find Next";
  FindNext.ToolTip = "Go to the next card that these words speak of.";
  Image.OnNote = [this](const std::string& note) { ShowNote(note); };
  PreviewWB.BeforeNavigate = [](const std::string&) { return true; };
  PreviewTimer.Interval = kPause;
  PreviewTimer.Tick = [this] { PreviewTimer_Tick(); };
  Timers.push_back(&PreviewTimer);
}

void CardEdit::NameScriptAids(int row) {
  TextBox& box = EffText[row];
  box.Runs = [this, row](const std::string& text) {
    EffectRow shown = Edited.Rows.Effect(row);
    shown.Script = text;
    return RunsOfAction(shown);
  };
  box.Suggest = [this](const std::string& text, std::size_t caret) {
    // The list of cards may show their files behind the names.
    const EditedLists::Names cards = EditedLists::CardNames();
    return SuggestForScript(text, caret, {.Traits = TraitCombo[0].Items.Get(), .Cards = cards});
  };
  box.Help = [&box](std::size_t caret) {
    ShowHelp(kReferenceFile, ReferenceAnchor(box.Text.Get(), caret));
  };
}

/// What is wrong comes first: with that mended, the sentence tells what the script does.
void CardEdit::ShowHints() {
  for (int row = 0; row < kVisibleRows; ++row) {
    const EffectRow& shown = Edited.Rows.Effect(row);
    const std::string hint = HintForAction(shown);
    Label& line = ScriptHint[row];
    line.TextColor = hint.empty() ? kSentenceColor : kHintColor;
    line.Caption = hint.empty() ? SentenceForAction(shown) : hint;
    line.ToolTip = line.Caption.Get();
    EffText[row].Changed();  // its notes speak of the trigger and the target as well
  }
}

void CardEdit::ShowNote(const std::string& note) {
  FindNote.Caption = note;
  FindNote.ToolTip = note;
}

void CardEdit::ShowNameHint() {
  const std::string hint = HintForName(State().EditCard.Name);
  NameHint.Caption = hint;
  NameHint.ToolTip = hint;
}

void CardEdit::PreviewSoon() {
  PreviewTimer.Enabled = false;  // the pause begins anew
  PreviewTimer.Enabled = true;
}

void CardEdit::PreviewNow() {
  PreviewTimer.Enabled = false;
  ShowCardPreview(Edited.WithRows(), PreviewWB, previewShown_, true);
}

void CardEdit::PreviewTimer_Tick() {
  PreviewTimer.Enabled = false;
  ShowCardPreview(Edited.WithRows(), PreviewWB, previewShown_, false);
}

void CardEdit::FindNext_Click() {
  ShowNote("");
  const std::string& words = FindText.Text;
  if (words.find_first_not_of(' ') == std::string::npos) {
    ShowNote("Type what to look for.");
    return;
  }
  const int found = FindNextCard(State().Collection, Lists.Place(), words);
  if (found == 0) {
    ShowNote("Nothing found.");
  } else if (found == Lists.Place()) {
    ShowNote("No other card.");
  } else {
    CardCombo.Select(found);
    CardCombo_Click();
  }
}

}  // namespace brindlemoor
