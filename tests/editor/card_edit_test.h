// CardEditTest: the card editor on files in memory, used through its controls.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "data/card_writer.h"
#include "editor/editor_forms.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {

class CardEditTest : public SessionTest {
 protected:
  CardEditTest() : form_(TheCardEdit()) { form_.Form_Load(); }

  /// Loads a file of the program's folder.
  void Load(const std::string& name) {
    desktop_->FileAnswers.emplace_back(std::string(kFolder) + "/" + name);
    form_.loaddeckmen.Click();
  }
  void SaveAs(const std::string& name) {
    desktop_->FileAnswers.emplace_back(std::string(kFolder) + "/" + name);
    form_.savedeckasmen.Click();
  }
  /// A file of the editor with these cards, loaded.
  void LoadCards(const std::vector<Card>& cards) {
    std::string text = "CARD DATA FILE\r\n";
    for (Card card : cards) text += CardToText(card, "COLLECTION");
    WriteFile("cards.txt", text);
    Load("cards.txt");
  }
  void Choose(int card) {
    form_.CardCombo.Select(card);
    form_.CardCombo.Click();
  }
  static void Type(TextBox& box, const std::string& text) {
    box.Text = text;
    box.Change();
  }
  static void ChooseText(ComboBox& combo, const std::string& text) {
    const auto& items = combo.Items.Get();
    combo.Select(static_cast<int>(std::find(items.begin(), items.end(), text) - items.begin()) + 1);
    EXPECT_EQ(combo.Text.Get(), text) << "no item of " << combo.Name;
    combo.Click();
  }
  static void Scroll(ScrollBar& bar, int top) {
    bar.Value = top;
    bar.Change();
  }
  /// A caption for a trait that the card has not: the card stays the same, and its lists are made
  /// of the rows.
  void LetAllListsBeBuilt() {
    Scroll(form_.TraitDescScroll, 48);
    Type(form_.TraitDescName[2], "ABSENT");
  }
  /// Names of a list, each followed by a bar.
  static std::string Listed(const ComboBox& combo) {
    std::string names;
    for (const std::string& item : combo.Items.Get()) names += item + "|";
    return names;
  }
  static Card& Edited() { return State().EditCard; }
  static Card& Stored(int card) { return State().Collection[card]; }

  CardEdit& form_;
};

}  // namespace brindlemoor
