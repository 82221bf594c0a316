// Card files of one name in several folders: whose is taken, what is told, and that no owned card
// changes.
#include "core/card_files.h"
#include "data/card_reader.h"
#include "game/card_refresh.h"
#include "game/game_list.h"
#include "game/match_start.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

std::string Definition(std::string_view text, std::string_view source = "Cards.txt") {
  return Joined("#CARD, COLLECTION, Imp, Imp1, ", source, ", , , , ", text, "\n#TRAIT, HP:9\n");
}

class CardTwinsTest : public SessionTest {
 protected:
  CardTwinsTest() {
    WriteFile("aaa/Cards.txt", Definition("stranger"));
    WriteFile("imps/Cards.txt", Definition("own"));
    State().Games.Reset(2);
    State().Games[1].Name = "Imps";
    State().Games[1].Folder = "imps";
    State().Games[2].Name = "Other";
    State().Games[2].Folder = "other";
  }
  /// What becomes of an owned card, and what is told.
  static std::string Refreshed(std::string_view source = "Cards.txt", int game = 0) {
    State().CurrentGame = static_cast<std::int16_t>(game);
    State().Problems.clear();
    Card card = MakeCard("Imp", 1, {"HP:1"});
    card.UniqueID = "Imp1";
    card.SourceFile = source;
    card.Description = "stored";
    State().Collection[1] = card;
    RefreshCollection();
    return State().Collection[1].Description.Str();
  }
  static std::string Told() {
    std::string told;
    for (const Problem& problem : State().Problems) {
      told += Joined(problem.File, ": ", problem.Message, "\n");
    }
    return told;
  }
  static std::string DeckOf(const std::string& file) {
    InitPlayer(State().GameDeck, 4);
    ReadCards(file, State().GameDeck, 0, "", 0);
    std::string cards;
    for (const Card& card : State().GameDeck.Deck) {
      if (!IsFree(card)) cards += card.Description.Str() + " ";
    }
    return cards;
  }
};

TEST_F(CardTwinsTest, AnOwnedCardIsChangedByItsOwnGameOrByTheOnlyFile) {
  EXPECT_EQ(Refreshed("Cards.txt", 1), "own");
  EXPECT_EQ(Told(), "");
  for (const int game : {0, 2}) {
    EXPECT_EQ(Refreshed("Cards.txt", game), "stored");
    EXPECT_EQ(Told(),
              "Cards.txt: there are two files of this name, \"aaa/Cards.txt\" and "
              "\"imps/Cards.txt\": cards stay as they are stored\n");
  }
  files_->Contents.erase("/game/aaa/Cards.txt");
  EXPECT_EQ(Refreshed(), "own");
  EXPECT_EQ(Told(), "");
}

/// A stranger's file takes the place of the own one by none of the ways in which names are found.
TEST_F(CardTwinsTest, NoOrderOfTheSearchChangesAnOwnedCard) {
  files_->Contents.erase("/game/aaa/Cards.txt");
  for (const char* twin : {"Cards.txt", "cards.TXT", "zzz/Cards.txt", "zzz/CARDS.txt",
                           "zzz/cArds.txt", "../Cards.txt"}) {
    const bool isAbove = std::string_view(twin).starts_with("../");
    const std::string path = isAbove ? "/Cards.txt" : Joined("/game/", twin);
    for (const char* source : {"Cards.txt", "CARDS.txt", "cArds.txt"}) {
      if (isAbove && std::string_view(source) != "Cards.txt") continue;
      WriteFile("imps/Cards.txt", Definition("own", source));
      files_->Contents[path] = Definition("stranger", source);
      EXPECT_EQ(Refreshed(source, 1), "own") << twin << " for " << source;
      EXPECT_EQ(Refreshed(source), "stored") << twin << " for " << source;
      EXPECT_NE(Told().find("cards stay"), std::string::npos) << twin << " for " << source;
    }
    files_->Contents.erase(path);
  }
  WriteFile("Root.txt", Definition("own", "Root.txt"));
  EXPECT_EQ(Refreshed("Root.txt"), "own");
  files_->Contents["/Root.txt"] = "";
  EXPECT_EQ(Refreshed("Root.txt"), "stored") << "a twin in the folder above";
  WriteFile("imps/Cards.txt", Definition("own"));
  for (int n = 0; n <= limits::kTwinFolders; ++n) WriteFile(Joined("n", n, "/x.txt"), "");
  EXPECT_EQ(Refreshed(), "stored");
  EXPECT_NE(Told().find("too many folders"), std::string::npos);
  EXPECT_EQ(Refreshed("Cards.txt", 1), "own");
}

TEST_F(CardTwinsTest, AFileThatTakesInOneOfTwoChangesNoOwnedCardEither) {
  const std::pair<const char*, const char*> cases[] = {
      {"by an include", "#INCLUDE, Cards.txt, INDECK\n"},
      {"by a reference", "#REFINDECK, Imp, Inner.txt\n"},
      {"by a reference that is known", "#REFINDECK, Imp, Inner.txt\n"},
  };
  WriteFile("Inner.txt", "#INCLUDE, Cards.txt, INDECK\n");
  for (const auto& [what, lines] : cases) {
    WriteFile("Source.txt", lines);
    State().CurrentGame = 0;
    Card known = MakeCard("Imp", 1);
    known.UniqueID = "Other";
    known.SourceFile = "Source.txt";
    State().Collection.Reset(2);
    State().Collection[2] = known;
    EXPECT_EQ(Refreshed("Source.txt"), "stored") << what;
    EXPECT_NE(Told().find("\"Source.txt\" takes in a file of which there are two"),
              std::string::npos)
        << what << Told();
  }
}

TEST_F(CardTwinsTest, IncludesAndReferencesTakeTheFirstAndSaySoOnce) {
  WriteFile("Deck.txt", "#INCLUDE, Cards.txt, INDECK\n");
  WriteFile("References.txt", "#REFINDECK, Imp, Draw.txt\n#REFINDECK, Imp, Shared.txt\n");
  WriteFile("Shared.txt", "#INCLUDE, Draw.txt, INDECK\n");
  WriteFile("aaa/Draw.txt", "#CARDINDECK, Imp, , , , , stranger\n");
  WriteFile("imps/Draw.txt", "#CARDINDECK, Imp, , , , , own\n");
  EXPECT_EQ(DeckOf("Deck.txt"), "stranger ");
  EXPECT_EQ(DeckOf("Deck.txt"), "stranger ");
  EXPECT_EQ(DeckOf("References.txt"), "stranger stranger ");
  const std::string told = Told();
  for (const char* name : {"Cards.txt", "Draw.txt"}) {
    const std::string line = Joined(name, ": there are two files of this name, \"aaa/", name,
                                    "\" and \"imps/", name, "\": the first is taken\n");
    const std::size_t at = told.find(line);
    ASSERT_NE(at, std::string::npos) << told;
    EXPECT_EQ(told.find(line, at + 1), std::string::npos);
  }
  State().CurrentGame = 1;
  State().Problems.clear();
  EXPECT_EQ(DeckOf("Deck.txt"), "own ");
  EXPECT_EQ(DeckOf("References.txt"), "own own ") << "whatever was read in another game";
  EXPECT_EQ(Told().find("two files"), std::string::npos) << Told();
}

TEST_F(CardTwinsTest, CreatedCardsAndRulesAreThoseOfTheGameInProgress) {
  for (const char* folder : {"aaa", "imps"}) {
    WriteFile(Joined(folder, "/Tokens.txt"), Joined("#CARDINDECK, Token, , , , , ", folder, "\n"));
    WriteFile(Joined(folder, "/Words.txt"), Joined("#CUSTOMSTRING, WHO, ", folder, "\n"));
  }
  WriteFile("Imps.txt", "#GAMERULES, Imps, , , imps, \n#RULESCARD\n#INCLUDE, Words.txt, \n");
  WriteFile("imps/Lord.txt", "#PLAYERCARD, Lord\n#CARDINDECK, Lord, , , , ,\n");
  State().Games.Reset(1);
  DiscoverGames();
  ASSERT_TRUE(ReadMatchFiles(1, 2));
  EXPECT_EQ(State().CustomStrings[1].Values[1], "imps");
  EXPECT_EQ(TakeReferencedFile("Tokens.txt"), "/game/imps/Tokens.txt");
  State().CurrentGame = 0;
  EXPECT_EQ(TakeReferencedFile("Tokens.txt"), "/game/aaa/Tokens.txt");
}

/// Where the folder "link" is a link to "imps".
class LinkedFiles : public MemoryFileSystem {
 public:
  std::string Followed(const std::string& path) const override {
    constexpr std::string_view kLink = "/game/link/";
    return path.starts_with(kLink) ? Joined("/game/imps/", path.substr(kLink.size())) : path;
  }
};

TEST_F(CardTwinsTest, AnotherWayToTheSameFileIsNoTwin) {
  const std::shared_ptr<Platform> first = State().Desktop;
  auto files = std::make_unique<LinkedFiles>();
  for (const char* path : {"/game/imps/Cards.txt", "/game/link/Cards.txt", "/Top.txt"}) {
    files->Contents[path] =
        Definition("own", std::string_view(path) == "/Top.txt" ? "Top.txt" : "Cards.txt");
  }
  State().Desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  EXPECT_EQ(Refreshed(), "own");
  State().ProgramFolder = State().CurrentFolder = "/";
  EXPECT_EQ(Refreshed("Top.txt"), "own") << "the folder above the topmost is itself";
  State().Desktop = first;
}

TEST_F(CardTwinsTest, ASecondGameOfANameIsTold) {
  for (const char* file : {"AAA.txt", "Imps.txt", "Zzz.txt"}) {
    WriteFile(file, "#GAMERULES, Imps, , , imps, \n");
  }
  for (int times = 0; times < 2; ++times) {
    State().Games.Reset(1);
    DiscoverGames();
  }
  ASSERT_EQ(State().Games.UpperBound(), 1);
  EXPECT_EQ(State().Games[1].RulesFile, "AAA.txt");
  EXPECT_EQ(State().Games[1].Namesakes, (std::vector<Text>{"Imps.txt", "Zzz.txt"}));
  EXPECT_EQ(Told(),
            "Imps.txt: the game of \"Imps.txt\" is not listed: that of \"AAA.txt\" has the same "
            "name\n"
            "Zzz.txt: the game of \"Zzz.txt\" is not listed: that of \"AAA.txt\" has the same "
            "name\n");
}

}  // namespace
}  // namespace brindlemoor
