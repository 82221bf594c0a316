// The card editor: its controls with their words and handlers, and its arrangement.
#include "editor/card_edit.h"

#include <span>
#include <utility>
#include <vector>

#include "editor/card_sheets.h"
#include "platform/arrangement.h"
#include "ui/help_window.h"

namespace brindlemoor {

namespace {

constexpr int kPictureWidth = 300;
constexpr int kPictureHeight = 450;
constexpr int kAlmostAll = 1000;  // of the spare room
constexpr int kMiniWidth = 80;
constexpr int kMiniHeight = 80;
constexpr int kLeftWidth = 330;
constexpr int kColorWidth = 232;
constexpr int kHelpWidth = 30;
constexpr int kHelpHeight = 22;
constexpr int kKeptHeight = 18;
constexpr int kHintHeight = 16;
constexpr int kDescriptionWidth = 150;
constexpr int kTotalWidth = 118;
constexpr int kTraitWidth = 137;  // up to the second word of the heading
constexpr int kActionComboWidth = 190;

using Handler = void (CardEdit::*)();
using RowHandler = void (CardEdit::*)(int);

struct ButtonRow {
  Button CardEdit::*Control;
  std::string_view Caption;
  std::string_view ToolTip;
  Handler Click;
};
constexpr ButtonRow kButtons[] = {
    {&CardEdit::CostButton, "Calculate Cost",
     "Click here to have the editor calculate a cost for this card using the game's rules.",
     &CardEdit::CostButton_Click},
    {&CardEdit::TryButton, "Try This Card",
     "Play this card, or run one of its actions, on a small table and see what changes.",
     &CardEdit::TryButton_Click},
    {&CardEdit::Command5, "Save As Template",
     "Templates contain information about a card type.  Click this button to turn the current card "
     "into a new template for future use.",
     &CardEdit::Command5_Click},
    {&CardEdit::Command4, "Delete",
     "Delete the current card from the database.  (Warning: Not Undoable!)",
     &CardEdit::Command4_Click},
    {&CardEdit::Command6, "Save Card", "Save your changes to the current card.",
     &CardEdit::Command6_Click},
    {&CardEdit::Command3, "Random Pic", "", &CardEdit::Command3_Click},
    {&CardEdit::Command7, "Fix Images", "", &CardEdit::Command7_Click},
    {&CardEdit::Command8, "Super Change!", "", &CardEdit::Command8_Click},
};

struct LabelRow {
  Label CardEdit::*Control;
  std::string_view Caption;
};
constexpr LabelRow kLabels[] = {
    {&CardEdit::Label1, "Card Traits"},
    {&CardEdit::TraitLabel, "Trait                           Value"},
    {&CardEdit::Label2, "Trait Name"},
    {&CardEdit::Label3, "Caption"},
    {&CardEdit::Label4, "Card Description"},
    {&CardEdit::Label6, "Trigger"},
    {&CardEdit::Label7, "Target Type"},
    {&CardEdit::Label9, "Enters Play During:"},
    {&CardEdit::EffLabel, "Action Script"},
    {&CardEdit::FileLabel, "File"},
    {&CardEdit::cardtotal, "Total Cards:"},
};

/// The text boxes of the rows, each with its name for screen readers, which its row's number
/// follows, its tool tip and what a change does.
struct TextRow {
  ControlArray<TextBox, 3> CardEdit::*Controls;
  std::string_view Spoken;
  std::string_view ToolTip;
  RowHandler Change;
};
constexpr std::string_view kCaptionTip =
    "If you want to override the default description for an action given by the game rules, enter "
    "the trait name here and type a new caption.";
constexpr TextRow kTextRows[] = {
    {&CardEdit::TraitText, "Trait", "Enter the name of the trait here.",
     &CardEdit::TraitText_Change},
    {&CardEdit::ValueText, "Value of trait", "Enter the trait's value here.  (Can be left blank.)",
     &CardEdit::ValueText_Change},
    {&CardEdit::EffText, "Script of action",
     "Input the card's action script here, or click on \"Add Effect\" to have the editor generate "
     "a script for you.",
     &CardEdit::EffText_Change},
    {&CardEdit::TraitDescName, "Trait with a caption", kCaptionTip,
     &CardEdit::TraitDescName_Change},
    {&CardEdit::TraitDescText, "Its caption", kCaptionTip, &CardEdit::TraitDescText_Change},
    {&CardEdit::CardText, "", "", &CardEdit::CardText_Change},
};
constexpr std::array<std::string_view, 3> kCardTextNames = {"Name", "Cost", "Unique ID"};
constexpr std::array<std::string_view, 3> kCardTextTips = {
    "The Name is simply the name of the card; it is what is displayed to the user.", "",
    "The Unique ID is a unique name the game engine uses to identify the card so that there are no "
    "conflicts between cards with the same name.  The card editor will normally generate unique "
    "IDs on it's own; there is no need to edit them."};

struct ComboRow {
  ControlArray<ComboBox, 3> CardEdit::*Controls;
  std::string_view Spoken;
  std::string_view ToolTip;
  RowHandler Click;
};
constexpr ComboRow kComboRows[] = {
    {&CardEdit::TraitCombo, "Common traits",
     "This menu contains a list of common traits to choose from.  It will fill in the trait field "
     "for you.",
     &CardEdit::TraitCombo_Click},
    {&CardEdit::TargetCombo, "Target of action",
     "Use this menu to determine which cards this action will target.",
     &CardEdit::TargetCombo_Click},
    {&CardEdit::TriggerCombo, "Trigger of action",
     "Use this menu to select the trigger for this action.", &CardEdit::TriggerCombo_Click},
};

struct ScrollRow {
  ScrollBar CardEdit::*Control;
  std::string_view Spoken;
  Handler Change;
};
constexpr ScrollRow kScrolls[] = {
    {&CardEdit::TraitScroll, "More traits", &CardEdit::TraitScroll_Change},
    {&CardEdit::EffScroll, "More actions", &CardEdit::EffScroll_Change},
    {&CardEdit::TraitDescScroll, "More captions", &CardEdit::TraitDescScroll_Change},
};

struct EntryRow {
  MenuItem CardEdit::*Entry;
  Handler Click;
};
constexpr EntryRow kFileEntries[] = {
    {&CardEdit::loaddeckmen, &CardEdit::loaddeckmen_Click},
    {&CardEdit::opengamemen, &CardEdit::opengamemen_Click},
    {&CardEdit::savedeckmen, &CardEdit::savedeckmen_Click},
    {&CardEdit::savedeckasmen, &CardEdit::savedeckasmen_Click},
    {&CardEdit::gencardtextmen, &CardEdit::gencardtextmen_Click},
    {&CardEdit::createoppmen, &CardEdit::createoppmen_Click},
    {&CardEdit::Cardstoremen, &CardEdit::Cardstoremen_Click},
    {&CardEdit::starterdeckmen, &CardEdit::starterdeckmen_Click},
    {&CardEdit::testcardsmen, &CardEdit::testcardsmen_Click},
};
constexpr EntryRow kEditEntries[] = {
    {&CardEdit::undomen, &CardEdit::undomen_Click},
    {&CardEdit::redomen, &CardEdit::redomen_Click},
    {&CardEdit::gridmen, &CardEdit::gridmen_Click},
};
constexpr EntryRow kGraphicEntries[] = {
    {&CardEdit::loadgraphicmen, &CardEdit::loadgraphicmen_Click},
    {&CardEdit::loadformen, &CardEdit::MainPic_Click},
    {&CardEdit::loadbackmen, &CardEdit::loadbackmen_Click},
    {&CardEdit::loadminimen, &CardEdit::loadminimen_Click},
    {&CardEdit::saveimagemen, &CardEdit::saveimagemen_Click},
    {&CardEdit::composeallmen, &CardEdit::composeallmen_Click},
};

Layout Framed(Frame& frame, Layout content) {
  content.Group = &frame;
  return content;
}

Layout Help(CardEdit& form, int index) {
  return Cell(form.Command1[index], 0, kHelpWidth, kHelpHeight);
}

/// Three rows of a table with their scroll bar beside them.
template <class MakeRow>
Layout Scrolled(ScrollBar& bar, MakeRow makeRow) {
  Layout rows = Column({}, 1);
  for (int row = 0; row < kVisibleRows; ++row) rows.Children.push_back(makeRow(row));
  return Row({std::move(rows), Cell(bar)}, 1);
}

/// The card list and the picture.
Layout Left(CardEdit& form) {
  Layout buttons =
      Column({Row({Cell(form.Command6, 1), Cell(form.DuplicateButton, 1), Cell(form.Command4, 1)}),
              Row({Cell(form.NewCardButton, 1), Cell(form.Command8)}),
              Row({Cell(form.TemplateCombo, 1), Cell(form.Command5)})});
  // What the picture leaves of the height goes below all.
  Layout picture = Cell(form.MainPic, kAlmostAll, kPictureWidth, kPictureHeight);
  picture.Shrinks = true;
  Layout left =
      Column({Cell(form.CardCombo), Row({Cell(form.FileLabel), Cell(form.FileCombo, 1)}),
              Row({Cell(form.FindText, 1), Cell(form.FindNext)}),
              Row({Cell(form.cardtotal, 0, kTotalWidth), Cell(form.FindNote, 1, 0, kKeptHeight)}),
              std::move(picture), Row({Cell(form.Command3, 1), Cell(form.Command7, 1)}),
              Framed(form.ButtonFrame, std::move(buttons)), Layout{.Stretch = 1}});
  left.Width = kLeftWidth;
  return left;
}

Layout CardFields(CardEdit& form) {
  Layout fields = Column({Row({Cell(form.Label5[0], 0, 44), Cell(form.CardText[0], 3),
                               Cell(form.Label5[1], 0, 70), Cell(form.CardText[2], 2)}),
                          Cell(form.NameHint, 0, 0, kHintHeight),
                          Row({Cell(form.Label8[1], 0, 44), Cell(form.RarityCombo, 1),
                               Cell(form.Label9, 0, 132), Cell(form.ActivateCombo, 1)}),
                          Row({Cell(form.Label8[0], 0, 44), Cell(form.CardText[1], 1),
                               Cell(form.CostButton), Cell(form.ColorLabel, 0, kColorWidth)})},
                         1);
  return Titled("Card",
                Row({std::move(fields), Column({Cell(form.MiniPic, 0, kMiniWidth, kMiniHeight)})}));
}

Layout Traits(CardEdit& form) {
  return Titled("Traits",
                Column({Row({Cell(form.TraitLabel, 1), Cell(form.Label1, 0, 84), Help(form, 0)}),
                        Scrolled(form.TraitScroll, [&form](int row) {
                          return Row({Cell(form.TraitText[row], 0, kTraitWidth),
                                      Cell(form.ValueText[row], 1), Cell(form.TraitCombo[row])});
                        })}));
}

Layout Captions(CardEdit& form) {
  return Titled(
      "Trait Action Captions",
      Column({Row({Cell(form.Label2, 1), Cell(form.Label3, 2), Help(form, 2)}),
              Scrolled(form.TraitDescScroll, [&form](int row) {
                return Row({Cell(form.TraitDescName[row], 1), Cell(form.TraitDescText[row], 2)});
              })}));
}

Layout Actions(CardEdit& form) {
  return Framed(
      form.CardActionFrame,
      Column({Row({Cell(form.Label7, 0, kActionComboWidth), Cell(form.Label6, 0, kActionComboWidth),
                   Cell(form.EffLabel, 1), Cell(form.TryButton), Help(form, 1), Help(form, 3)}),
              Scrolled(form.EffScroll, [&form](int row) {
                // Columns of one cell each, so that the boxes stand in line above the hint.
                return Row({Column({Cell(form.TargetCombo[row], 0, kActionComboWidth)}),
                            Column({Cell(form.TriggerCombo[row], 0, kActionComboWidth)}),
                            Column({Cell(form.EffText[row], 1),
                                    Cell(form.ScriptHint[row], 0, 0, kHintHeight)},
                                   1),
                            Column({Cell(form.EffButton[row])})},
                           1);
              })}));
}

Layout Description(CardEdit& form) {
  return Column(
      {Row({Cell(form.Label4, 0, kDescriptionWidth), Cell(form.KeptLabel, 1, 0, kKeptHeight)}),
       Row({Cell(form.DescText, 1), Column({Help(form, 4)})}, 1)},
      1);
}

/// What the card looks like, and its text.
Layout Preview(CardEdit& form) {
  return Column(
      {Cell(form.PreviewWB, 1), Framed(form.OutputFrame, Column({Cell(form.OutputText, 1)}, 1))},
      2);
}

/// What a card is and does. Spare height is for what is read and written: the description beside
/// the preview, and the scripts.
Layout Right(CardEdit& form) {
  Layout fields = Column({CardFields(form), Traits(form), Captions(form), Description(form)}, 3);
  Layout actions = Actions(form);
  actions.Stretch = 1;
  return Column({Row({std::move(fields), Preview(form)}, 2), std::move(actions)}, 1);
}

}  // namespace

CardEdit::CardEdit() : Form("CardEdit") {
  NameControls();
  NameRows();
  NameMenus();
  WatchEdits();
  NameAids();
  Maximised = true;
  Width = 1240;
  Height = 760;
  Arrangement = Row({Left(*this), Right(*this)});
  Image.OnChange = [this] { ShowImages(); };
  QueryClose = [this] { return Form_QueryClose(); };
}

void CardEdit::NameControls() {
  for (const ButtonRow& row : kButtons) {
    Button& button = this->*row.Control;
    button.Caption = std::string(row.Caption);
    button.ToolTip = std::string(row.ToolTip);
    button.Click = [this, click = row.Click] { (this->*click)(); };
  }
  DuplicateButton.Caption = "Duplicate Card";
  DuplicateButton.ToolTip = "Make an exact duplicate of the current card.";
  DuplicateButton.Click = [this] { Command2_Click(1); };
  NewCardButton.Caption = "New Card from Template";
  NewCardButton.ToolTip = "This will create a new card based on an existing template.";
  NewCardButton.Click = [this] { Command2_Click(2); };
  for (const LabelRow& row : kLabels) (this->*row.Control).Caption = std::string(row.Caption);
  Label5[0].Caption = "Name";
  Label5[1].Caption = "Unique ID";
  Label8[0].Caption = "Cost";
  Label8[0].ToolTip =
      "Only a note, which card files do not keep.  What a card costs in play comes from its COST "
      "actions.";
  Label8[1].Caption = "Rarity";
  CardActionFrame.Caption = "Card Actions and Effects";
  OutputFrame.Caption = "Card text (a right click hides it)";

  DescText.MultiLine = true;
  DescText.ToolTip =
      "This is the text that is displayed to the user when they click on the card or when they "
      "examine a card in their hand.  You can use standard HTML formatting to control the way it "
      "displays in-game.";
  DescText.Change = [this] { DescText_Change(); };
  ColorLabel.Caption = "Card Name Color (Click to change)";
  ColorLabel.ToolTip =
      "The \"Name Color\" determines two things: The color of the border on the card graphic, and "
      "the color of the card's name when displayed in-game.";
  ColorLabel.Click = [this] { ColorLabel_Click(); };
  RarityCombo.ToolTip =
      "The higher the rarity, the less often boosters will contain the card.  A rarity of 101 "
      "means the card will never appear naturally.";
  RarityCombo.Click = [this] { RarityCombo_Click(); };
  ActivateCombo.Editable = true;
  ActivateCombo.Change = ActivateCombo.Click = [this] { ActivateCombo_Change(); };
  CardCombo.Click = [this] { CardCombo_Click(); };
  FileCombo.ToolTip = "The card file in which this card stands.  Choose another one to move it.";
  FileCombo.Click = [this] { FileCombo_Click(); };
  TemplateCombo.ToolTip = "Use this menu to choose which template to base a new card on.";
  MainPic.ToolTip = "This is the image used for the card.  Click to select a new image to use.";
  MainPic.MouseUp = [this](MouseButton) { MainPic_Click(); };
  MainPic.FrameWhenEmpty = true;
  MiniPic.ToolTip = "This is the card's thumbnail image.";
  MiniPic.FrameWhenEmpty = true;
  BufferPic.Visible = false;
  OutputText.MultiLine = true;
  OutputText.ReadOnly = true;
  OutputText.RightClick = [this] { ShowOutput(false); };
  ShowOutput(false);
}

void CardEdit::NameRows() {
  for (int index = 0; index < kVisibleRows; ++index) {
    const std::string number = Joined(" ", index + 1);
    for (const TextRow& row : kTextRows) {
      TextBox& box = (this->*row.Controls)[index];
      box.Spoken = std::string(row.Spoken) + number;
      box.ToolTip = std::string(row.ToolTip);
      box.Change = [this, index, change = row.Change] { (this->*change)(index); };
    }
    CardText[index].Spoken = std::string(kCardTextNames[static_cast<std::size_t>(index)]);
    CardText[index].ToolTip = std::string(kCardTextTips[static_cast<std::size_t>(index)]);
    for (const ComboRow& row : kComboRows) {
      ComboBox& combo = (this->*row.Controls)[index];
      combo.Spoken = std::string(row.Spoken) + number;
      combo.ToolTip = std::string(row.ToolTip);
      combo.Click = [this, index, click = row.Click] { (this->*click)(index); };
    }
    TriggerCombo[index].Editable = true;
    TriggerCombo[index].Change = [this, index] { TriggerCombo_Change(index); };
    // A long script is wrapped; it has no line ends of its own.
    EffText[index].MultiLine = true;
    EffText[index].Enter = [] {};
    EffButton[index].Caption = "Add Effect";
    EffButton[index].ToolTip = "Click here to add an effect to this action.";
    EffButton[index].Click = [this, index] { EffButton_Click(index); };
  }
  for (const ScrollRow& row : kScrolls) {
    ScrollBar& bar = this->*row.Control;
    bar.Minimum = 1;
    bar.Maximum = kLastTopRow;
    bar.Value = 1;
    bar.LargeStep = kVisibleRows;
    bar.Spoken = std::string(row.Spoken);
    bar.Change = [this, change = row.Change] { (this->*change)(); };
  }
  for (int index = 0; index < 5; ++index) {
    Command1[index].Caption = "?";
    Command1[index].Click = [this, index] { Command1_Click(index); };
  }
  Command1[3].Visible = false;  // there is nothing to say
}

void CardEdit::NameMenus() {
  const auto fill = [this](MenuItem& menu, std::span<const EntryRow> rows) {
    for (const EntryRow& row : rows) {
      MenuItem& entry = this->*row.Entry;
      entry.Click = [this, click = row.Click] { (this->*click)(); };
      menu.Items.push_back(&entry);
    }
  };
  fill(filemen, kFileEntries);
  printa4men.Click = [this] { PrintCards(kA4); };
  printlettermen.Click = [this] { PrintCards(kLetter); };
  printmen.Items = {&printa4men, &printlettermen};
  filemen.Items.push_back(&printmen);
  fill(editmen, kEditEntries);
  fill(graphicmen, kGraphicEntries);
  loaddeckmen.Shortcut = "Ctrl+O";
  savedeckmen.Shortcut = "Ctrl+S";
  undomen.Shortcut = "Ctrl+Z";
  redomen.Shortcut = "Ctrl+Y";
  gridmen.Shortcut = "Ctrl+T";
  helpmen.Shortcut = "F1";
  helpmen.Click = [] { ShowHelp("MainHelp.html"); };
  Menus = {&filemen, &editmen, &graphicmen, &helpmen};
}

}  // namespace brindlemoor
