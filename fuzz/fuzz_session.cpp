// The session, the small table and the small game of the targets.
#include "fuzz/fuzz_session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "editor/program_session.h"
#include "language/traits.h"
#include "scenario/scenario_library.h"
#include "script/card_setup.h"
#include "script/trait_actions.h"
#include "script/trait_changes.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Steps of a turn: an input that spends them is as good as one that would spend all.
constexpr std::int64_t kSteps = 20'000;

Card NewCard(std::string_view name, int owner, const std::vector<std::string_view>& traits) {
  Card card;
  InitCard(card, owner, 0);
  card.Name = name;
  for (const std::string_view trait : traits) SetTrait(card, trait, "", 1);
  return card;
}

Card& PutInPlay(Card card) {
  Pile& table = State().CardTable;
  const int slot = IsFree(table[table.UpperBound()]) ? table.UpperBound() : table.Append(Card());
  card.Slot = static_cast<std::int16_t>(slot);
  card.InPlay = 1;
  table[slot] = std::move(card);
  return table[slot];
}

void PutPlayer(int side) {
  const Card& card = PutInPlay(NewCard(side == 1 ? "Player" : "Enemy", side,
                                       {"PLAYER", "HP:20", "HPMAX:20", "MANA:5", "HEARTS:3"}));
  State().Players[side].PlayerCard = card.Slot;
}

}  // namespace

HeadlessPlatform& OpenFuzzProgram(std::unique_ptr<FileSystem> files, std::string folder) {
  auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  HeadlessPlatform& opened = *desktop;
  desktop->AcceptMessages = true;
  OpenProgramSession(std::move(desktop), std::move(folder));
  State().Work.Limit = kSteps;
  return opened;
}

FuzzProgram::FuzzProgram(std::unique_ptr<FileSystem> files, std::string folder)
    : desktop_(&OpenFuzzProgram(std::move(files), std::move(folder))) {
  State().Profile.PlayerName = "Ann";
  PrepareTables();
  InitCard(State().RulesCard, 1, 1);
  State().RulesCard.Name = "RulesCard";
}

FuzzProgram::~FuzzProgram() {
  MustHold(State().RunDepth == 0, "a run is still in progress");
  MustHold(State().Work.Accounts == 0, "an account of work is still open");
  State() = Session{};
}

void FuzzSession::WriteFile(std::string_view name, std::string_view bytes) {
  static_cast<MemoryFileSystem&>(Desktop().Files()).Contents[Joined(kFuzzFolder, "/", name)] =
      bytes;
}

std::string FuzzSession::ReadFile(std::string_view name) {
  return Desktop().Files().Read(Joined(kFuzzFolder, "/", name)).value_or("");
}

void FuzzFailure(std::string_view what) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

void LayOutSmallTable() {
  Session& session = State();
  PutPlayer(1);
  PutPlayer(2);
  PutInPlay(NewCard("Goblin", 1, {"HP:3", "STRIKE:1", "FLYING"}));
  PutInPlay(NewCard("Ogre", 2, {"HP:7", "STRIKE:3", "BONUSSTRIKE:SRCTRAIT/HP"}));
  PutInPlay(NewCard("Wall", 2, {"HP:5", "NOCOUNTERS"}));
  PutInPlay(NewCard("Moat", 0, {"INVISIBLE"}));
  Card wings = NewCard("FLYING", 0, {});
  AddEffect(wings, "MODTRAIT:HP:1", 7, "PHASE2", 0, "SELF");
  session.TraitActions[1] = wings;
  for (int side = 1; side <= 2; ++side) {
    for (int position = 1; position <= 3; ++position) {
      Card card = NewCard(Joined("Card ", position), side, {"HP:2", "COST:1"});
      AddEffect(card, "SUBTRAIT:MANA:SRCTRAIT/COST", 5, "COST", 0, "OWNER");
      session.Players[side].Hand[position] = card;
      session.Players[side].Deck.Append(card);
      session.Players[side].StartDeck.Append(card);
      if (side == 1) session.Collection.Append(card);
      if (side == 1) session.Decks[1].Cards.Append(card);
    }
  }
  ReapplyTraitActions(1);
}

std::string SmallGame() {
  return FolderText({
      {"Small.txt",
       "#GAMERULES, Small, banner.jpg, #112233, small, SmallHelp.html\n"
       "#DECKRULES, \"TRAITLIMIT:PLAYER:1\"\n#CUSTOMSTRING, %HIT%, hits\n#RULESCARD\n"
       "#EFFECT, OWNER, TURNSTART, DRAWCARDS:1:MODTRAIT:MANA:1\n"
       "#EFFECT, ALL, TRAITCHANGE:HP, REQTRAIT:PLAYER:REQTRAITLESS:HP:0:LOSEGAME\n"
       "#TRAITACTION, STRIKE\n"
       "#EFFECT, RANDOMENEMY, PHASE4, REQTRAIT:HP:SUBTRAIT:HP:SRCTRAIT/STRIKE:ECHO:$MYNAME %HIT% "
       "$TARGETNAME\n"},
      {"small/Cards.txt",
       "#CARD, INDECK, Imp, S-1, Cards.txt, imp.jpg, imp-mini.jpg, #FF0000, \"small "
       "#MYTRAIT/HP#\"\n"
       "#TRAIT, HP:2, #TRAIT, STRIKE:1, #TRAIT, COST:1\n"
       "#EFFECT, OWNER, COST, SUBTRAIT:MANA:SRCTRAIT/COST\n"
       "#EFFECT, SELF, MENU:PHASE1:Grow, MODTRAIT:HP:1\n#EXTRADATA, 5, , , ,\n"
       "#CARD, INDECK, Hero, S-2, Cards.txt, , , #00FF00, \"\"\n"
       "#TRAIT, PLAYER:1, #TRAIT, HP:9, #TRAIT, MANA:1\n#EXTRADATA, 5, , , ,\n"},
      {"small/1_Starter.txt",
       "#STARTERDECK\n#CARD, #PLAYERCARD, Chest, S-3, , , , #FFFFFF, \"\"\n"
       "#INCLUDE, Cards.txt, INDECK\n#RULESCARD\n"
       "#EFFECT, SELF, GAMESTART, BOOSTERCARD:Hero:1:BOOSTERCARD:Imp:4\n"},
      {"small/2_Rival.txt",
       "#CARD, #PLAYERCARD, Rival, S-4, , , , #FFFFFF, \"\"\n"
       "#CARD, INDECK, Hero, S-2, Cards.txt, , , #00FF00, \"\"\n#TRAIT, PLAYER:1, #TRAIT, HP:9\n"
       "#REFINDECK, Imp, Cards.txt\n#REFINDECK, Imp, Cards.txt\n"},
      {"small/3_Store.txt",
       "#STARTERDECK\n#CARD, #PLAYERCARD, Shop, S-5, , , , #FFFFFF, \"\"\n"
       "#CARD, INDECK, Shop, S-5, , , , #FFFFFF, \"\"\n"
       "#TRAIT, PLAYER:1, #TRAIT, STORE:1, #TRAIT, STARTSINPLAY:1\n"
       "#EFFECT, SELF, ENTERPLAY, MEJOIN:1\n"
       "#EFFECT, SELF, MENU:TURNSTART:Buy, SUBTOKENS:50:BOOSTER:3\n"
       "#INCLUDE, Cards.txt, INDECK\n#RULESCARD\n"},
  });
}

std::string FolderText(const std::vector<FolderFile>& files) {
  std::string text;
  for (const FolderFile& file : files) text += Joined("@@ ", file.Name, "\n", file.Bytes);
  return text;
}

std::vector<FolderFile> FilesOfText(std::string_view text) {
  constexpr std::string_view kMark = "@@ ";
  std::vector<FolderFile> files;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    if (line.starts_with(kMark)) {
      std::string name(line.substr(kMark.size()));
      while (!name.empty() && (name.back() == '\n' || name.back() == '\r')) name.pop_back();
      files.push_back({std::move(name), ""});
    } else if (!files.empty()) {
      files.back().Bytes += line;
    }
    text.remove_prefix(end);
  }
  return files;
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

}  // namespace brindlemoor
