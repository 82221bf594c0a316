// Saves over files: what the editor wrote is replaced unasked, what others added is not lost.
#include "editor/replaced_file.h"

#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"

namespace brindlemoor {
namespace {

class ReplacedFileTest : public CardEditTest {
 protected:
  /// Cards, templates, a cost card and names that look like directives wherever they can.
  ReplacedFileTest() {
    Card ape = MakeCard("Ape, #GAME, \"x\"", 1, {"HP:1"});
    ape.UniqueID = "Ape1";
    ape.TraitCaptions.Edit(1) = "#RULESCARD, x";
    ape.Description = "\r\n#DECKRULES, x";
    AddEffect(ape, "ECHO:\r\n#TRAITACTION, x", kTargetAll, "#GAME, x", 0, "ALL");
    LoadCards({ape, MakeCard("Bat", 1)});
    State().CostCard = MakeCard("CostCard", 1, {"#INCLUDE, x"});
    AddEffect(State().CostCard, "MODTRAIT:HP:1", kTargetSelf, "COST", 0, "SELF");
    State().Templates.Append({MakeCard("#CARD", 1), "back.bmp", "", 7});
    State().GameFileName = "#DECKRULES, rules.txt";
    State().Games.Resize(1);
    State().Games[1].Name = "Lamps";
  }
  enum Kinds { kCards, kStore, kStarter };
  void Save(int kind, const std::string& file) {
    desktop_->FileAnswers = {Joined(kFolder, "/", file)};
    if (kind != kCards) desktop_->TextAnswers = {"Sparks"};
    MenuItem* const entries[] = {&form_.savedeckasmen, &form_.Cardstoremen, &form_.starterdeckmen};
    entries[kind]->Click();
    desktop_->TextAnswers.clear();
  }
  /// With a card file a store includes it, else it holds the cards by itself.
  static void SetCardFile(bool there) { State().CardFile = there ? "/game/cards.txt" : ""; }
};

TEST_F(ReplacedFileTest, WhatTheEditorWroteIsReplacedUnasked) {
  for (const int kind : {kCards, kStore, kStarter}) {
    for (const bool withCardFile : {true, false}) {
      SetCardFile(withCardFile);
      const std::string file = Joined("file", kind, withCardFile, ".txt");
      Save(kind, file);
      const std::string written = ReadFile(file);
      SetCardFile(withCardFile);
      Save(kind, file);
      EXPECT_EQ(ReadFile(file), written);
      EXPECT_EQ(written.find("#INCLUDE, cards.txt") != std::string::npos,
                withCardFile && kind != kCards);
    }
  }
  WriteFile("empty.txt", "");
  Save(kCards, "empty.txt");
}

TEST_F(ReplacedFileTest, WhatTheSaveDoesNotWriteIsAskedFor) {
  struct Row {
    int Before;         ///< what the editor wrote
    std::string Added;  ///< behind it, by hand
    int After;          ///< what is saved over it
    std::string Named;  ///< by the question
  };
  const Row rows[] = {
      {kCards, "#RULESCARD\r\n#EFFECT, ALL, TURNSTART, x\r\n", kCards, "#RULESCARD"},
      {kCards, "#TRAITACTION, FLYING\r\n", kCards, "#TRAITACTION"},
      {kCards, "#GAME, Lamps\r\n", kCards, "#GAME"},
      {kCards, "#SOMETHING\r\n", kCards, "#SOMETHING"},
      {kCards, "#card, INDECK, x, , , , , , \r\n", kCards, "#card"},
      {kCards, "#CARD, indeck, x, , , , , , \r\n", kCards, "#CARD INDECK"},
      {kCards, "#CARD, INPLAYERDECK:2, x, , , , , , \r\n", kCards, "#CARD INPLAYERDECK"},
      {kCards, "#CARD, PLAYERCARD, x, , , , , , \r\n", kCards, "#CARD PLAYERCARD"},
      {kCards, "#INCLUDE, other.txt, \r\n", kCards, "#INCLUDE"},
      {kCards, "\"open, #TRAIT, x\r\n", kCards, "open, #TRAIT, x\r\n"},
      {kCards, "", kStore, "#CARD COLLECTION"},
      {kStore, "", kCards, "#NEUTRALCARD"},
      {kStore, "#EFFECT, ALL, TURNSTART, x\r\n", kStore, "#RULESCARD #EFFECT"},
      {kStarter, "#NEUTRALCARD, More, , , , , \r\n", kStarter, "#NEUTRALCARD"},
      {kStarter, "#INCLUDE, other.txt, INDECK\r\n", kStore, "#INCLUDE"},
      {kStore, "#DECKRULES, x\r\n", kStore, "#DECKRULES"},
  };
  for (const Row& row : rows) {
    const std::string file = Joined("row", &row - rows, ".txt");
    SetCardFile(true);
    Save(row.Before, file);
    WriteFile(file, ReadFile(file) + row.Added);
    const std::string before = ReadFile(file);
    SetCardFile(true);
    desktop_->YesNoAnswers = {false, true};
    Save(row.After, file);
    EXPECT_EQ(ReadFile(file), before) << row.Named;
    Save(row.After, file);
    EXPECT_NE(ReadFile(file), before) << row.Named;
    EXPECT_TRUE(desktop_->YesNoAnswers.empty()) << row.Named;
    EXPECT_EQ(LostByReplacing(before, row.After == kCards ? SavedKind::kCards : SavedKind::kStore),
              row.Named);
  }
  WriteFile("notes.txt", "Nothing of ours.");
  desktop_->YesNoAnswers = {false};
  Save(kCards, "notes.txt");
  EXPECT_EQ(ReadFile("notes.txt"), "Nothing of ours.");
}

/// An action that was added to the store's own card.
TEST_F(ReplacedFileTest, ActionsOfAStoreAreNotLost) {
  SetCardFile(true);
  Save(kStore, "store.txt");
  std::string text = ReadFile("store.txt");
  const std::string trait = "#TRAIT, STORE\r\n";
  text.insert(text.find(trait) + trait.size(),
              "#EFFECT, SELF, MENU:TURNSTART:Leave, \"WINGAME\"\r\n");
  WriteFile("store.txt", text);
  desktop_->YesNoAnswers = {false};
  Save(kStore, "store.txt");
  EXPECT_EQ(ReadFile("store.txt"), text);
}

}  // namespace
}  // namespace brindlemoor
