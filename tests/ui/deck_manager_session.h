// A session with a deck manager, for its tests.
#pragma once

#include <string>
#include <vector>

#include "core/state.h"
#include "tests/support/session_test.h"
#include "ui/deck_manager.h"
#include "ui/forms.h"

namespace brindlemoor {

class DeckManagerSession : public SessionTest {
 protected:
  DeckManagerSession() : form_(TheDeckManager()) {
    State().Profile.PlayerName = "Ann";
    State().Games.Reset(1);
    State().Games[1].Name = "Goblins";
    State().Games[1].Folder = "goblins";
    State().Games[1].RulesFile = "rules.txt";
    State().CurrentGame = 1;
    for (int deck = 1; deck <= 3; ++deck) State().Decks[deck].DeckName = Joined("Deck #", deck);
  }
  static void Own(const std::vector<std::string>& names) {
    State().Collection.Reset(0);
    for (const std::string& name : names) {
      const int position = State().Collection.Append(MakeCard(name, 1));
      State().Collection[position].UniqueID = name;
    }
  }
  void Open(int mode = kOwnCards) {
    State().DeckManagerMode = static_cast<std::uint8_t>(mode);
    form_.Form_Load();
    desktop_->ShowForm(form_, false);
  }
  void ClickCollection(std::size_t index) { form_.CollectPic[index]->MouseUp(MouseButton::kLeft); }
  void ClickDeck(std::size_t index) { form_.DeckPic[index]->MouseUp(MouseButton::kLeft); }
  /// The names in a pile, free records as "-".
  static std::string Names(const Pile& pile) {
    std::string names;
    for (const Card& card : pile) names += Joined(IsFree(card) ? "-" : card.Name.View(), " ");
    return names;
  }
  static std::string Deck(int number) { return Names(State().Decks[number].Cards); }
  static std::string Collection() { return Names(State().Collection); }
  /// The captions of the pictures that are shown.
  template <class Pictures>
  static std::string Shown(const Pictures& pictures) {
    std::string names;
    for (const auto& picture : pictures) {
      if (picture->Visible) names += picture->Caption.Get() + picture->Badge.Get() + " ";
    }
    return names;
  }

  DeckManager& form_;
};

}  // namespace brindlemoor
