// Targets that read files: card files, player files, the list of profiles, pictures.
#include <algorithm>

#include "check/game_check.h"
#include "core/cards.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/card_writer.h"
#include "data/profiles.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "images/image_bridge.h"
#include "images/picture_picker.h"
#include "platform/controls.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kCardFile = "Input.txt";
constexpr std::string_view kPlayerFile = "Ann_Small.plr";
constexpr std::string_view kProfileList = "PlayerProfiles.txt";

void WriteCards(Pile& pile) {
  for (Card& card : pile) {
    if (!IsFree(card)) CardToText(card, "INDECK");
  }
}

int Owned() {
  int count = 0;
  const auto add = [&count](const Pile& pile) {
    for (const Card& card : pile) count += IsFree(card) ? 0 : 1;
  };
  for (const DeckRec& deck : State().Decks) add(deck.Cards);
  add(State().Collection);
  return count;
}

/// Reads what is saved and saves it again; the new bytes.
std::string SavedAgain(FuzzSession& session) {
  ReadPlayerFile(kPlayerFile);
  WritePlayerFile(kPlayerFile);
  return session.ReadFile(kPlayerFile);
}

std::string ListAgain(FuzzSession& session) {
  LoadProfiles();
  SaveProfiles();
  return session.ReadFile(kProfileList);
}

}  // namespace

void FuzzCardFile(std::string_view bytes) {
  FuzzSession session;
  session.WriteFile(kCardFile, bytes);
  session.WriteFile("Other.txt",
                    "#CARD, INDECK, Imp, S-1, , , , , \"\"\n#INCLUDE, Input.txt, INDECK\n");
  ReadCards(kCardFile, State().Players[2], 0, "", 0);
  ReadCards(kCardFile, State().GameDeck, 1, "INDECK", 1);
  WriteCards(State().GameDeck.Deck);
  WriteCards(State().CardTable);
  CheckPaths({Joined(kFuzzFolder, "/", kCardFile)});
}

void FuzzPlayerFile(std::string_view bytes) {
  FuzzSession session;
  session.WriteFile(kPlayerFile, bytes);
  const std::string first = SavedAgain(session);
  if (Owned() == 0) return;  // nothing is saved then
  const int owned = Owned();
  const std::int32_t tokens = State().Players[1].Tokens;
  SavedAgain(session);
  MustHold(Owned() == owned, "a player has lost or won cards by a save");
  MustHold(State().Players[1].Tokens == tokens, "a player's tokens changed by a save");
}

void FuzzProfileList(std::string_view bytes) {
  FuzzSession session;
  State().Profile.PlayerName = Text();
  session.WriteFile(kProfileList, bytes);
  const std::string first = ListAgain(session);
  const std::string second = ListAgain(session);
  MustHold(first == second, "a list of profiles changes when it is read and saved");
}

void FuzzImage(std::string_view bytes) {
  FuzzSession session;
  session.WriteFile("picture.ppm", bytes);
  cGdiPlus bridge;
  const auto size = bridge.SizeOfFile("picture.ppm");
  PictureBox box("Box");
  box.Picture = std::string("picture.ppm");
  const auto picture = bridge.FilenameToIPicture("picture.ppm");
  bridge.PictureBoxToFile(box, "copy.jpg", bytes.empty() ? 0 : bytes.back());
  if (!picture) return;
  MustHold(size && *size == PictureSize{picture->Width(), picture->Height()},
           "a picture has another size than its file says");
  const auto again = bridge.FilenameToIPicture("copy.jpg");
  MustHold(again && *again == *picture, "a picture changes when it is written and read");
}

}  // namespace brindlemoor
