// The texts of a new game. {NAME} is the game's name, {STEM} what its files begin with, {FOLDER}
// the folder of its decks.
#include "editor/new_game.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/replacing.h"
#include "data/profiles.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kRules =
    R"(*** {NAME}: the rules. A line of stars is a remark.
*** "brindle check" says what the program does not understand, "brindle reference" what each word
*** means, and the card editor (File menu) writes cards without any of this.
#GAMERULES, "{NAME}", , #24405A, {FOLDER},

*** A card with PRICE costs its player so much MANA.
#TRAITACTION, PRICE
#EFFECT, OWNER, COST, "SUBTRAIT:MANA:SRCTRAIT/PRICE"

*** A card with STRIKE hurts the other player in every turn.
#TRAITACTION, STRIKE
#EFFECT, ENEMYPLAYER, PHASE2, "SUBTRAIT:HP:SRCTRAIT/STRIKE:ECHOMINOR:$MYNAME strikes $TARGETNAME for $AMT."

#RULESCARD
*** Four cards at the beginning, in each turn one more, and 2 MANA.
#EFFECT, ALL, GAMESTART, "REQTRAIT:PLAYER:DRAWCARDS:4"
#EFFECT, ALL, TURNSTART, "REQTRAIT:PLAYER:MODTRAIT:MANA:2:DRAWCARDS:1"
*** Who has no hit points left has lost; where both fall in one turn, who has not more than the
*** other. A victory pays tokens.
#EFFECT, ALL, TURNEND, "REQTRAIT:PLAYER:REQENEMY:REQTRAITLESS:HP:0:REQMYOWNERTRAITMORE:HP:TARGTRAIT/HP/TRAITPLUS1/PLUS1:ECHO:You have won!:MODTOKENS:10:WINGAME"
#EFFECT, ALL, TURNEND, "REQTRAIT:PLAYER:REQALLY:REQTRAITLESS:HP:0:ECHO:You have lost.:LOSEGAME"
)";

constexpr std::string_view kCards =
    R"(*** {NAME}: the cards.
*** #CARD, place, name, unique ID, this file, picture, thumbnail, colour, text
#CARD, INDECK, "Hero", "{STEM}-Hero", "{STEM}Cards.txt", , , #FFE3A0, "You. Without hit points the match is lost."
#TRAIT, PLAYER:1, #TRAIT, HP:30, #TRAIT, HPMAX:30, #TRAIT, MANA:0

#CARD, INDECK, "Imp", "{STEM}-Imp", "{STEM}Cards.txt", , , #9CE07A, "Strikes for 1 in every turn. Costs 1."
#TRAIT, STRIKE:1, #TRAIT, PRICE:1

#CARD, INDECK, "Ogre", "{STEM}-Ogre", "{STEM}Cards.txt", , , #9CE07A, "Strikes for 3 in every turn. Costs 4."
#TRAIT, STRIKE:3, #TRAIT, PRICE:4

*** An action: on whom, when, what. The second one takes the card off the table.
#CARD, INDECK, "Bolt", "{STEM}-Bolt", "{STEM}Cards.txt", , , #9FD8FF, "The other player loses 2 hit points. Costs 2."
#TRAIT, PRICE:2
#EFFECT, ENEMYPLAYER, ENTERPLAY, "SUBTRAIT:HP:2:ECHO:A bolt hits $TARGETNAME for $AMT."
#EFFECT, SELF, ENTERPLAY, "DESTROYME"
)";

constexpr std::string_view kStarter =
    R"(*** {NAME}: what a new player begins with.
#STARTERDECK
#CARD, #PLAYERCARD, "Starter Deck", "{STEM}-Starter", , , , #FFE3A0, "Begin here: a hero and nineteen cards."
#INCLUDE, "{STEM}Cards.txt", INDECK
#RULESCARD
#EFFECT, SELF, GAMESTART, "ECHO:The cards are yours. File, Quit / New Game leads back to the list&col choose an opponent there."
#EFFECT, SELF, GAMESTART, "BOOSTERCARD:Hero:1:BOOSTERCARD:Imp:8:BOOSTERCARD:Ogre:5:BOOSTERCARD:Bolt:6"
)";

constexpr std::string_view kOpponent =
    R"(*** {NAME}: an opponent. The first line is the portrait in the list of games, the rest the deck.
*** A card of the deck only needs its name, its unique ID and its file.
#CARD, #PLAYERCARD, "Rival", "{STEM}-Rival", , , , #FFB98A, "The first opponent."

#CARD, INDECK, "Rival", "{STEM}-Rival", , , , #FFB98A, "The other player."
#TRAIT, PLAYER:1, #TRAIT, HP:30, #TRAIT, HPMAX:30, #TRAIT, MANA:0

#CARD, INDECK, "Imp", "{STEM}-Imp", "{STEM}Cards.txt", , , #9CE07A, ""
#DUPLICATE, 7
#CARD, INDECK, "Ogre", "{STEM}-Ogre", "{STEM}Cards.txt", , , #9CE07A, ""
#DUPLICATE, 4
#CARD, INDECK, "Bolt", "{STEM}-Bolt", "{STEM}Cards.txt", , , #9FD8FF, ""
#DUPLICATE, 5
)";

constexpr std::string_view kTests =
    R"(folder ..
rules "{STEM}.txt"
player 1 with HP:30 MANA:5
player 2 with HP:30

scenario A bolt takes 2 hit points and is gone
card Bolt from "{STEM}Cards.txt" in aside
pay Bolt
enter Bolt
expect trait player1 MANA 3
expect trait player2 HP 28
expect nocard Bolt

scenario An ogre strikes in each turn
card Ogre from "{STEM}Cards.txt"
turn 2 noplays
expect trait player2 HP 24
)";

struct TemplateRow {
  std::string_view Path;
  std::string_view Text;
};
constexpr std::array<TemplateRow, 5> kTemplates = {{
    {"{STEM}.txt", kRules},
    {"{FOLDER}/{STEM}Cards.txt", kCards},
    {"{FOLDER}/1_Starter.txt", kStarter},
    {"{FOLDER}/2_Rival.txt", kOpponent},
    {"tests/first.txt", kTests},
}};

/// What the names of files begin with: the letters and digits of the name.
std::string StemOf(std::string_view name) {
  std::string stem;
  for (const char character : name) {
    const bool isLetter = (character >= 'a' && character <= 'z') ||
                          (character >= 'A' && character <= 'Z') ||
                          (character >= '0' && character <= '9');
    if (isLetter) stem += character;
  }
  return stem.empty() ? "Game" : stem;
}

std::string Lowered(std::string text) {
  std::ranges::transform(text, text.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return text;
}

}  // namespace

std::string RefuseGameName(std::string_view name) {
  std::string refusal = RefuseNameInFiles(name);
  if (!refusal.empty()) return refusal;
  if (name.find_first_of(",#{}") != name.npos) {
    return "The name holds one of the characters , # { }, which mean something else in card files.";
  }
  return "";
}

std::vector<NewGameFile> FilesOfNewGame(std::string_view name) {
  const std::string stem = StemOf(name);
  std::string folder = Lowered(stem);
  if (folder == "tests") folder = "cards";
  const auto filled = [&](std::string_view text) {
    std::string out(text);
    ReplaceAll(out, "{NAME}", name);
    ReplaceAll(out, "{STEM}", stem);
    return ReplaceAll(out, "{FOLDER}", folder);
  };
  std::vector<NewGameFile> files;
  files.reserve(kTemplates.size());
  for (const TemplateRow& row : kTemplates) files.push_back({filled(row.Path), filled(row.Text)});
  return files;
}

}  // namespace brindlemoor
