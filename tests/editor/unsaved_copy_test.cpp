// What is not saved yet: the mark in the title and the copy that survives a crash.
#include "editor/unsaved_copy.h"

#include "editor/editor_opening.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kCopy = "cards.txt.unsaved";
constexpr const char* kUntitled = "Untitled.txt.unsaved";
constexpr const char* kNone = "(no such file)";

class UnsavedCopyTest : public CardEditTest {
 protected:
  UnsavedCopyTest() {
    Card ape = MakeCard("Ape", 1, {"HP:1", "CHARACTER"});
    ape.UniqueID = "Ape1";
    LoadCards({ape, MakeCard("Bat", 1)});
    Choose(1);
  }
  bool Marked() const {
    const std::string& caption = form_.Caption;
    EXPECT_TRUE(caption == "Card Editor" || caption == "Card Editor *") << caption;
    return caption.ends_with('*');
  }
  void PassAMinute() { form_.UnsavedTimer.Tick(); }
  bool CopySays(const std::string& text, const char* copy = kCopy) const {
    return ReadFile(copy).find(text) != std::string::npos;
  }
  void Leave() {
    desktop_->SaveAnswers = {SaveAnswer::kDiscard};
    EXPECT_FALSE(form_.QueryClose());
    desktop_->SaveAnswers.clear();
  }
};

TEST_F(UnsavedCopyTest, WhatChangesAFileIsMarkedUntilItIsSaved) {
  State().CostCard = MakeCard("CostCard", 1);
  AddEffect(State().CostCard, "MODTRAIT:HP:2", kTargetSelf, "COST", 0, "SELF");
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"a row", [&] { Type(form_.ValueText[0], "5"); }},
      {"a stored card",
       [&] {
         Type(form_.DescText, "runs");
         Choose(2);
         Choose(1);
       }},
      {"a duplicate", [&] { form_.DuplicateButton.Click(); }},
      {"a new card", [&] { form_.NewCardButton.Click(); }},
      {"a template", [&] { form_.Command5.Click(); }},
      {"Super Change", [&] { form_.Command8.Click(); }},
      {"a cost",
       [&] {
         Choose(1);
         form_.CostButton.Click();
       }},
      {"a deletion",
       [&] {
         desktop_->YesNoAnswers = {true};
         form_.Command4.Click();
       }},
      {"a first card", [&] { form_.Command6.Click(); }}};
  for (const auto& [name, change] : changes) {
    EXPECT_FALSE(Marked()) << "before " << name;
    change();
    EXPECT_TRUE(Marked()) << name;
    form_.savedeckmen.Click();
  }
  EXPECT_FALSE(Marked());
}

TEST_F(UnsavedCopyTest, WhatChangesNothingIsNotMarked) {
  Choose(2);
  Scroll(form_.EffScroll, 9);
  form_.Command6.Click();
  form_.gencardtextmen.Click();
  Scroll(form_.EffScroll, 1);
  EXPECT_FALSE(Marked());
  Type(form_.DescText, "x");
  form_.savedeckmen.Click();
  Type(form_.DescText, "xy");
  EXPECT_TRUE(Marked());
  form_.undomen.Click();
  EXPECT_FALSE(Marked()) << "as it was saved";
  form_.undomen.Click();
  EXPECT_TRUE(Marked());
  desktop_->FileAnswers = {"/game/store.txt"};
  desktop_->TextAnswers = {"Lamps"};
  form_.Cardstoremen.Click();
  EXPECT_TRUE(Marked()) << "a store holds no cards";
  files_->WriteError = "disk full";
  desktop_->AcceptMessages = true;
  form_.savedeckmen.Click();
  EXPECT_TRUE(Marked());
  files_->WriteError = "";
  desktop_->YesNoAnswers = {false};  // not the copy of what was not saved
  Load("cards.txt");
  EXPECT_FALSE(Marked());
}

TEST_F(UnsavedCopyTest, TheCopyIsTheFileAsItWouldBeSavedAndChangesNothing) {
  PassAMinute();
  EXPECT_EQ(ReadFile(kCopy), kNone);
  State().Templates.Append({MakeCard("Frame", 1), "art/back.bmp", "", 0});
  Choose(2);
  Type(form_.CardText[0], "Bats");
  Type(form_.TraitText[0], "SWARM");
  const int traitNames = State().TraitBitNames.UpperBound();
  const std::string saved = ReadFile("cards.txt");
  const auto random = State().Random.State;
  PassAMinute();
  EXPECT_EQ(State().Random.State, random);
  EXPECT_EQ(Stored(2).Name, "Bat");
  EXPECT_EQ(Edited().UniqueID, "");
  EXPECT_EQ(Stored(1).SourceFile, "");
  EXPECT_EQ(State().Templates[State().Templates.UpperBound()].BackImage, "art/back.bmp");
  EXPECT_EQ(State().TraitBitNames.UpperBound(), traitNames);
  EXPECT_EQ(ReadFile("cards.txt"), saved);
  EXPECT_TRUE(Marked());
  const std::string copy = ReadFile(kCopy);
  Type(form_.CardText[2], "Bats2");  // the copy has an ID of its own for the card
  form_.savedeckmen.Click();
  EXPECT_EQ(copy, ReadFile("cards.txt"));
  EXPECT_EQ(ReadFile(kCopy), kNone) << "saved";
}

TEST_F(UnsavedCopyTest, TheCopyFollowsTheChangesAndGoesWithThem) {
  Type(form_.DescText, "one");
  PassAMinute();
  EXPECT_TRUE(CopySays("one"));
  const std::string written = ReadFile(kCopy);
  WriteFile(kCopy, "seen");
  PassAMinute();
  EXPECT_EQ(ReadFile(kCopy), "seen") << "nothing new, nothing written";
  WriteFile(kCopy, written);
  form_.undomen.Click();
  PassAMinute();
  EXPECT_EQ(ReadFile(kCopy), kNone);
  form_.redomen.Click();
  files_->WriteError = "disk full";
  desktop_->ExpectedMessages = {
      "Can't keep a copy of unsaved changes as /game/cards.txt.unsaved: disk full"};
  PassAMinute();
  PassAMinute();
  files_->WriteError = "";
  PassAMinute();
  EXPECT_TRUE(CopySays("one"));
  SaveAs("other.txt");
  EXPECT_EQ(ReadFile(kCopy), kNone);
  Type(form_.DescText, "two");
  PassAMinute();
  EXPECT_TRUE(CopySays("two", "other.txt.unsaved"));
  Leave();
  EXPECT_EQ(ReadFile("other.txt.unsaved"), kNone);
}

TEST_F(UnsavedCopyTest, TheCopyOfACrashIsOfferedWithItsFile) {
  Type(form_.DescText, "lost?");
  PassAMinute();
  form_.Form_Load();  // as the next program finds it
  desktop_->YesNoAnswers = {false};
  Load("cards.txt");
  EXPECT_EQ(Stored(1).Description, "");
  EXPECT_FALSE(Marked());
  PassAMinute();
  Leave();
  EXPECT_TRUE(CopySays("lost?")) << "not wanted, and not lost";
  desktop_->YesNoAnswers = {true};
  Load("cards.txt");
  EXPECT_TRUE(desktop_->YesNoAnswers.empty());
  EXPECT_EQ(Stored(1).Description, "lost?");
  EXPECT_EQ(State().CardFile, "/game/cards.txt");
  EXPECT_TRUE(Marked());
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("cards.txt").find("lost?"), std::string::npos);
  EXPECT_EQ(ReadFile(kCopy), kNone);
  WriteFile(kCopy, ReadFile("cards.txt"));
  Load("cards.txt");  // it says nothing new: no question
  Leave();
  EXPECT_EQ(ReadFile(kCopy), kNone);
}

TEST_F(UnsavedCopyTest, ACopyThatWasNotWantedIsPutAsideForTheNextOne) {
  const auto decline = [&](const std::string& copy) {
    WriteFile(kCopy, copy);
    desktop_->YesNoAnswers = {false};
    Load("cards.txt");
    Choose(1);
  };
  const std::string file = ReadFile("cards.txt");
  for (const std::string number : {"1", "2", "2"}) {
    decline(file + number);
    Type(form_.DescText, "new");
    PassAMinute();
    PassAMinute();
    EXPECT_TRUE(CopySays("new"));
    EXPECT_EQ(ReadFile(Joined("cards-unsaved-", number, ".txt")), file + number);
    form_.undomen.Click();
    PassAMinute();
    EXPECT_EQ(ReadFile(kCopy), kNone) << "our own";
  }
  EXPECT_EQ(ReadFile("cards-unsaved-3.txt"), kNone) << "no copy is kept twice";
  decline(file + "3");
  Type(form_.DescText, "saved");
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile(kCopy), kNone) << "not offered for another file";
  EXPECT_EQ(ReadFile("cards-unsaved-3.txt"), file + "3");
  // One of a file that was never loaded.
  WriteFile("other.x.unsaved", "others");
  SaveAs("other.x");
  EXPECT_EQ(ReadFile("other-unsaved-1.x"), "others");
  // One of cards that were in no file.
  Leave();
  WriteFile(kUntitled, "untitled");
  desktop_->YesNoAnswers = {false};
  OpenCardEditor();
  Type(form_.CardText[0], "Gnu");
  PassAMinute();
  EXPECT_TRUE(CopySays("Gnu", kUntitled));
  EXPECT_EQ(ReadFile("Untitled-unsaved-1.txt"), "untitled");
}

TEST_F(UnsavedCopyTest, NoCopyIsReplacedWhenTooManyWereNotWanted) {
  for (int number = 1; number <= 9; ++number) {
    WriteFile(Joined("cards-unsaved-", number, ".txt"), Joined(number));
  }
  WriteFile(kCopy, "not wanted");
  desktop_->YesNoAnswers = {false};
  Load("cards.txt");
  Choose(1);
  Type(form_.DescText, "new");
  desktop_->ExpectedMessages = {
      "Can't keep a copy of unsaved changes as /game/cards.txt.unsaved: there are 9 others "
      "already"};
  PassAMinute();
  PassAMinute();
  EXPECT_EQ(ReadFile(kCopy), "not wanted");
  desktop_->YesNoAnswers = {false};  // no other file then
  Load("cards.txt");
  EXPECT_EQ(form_.DescText.Text.Get(), "new");
  files_->Remove("/game/cards-unsaved-4.txt");
  PassAMinute();
  EXPECT_TRUE(CopySays("new"));
  EXPECT_EQ(ReadFile("cards-unsaved-4.txt"), "not wanted");
}

TEST_F(UnsavedCopyTest, CardsOfNoFileHaveACopyAsWell) {
  OpenCardEditor();
  Type(form_.CardText[0], "Gnu");  // a card of no list yet
  EXPECT_TRUE(Marked());
  PassAMinute();
  Leave();
  EXPECT_EQ(ReadFile(kUntitled), kNone);
  OpenCardEditor();
  Type(form_.CardText[0], "Gnu");
  PassAMinute();
  form_.Form_Load();
  LeaveCardEditor();
  desktop_->YesNoAnswers = {true};
  OpenCardEditor();
  EXPECT_EQ(Listed(form_.CardCombo), "Gnu|");
  EXPECT_EQ(State().CardFile, "");
  EXPECT_EQ(Stored(1).SourceFile, "");
  EXPECT_TRUE(Marked());
  SaveAs("saved.txt");
  EXPECT_EQ(ReadFile(kUntitled), kNone);
  Leave();
}

TEST_F(UnsavedCopyTest, AnOwnedCardsImageIsNoChangeOfAFile) {
  State().SingleCardEdit = 1;
  State().EditCard = MakeCard("Own", 1);
  form_.Form_Load();
  Type(form_.DescText, "x");
  EXPECT_FALSE(Marked());
  const auto files = files_->Contents;
  PassAMinute();
  Leave();
  EXPECT_EQ(files_->Contents, files);
}

TEST_F(UnsavedCopyTest, AnothersCopyIsNeitherReplacedNorRemoved) {
  Type(form_.ValueText[0], "5");
  PassAMinute();
  EXPECT_TRUE(CopySays("HP:5"));
  WriteFile(kCopy, "the copy of a second program");
  Type(form_.ValueText[0], "6");
  PassAMinute();
  EXPECT_TRUE(CopySays("HP:6"));
  EXPECT_EQ(ReadFile("cards-unsaved-1.txt"), "the copy of a second program");
  WriteFile(kCopy, "another one");
  Leave();
  EXPECT_EQ(ReadFile(kCopy), "another one");
}

}  // namespace
}  // namespace brindlemoor
