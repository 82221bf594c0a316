// SessionTest: the fixture of engine tests, a fresh session on files in memory.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "editor/program_session.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"

namespace brindlemoor {

/// A card with traits, initialised, in no table.
inline Card MakeCard(std::string_view name, int owner,
                     const std::vector<std::string>& traits = {}) {
  Card card;
  InitCard(card, owner, 0);
  card.Name = name;
  for (const std::string& trait : traits) SetTrait(card, trait, "", 1);
  return card;
}

class SessionTest : public ::testing::Test {
 protected:
  static constexpr const char* kFolder = "/game";

  SessionTest() {
    auto files = std::make_unique<MemoryFileSystem>();
    files_ = files.get();
    auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
    desktop_ = desktop.get();
    OpenProgramSession(std::move(desktop), kFolder);
    for (int bit = 1; bit <= 64; ++bit) {
      State().BitValues[static_cast<std::size_t>(bit)] = std::uint64_t{1} << (bit - 1);
    }
    State().CardTable.Reset(1);
    ForgetTraitBits();
    State().TraitGraphics.Reset(1);
    State().TraitActions.Reset(1);
    State().Sideboard.Reset(1);
    State().WaitingSlots.Reset(1);
    State().PendingCards.Reset(1);
    State().Collection.Reset(1);
    for (int side = 1; side <= 3; ++side) InitPlayer(State().Players[side], side);
    InitPlayer(State().GameDeck, 4);
    for (int deck = 1; deck <= 3; ++deck) State().Decks[deck].Cards.Reset(1);
    InitCard(State().RulesCard, 1, 1);
    State().RulesCard.Name = "RulesCard";
  }
  ~SessionTest() override {
    for (const std::string& dialog : desktop_->UnexpectedDialogs) {
      ADD_FAILURE() << "unexpected " << dialog;
    }
    for (const std::string& message : desktop_->ExpectedMessages) {
      ADD_FAILURE() << "message box that never came: " << message;
    }
    State() = Session{};
  }

  /// A file of the program's folder.
  void WriteFile(const std::string& name, std::string_view bytes) {
    files_->Contents[std::string(kFolder) + "/" + name] = bytes;
  }
  std::string ReadFile(const std::string& name) const {
    const auto entry = files_->Contents.find(std::string(kFolder) + "/" + name);
    return entry == files_->Contents.end() ? "(no such file)" : entry->second;
  }
  /// A card straight in the table and in play: no trigger runs. Returns its record.
  static Card& PutInPlay(Card card) {
    Pile& table = State().CardTable;
    int slot = 1;
    while (slot <= table.UpperBound() && !IsFree(table[slot])) ++slot;
    if (slot > table.UpperBound()) table.Resize(slot);
    card.Slot = static_cast<std::int16_t>(slot);
    card.InPlay = 1;
    table[slot] = std::move(card);
    return table[slot];
  }
  /// A player card for a side, registered as such.
  static Card& PutPlayerCard(int side, const std::vector<std::string>& traits = {}) {
    Card card = MakeCard(side == 1 ? "Player 1" : "Player 2", side, traits);
    SetTrait(card, "PLAYER", "", 1);
    Card& placed = PutInPlay(card);
    State().Players[side].PlayerCard = placed.Slot;
    return placed;
  }

  MemoryFileSystem* files_;
  HeadlessPlatform* desktop_;
};

}  // namespace brindlemoor
