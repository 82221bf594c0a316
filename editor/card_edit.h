// CardEdit: the form in which a designer makes the cards of a game.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/records.h"
#include "data/read_mark.h"
#include "editor/card_documents.h"
#include "editor/edited_card.h"
#include "editor/edited_image.h"
#include "editor/edited_lists.h"
#include "editor/unsaved_copy.h"
#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/printing.h"

namespace brindlemoor {

/// What FormBusy stands for. While the form fills its controls, their events store nothing.
enum FormBusyStates : std::uint8_t { kFormReady = 0, kFillingControls = 1, kLoadingCard = 2 };

/// One card at a time, out of a list of all cards in the file. What is edited keeps its own state;
/// the handlers tell it what the controls were used for and show what it has become. With
/// State().SingleCardEdit the same form only changes the picture of one card.
struct CardEdit : Form {
  CardEdit();

  /// What the lists of common traits say while they wait for a choice.
  static constexpr std::string_view kTraitMenuText = "Common traits";

  ControlArray<TextBox, 3> CardText{"CardText"};  ///< 0 name, 1 cost, 2 unique ID
  TextBox DescText{"DescText"};
  Label ColorLabel{"ColorLabel"};
  ComboBox RarityCombo{"RarityCombo"};
  ComboBox ActivateCombo{"ActivateCombo"};
  ControlArray<TextBox, 3> TraitText{"TraitText"};
  ControlArray<TextBox, 3> ValueText{"ValueText"};
  ControlArray<ComboBox, 3> TraitCombo{"TraitCombo"};
  Frame CardActionFrame{"CardActionFrame"};
  ControlArray<ComboBox, 3> TargetCombo{"TargetCombo"};
  ControlArray<ComboBox, 3> TriggerCombo{"TriggerCombo"};
  ControlArray<TextBox, 3> EffText{"EffText"};
  ControlArray<Button, 3> EffButton{"EffButton"};
  ControlArray<TextBox, 3> TraitDescName{"TraitDescName"};
  ControlArray<TextBox, 3> TraitDescText{"TraitDescText"};
  ScrollBar TraitScroll{"TraitScroll"};
  ScrollBar EffScroll{"EffScroll"};
  ScrollBar TraitDescScroll{"TraitDescScroll"};
  Button CostButton{"CostButton"};
  Button TryButton{"TryButton"};
  ComboBox CardCombo{"CardCombo"};
  Label FileLabel{"FileLabel"};
  ComboBox FileCombo{"FileCombo"};  ///< the file of the edited card, while a game is open
  ComboBox TemplateCombo{"TemplateCombo"};
  Frame ButtonFrame{"ButtonFrame"};  ///< the buttons of the card list
  Button DuplicateButton{"Command2(1)"};
  Button NewCardButton{"Command2(2)"};
  Button Command3{"Command3"};
  Button Command4{"Command4"};
  Button Command5{"Command5"};
  Button Command6{"Command6"};
  Button Command7{"Command7"};
  Button Command8{"Command8"};
  ControlArray<Button, 5> Command1{"Command1"};  ///< the help buttons
  PictureBox MainPic{"MainPic"};
  PictureBox MiniPic{"MiniPic"};
  PictureBox BufferPic{"BufferPic"};
  Frame OutputFrame{"OutputFrame"};
  TextBox OutputText{"OutputText"};
  Label cardtotal{"cardtotal"};
  Label KeptLabel{"KeptLabel"};  ///< says what a card holds beyond the rows
  Label Label1{"Label1"};
  Label TraitLabel{"TraitLabel"};
  Label Label2{"Label2"};
  Label Label3{"Label3"};
  Label Label4{"Label4"};
  ControlArray<Label, 2> Label5{"Label5"};
  Label Label6{"Label6"};
  Label Label7{"Label7"};
  ControlArray<Label, 2> Label8{"Label8"};
  Label Label9{"Label9"};
  Label EffLabel{"EffLabel"};
  ControlArray<Label, 3> ScriptHint{"ScriptHint"};  ///< what is wrong with a row, else what it does
  Label NameHint{"NameHint"};                       ///< what a file won't keep of the name
  BrowserView PreviewWB{"PreviewWB"};               ///< the card as its player will see it
  Timer PreviewTimer{"PreviewTimer"};               ///< waits for a pause of the author
  TextBox FindText{"FindText"};
  Button FindNext{"FindNext"};
  Label FindNote{"FindNote"};  ///< what came of a search, or is told of images

  MenuItem filemen{"filemen", "File"};
  MenuItem loaddeckmen{"loaddeckmen", "Load Cards"};
  MenuItem opengamemen{"opengamemen", "Open Game..."};
  MenuItem savedeckmen{"savedeckmen", "Save Cards"};
  MenuItem savedeckasmen{"savedeckasmen", "Save Cards As..."};
  MenuItem gencardtextmen{"gencardtextmen", "Generate Card Text"};
  MenuItem createoppmen{"createoppmen", "Create Custom Opponents"};
  MenuItem Cardstoremen{"Cardstoremen", "Create Card Store"};
  MenuItem starterdeckmen{"starterdeckmen", "Create Starter Deck Builder"};
  MenuItem testcardsmen{"testcardsmen", "Test Cards"};
  MenuItem printmen{"printmen", "Print Cards"};
  MenuItem printa4men{"printa4men", "A4..."};
  MenuItem printlettermen{"printlettermen", "Letter..."};
  MenuItem editmen{"editmen", "Edit"};
  MenuItem undomen{"undomen", "Undo"};
  MenuItem redomen{"redomen", "Redo"};
  MenuItem gridmen{"gridmen", "All Cards as a Table..."};
  MenuItem graphicmen{"graphicmen", "Graphic"};
  MenuItem loadgraphicmen{"loadgraphicmen", "Load Existing Card Image"};
  MenuItem loadformen{"loadformen", "Load new Foreground Image"};
  MenuItem loadbackmen{"loadbackmen", "Load new Background Image"};
  MenuItem loadminimen{"loadminimen", "Load new Thumbnail Border Image"};
  MenuItem saveimagemen{"saveimagemen", "Save Card Image As..."};
  MenuItem composeallmen{"composeallmen", "Compose All Images"};
  MenuItem helpmen{"helpmen", "Help"};

  Timer UnsavedTimer{"UnsavedTimer"};  ///< keeps a copy of what is not saved yet

  EditedCard Edited;
  EditedImage Image;
  EditedLists Lists;
  std::uint8_t FormBusy = kFormReady;

  /// Shows the state: the visible rows, the fields of EditCard and what can be used.
  void UpdateCard();
  /// Lets the user choose a picture, and the pieces of it that the card's images show.
  void MainPic_Click();
  /// Shows the card's picture and thumbnail, which stay as they are where those can't be found. A
  /// card without them shows what its images are composed of.
  void UpdatePic(int updateCardSurf);
  /// Fills every list, then shows the state.
  void LoadCombos();
  /// Takes the trait names of all cards into the lists, unless there is one card only.
  void loadcommontraits();

  void LoadCardIntoForm(Card card);
  /// The edited card as it is stored: with its rows, its unique ID and its images in files.
  Card BuildCardFromForm();
  /// Collection was sorted or read anew: finds the edited card in it again and fills the lists.
  void CollectionChanged();

  /// True when the file would not be the same after a save.
  bool HasUnsavedChanges() const;
  /// Offers the copy of changes that were in no file yet when the program ended.
  void OfferUntitledCopy();

  void Form_Load();
  /// Offers to save the cards. True keeps the form open: the save was wanted and did not happen.
  bool Form_QueryClose();

  void CardText_Change(int index);
  void DescText_Change();
  void ActivateCombo_Change();
  void RarityCombo_Click();
  void TraitText_Change(int index);
  void ValueText_Change(int index);
  void TraitCombo_Click(int index);
  void TraitDescName_Change(int index);
  void TraitDescText_Change(int index);
  void EffText_Change(int index);
  void TriggerCombo_Change(int index);
  void TriggerCombo_Click(int index);
  void TargetCombo_Click(int index);
  void EffButton_Click(int index);
  void TraitScroll_Change();
  void EffScroll_Change();
  void TraitDescScroll_Change();
  void ColorLabel_Click();
  void CostButton_Click();
  void TryButton_Click();
  void Command1_Click(int index);

  void CardCombo_Click();
  void FileCombo_Click();
  void FindNext_Click();
  void PreviewTimer_Tick();
  void Command2_Click(int index);
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void Command6_Click();
  void Command7_Click();
  void Command8_Click();

  void loaddeckmen_Click();
  void opengamemen_Click();
  void savedeckmen_Click();
  void savedeckasmen_Click();
  void gencardtextmen_Click();
  void createoppmen_Click();
  void Cardstoremen_Click();
  void starterdeckmen_Click();
  void testcardsmen_Click();
  void undomen_Click();
  void redomen_Click();
  void gridmen_Click();
  void UnsavedTimer_Tick();
  void loadgraphicmen_Click();
  void loadbackmen_Click();
  void loadminimen_Click();
  void saveimagemen_Click();
  void composeallmen_Click();
  /// Makes a file for printing out of the cards of the list.
  void PrintCards(PaperSize paper);

 private:
  void NameControls();
  void NameRows();
  void NameMenus();
  void NameForReaders();

  void BeginLists();
  void ShowRows();
  void ShowTops();
  void NameAids();
  void NameScriptAids(int row);
  void ShowNote(const std::string& note);
  void ShowHints();
  void ShowNameHint();
  /// Refreshes the preview as soon as the author pauses.
  void PreviewSoon();
  void PreviewNow();
  void ShowMode();
  void ShowOutput(bool shown);
  void ShowImages();
  /// Files of images were written anew.
  void ShowImagesAfresh();
  /// Writes what was composed for the edited card. Where that fails, after a message, it stays.
  void StoreComposedImage();

  /// Makes a card of Collection the edited one.
  void EditCardAt(int index);
  /// Puts the edited card back into Collection, if it is one of the list.
  void StoreCurrentCard();
  /// An empty card, of no place in the list.
  void BeginFreshCard();

  struct SaveOptions {
    bool AskAlways = false;  ///< for a file, even if there is one
    bool Stamp = false;      ///< makes the cards those of the file
  };
  /// Saves Collection into the card file. False when it was not written; then the card file is the
  /// one before.
  bool SaveCards(SaveOptions options);
  /// Saves the files of a game that have changed. False when one was not written.
  bool SaveGame();
  bool MaySaveOver(const std::string& path) const;
  void SaveCollectionAs(std::string_view question, int starterFlag);

  /// Reads the cards of a file in place of those in the editor. False, with a message and no cards,
  /// when the file can't be read to its end.
  bool ReadCardList(const std::string& file);
  /// Shows the cards of several files that have been opened, or the unsaved ones of before.
  void ShowFiles(const std::vector<std::string>& unread);
  /// Shows Collection, which holds other cards now.
  void BeginCardList();
  /// Keeps a copy of what is not saved. False when the user would rather stay than lose it.
  bool MayLeaveCards();
  void SortList();
  /// The file beside which unsaved changes are kept.
  std::string CopyName() const;

  /// Has every control that changes the card tell the history.
  void WatchEdits();
  void NoteEdit(std::string_view control, bool typed);
  /// Goes a step there or back.
  void TakeStep(void (EditedCard::*step)());
  /// Another card is edited. What was changed in the one before is in the list now, if it is kept.
  void BeginHistory(bool kept);
  /// What Undo, Redo and the caption say of the changes.
  void ShowChanges();
  /// The list of cards or of templates has changed.
  void ListChanged();
  void AllIsSaved();
  /// The file as a save would write it now.
  std::string UnsavedText() const;

  UnsavedCopy copy_;
  CardDocuments documents_;              // State().CardFile, or those of a game
  std::optional<ReadMark> beforeFiles_;  // what a file begins with; not in the reduced form
  bool copyIsOld_ = false;
  std::string previewShown_;  // the text of the preview's page
};

}  // namespace brindlemoor
