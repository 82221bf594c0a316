// Files that ask for more work than there is: where reading and looking end, what is said, and that
// nothing of the player's is lost.
#include "core/folder_lists.h"
#include "core/limits.h"
#include "core/paths.h"
#include "data/card_reader.h"
#include "game/card_refresh.h"
#include "game/game_list.h"
#include "game/player_files.h"
#include "game/turn.h"
#include "pages/battlefield.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

std::string Cards(int count, std::string_view location = "INDECK") {
  std::string text;
  for (int n = 1; n <= count; ++n) {
    text += Joined("#CARD, ", location, ", Imp ", n, ", Imp", n, ", Big.txt, , , , \"\"\r\n",
                   "#TRAIT, HP:3\r\n#TRAIT, LAST\r\n");
  }
  return text;
}

int Named(const Pile& pile) {
  int count = 0;
  for (const Card& card : pile) count += IsFree(card) ? 0 : 1;
  return count;
}

class FileBudgetTest : public SessionTest {
 protected:
  FileBudgetTest() {
    State().Work.Limit = 2000;
    State().Profile.PlayerName = "Ann";
  }
  /// How often the page of this turn says that a file was left out.
  static int Said(std::string_view what = "took too many steps to read") {
    const std::string& banner = State().PhaseBanner;
    int count = 0;
    for (std::size_t at = banner.find(what); at != std::string::npos;
         at = banner.find(what, at + 1)) {
      ++count;
    }
    return count;
  }
};

TEST_F(FileBudgetTest, AReadEndsInOrderAndTheNextFileIsReadAgain) {
  WriteFile("Big.txt", Cards(5000));
  WriteFile("Small.txt", Cards(3));
  EXPECT_FALSE(ReadCards("Big.txt", State().GameDeck, 0, "", 0));
  EXPECT_GT(Named(State().GameDeck.Deck), 100);
  EXPECT_LT(Named(State().GameDeck.Deck), 2000);
  EXPECT_LT(State().Work.Most, State().Work.Limit + 500) << "it ends where it is spent";
  EXPECT_EQ(Joined(State().ReadDepth, " ", State().Work.Accounts), "0 0");
  ASSERT_EQ(State().Problems.size(), 1U);
  EXPECT_EQ(State().Problems[0].Message,
            "the rest of the file is not read: reading took too many steps");
  EXPECT_EQ(Said(), 1);
  EXPECT_TRUE(ReadCards("Small.txt", State().Players[2], 0, "", 0)) << "each read has its own";
}

/// Every row alone spends the budget, and is short beside the time that it would take.
TEST_F(FileBudgetTest, EverythingThatAFileCanMakeLongCounts) {
  std::string includes;
  for (int n = 1; n <= 900; ++n) {
    WriteFile(Joined("i", n, ".txt"), Cards(20));
    includes += Joined("#INCLUDE, i", n, ".txt, \"\"\r\n");
  }
  std::string strings;
  std::string traits = "#CARDINDECK, Imp, , , , , \r\n";
  std::string references;
  for (int n = 1; n <= 3000; ++n) {
    strings += Joined("#CUSTOMSTRING, ", n, ", x\r\n");
    traits += Joined("#TRAIT, ", n, "\r\n");
    references += "#REFINDECK, none, Other.txt\r\n";
  }
  std::string words;
  for (int n = 1; n <= 100000; ++n) words += "a,";
  WriteFile("Other.txt", Cards(500));
  const std::pair<const char*, std::string> rows[] = {
      {"cards", Cards(5000)},
      {"words that are none", words},
      {"included files", includes},
      {"texts with keys", strings},
      {"traits of a card", traits},
      {"cards that are looked for in another file", references},
      {"copies", "#CARDINDECK, Imp, , , , , \r\n#DUPLICATE, 100000\r\n"},
  };
  for (const auto& [what, text] : rows) {
    WriteFile("Long.txt", text);
    EXPECT_FALSE(ReadCards("Long.txt", State().GameDeck, 0, "", 0)) << what;
    EXPECT_LT(State().Work.Most, State().Work.Limit + 1000) << what;
  }
}

TEST_F(FileBudgetTest, APlayerFileIsReadWholeOrNotAtAll) {
  WriteFile("Small.plr", Joined("#TOKENS, 7\r\n", Cards(2, "COLLECTION")));
  const std::string big = Joined("#TOKENS, 9\r\n", Cards(5000, "COLLECTION"));
  WriteFile("Big.plr", big);
  ASSERT_TRUE(ReadPlayerFile("Small.plr"));
  const std::string before = Dump(State().Collection);
  desktop_->ExpectedMessages = {"Can't read Big.plr.  It takes too much work."};
  EXPECT_FALSE(ReadPlayerFile("Big.plr"));
  EXPECT_EQ(Dump(State().Collection), before);
  EXPECT_EQ(State().Players[1].Tokens, 7);
  EXPECT_EQ(files_->Contents[Joined(kFolder, "/Big.plr")], big);
}

TEST_F(FileBudgetTest, ADefinitionThatIsCutOffTakesNothingFromACard) {
  WriteFile("Big.txt", Cards(5000));
  Card card = MakeCard("Imp 1", 1, {"HP:5", "OWN"});
  card.UniqueID = "Imp1";
  card.SourceFile = "Big.txt";
  State().Collection[1] = card;
  RefreshCollection();
  EXPECT_TRUE(HasTrait(State().Collection[1], "OWN"));
  WriteFile("Big.txt", Cards(5));
  RefreshCollection();
  EXPECT_FALSE(HasTrait(State().Collection[1], "OWN"));
}

TEST_F(FileBudgetTest, ATurnThatCreatesCardsOfALargeFileEndsAndSaysSo) {
  TheMainWindow();
  PutPlayerCard(1, {"HP:20"});
  PutPlayerCard(2, {"HP:20"});
  WriteFile("Big.txt", Cards(400));
  for (int n = 0; n < 40; ++n) {
    GiveAction(State().RulesCard, "PHASE3", "OWNER", "CREATECARD:1:Imp 7:Big.txt");
  }
  TakeTurn(1);
  const std::string& page = desktop_->Pages["WB"];
  EXPECT_NE(page.find("the rest of \"Big.txt\" was left out"), std::string::npos);
  EXPECT_LT(State().Work.Most, State().Work.Limit + 500);
  for (const Card& card : State().CardTable) {
    EXPECT_TRUE(!card.Name.View().starts_with("Imp") || HasTrait(card, "LAST"));
  }
  State().Work.Limit = 0;
  TakeTurn(1);
  EXPECT_EQ(desktop_->Pages["WB"].find("was left out"), std::string::npos);
}

TEST_F(FileBudgetTest, TheGameListSaysThatFilesWereLeftOut) {
  WriteFile("Game.txt", "#GAMERULES, Imps, , , , \r\n");
  for (int n = 1; n <= 200; ++n) WriteFile(Joined("Other", n, ".txt"), "#NOTHING\r\n");
  DiscoverGames();
  ShowGameList();
  EXPECT_NE(desktop_->Pages["WB"].find("were left out"), std::string::npos);
  EXPECT_EQ(Said("were left out"), 1);
}

/// Counts what it is asked for.
class CountingFiles : public MemoryFileSystem {
 public:
  mutable int Listings = 0;
  mutable int Looks = 0;
  bool Exists(const std::string& path) const override {
    ++Looks;
    return MemoryFileSystem::Exists(path);
  }
  std::vector<std::string> ListFiles(const std::string& folder) const override {
    ++Listings;
    return MemoryFileSystem::ListFiles(folder);
  }
};

class FolderListsTest : public SessionTest {
 protected:
  FolderListsTest() {
    auto files = std::make_unique<CountingFiles>();
    counting_ = files.get();
    for (const char* name : {"/game/a/Imp.JPG", "/game/a/IMP.jpg", "/game/b/imp.jpG", "/x.txt"}) {
      counting_->Contents[name] = "";
    }
    State().Desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  }
  ~FolderListsTest() override { State().Desktop = first_; }

  CountingFiles* counting_ = nullptr;
  const std::shared_ptr<Platform> first_ = State().Desktop;
};

TEST_F(FolderListsTest, AFolderIsListedOnceInATurnAndSeenAnewInTheNext) {
  {
    const WorkAccount turn;
    for (int n = 0; n < 50; ++n) {
      EXPECT_EQ(ResolvePath("imp.jpg", 0), "/game/a/IMP.jpg") << "the first by name";
      EXPECT_EQ(ResolvePath(Joined("missing", n, ".jpg"), 0), "");
    }
    EXPECT_EQ(counting_->Listings, 4) << "the folder, its parent and two subfolders";
  }
  counting_->Contents["/game/New.jpg"] = "";
  EXPECT_EQ(ResolvePath("NEW.jpg", 0), "/game/New.jpg");
  counting_->Contents.erase("/game/New.jpg");
  EXPECT_EQ(ResolvePath("NEW.jpg", 0), "") << "without an account nothing is kept";
}

TEST_F(FolderListsTest, ANameThatNoFileCanHaveIsNotLookedFor) {
  const std::string name(32 << 20, 'n');
  const int looks = counting_->Looks;
  EXPECT_EQ(ResolvePath(name, 1), "");
  EXPECT_EQ(ResolvePath("folder/" + name, 0), "");
  EXPECT_EQ(counting_->Looks, looks);
  AddProblem(name, 1, name);
  EXPECT_LT(State().Problems.back().File.size() + State().Problems.back().Message.size(), 10000U);
}

TEST_F(FolderListsTest, LookingEndsWhereTheWorkIsSpent) {
  State().Work.Limit = 100;
  {
    const WorkAccount turn;
    for (int n = 0; n < 1000; ++n) ResolvePath(Joined("missing", n, ".jpg"), 0);
  }
  EXPECT_LT(counting_->Looks, 5000);
  EXPECT_NE(State().PhaseBanner.find("Looking for files took too many steps"), std::string::npos);
}

TEST_F(FolderListsTest, ATableOfGiantNamesEndsWithThePage) {
  const Text name = std::string(8 << 20, 'n');
  for (int n = 0; n < 1000; ++n) {
    Card card = MakeCard("Imp", 1);
    card.Name = name;
    PutInPlay(card);
  }
  EXPECT_LT(PlayerTable(State().Players[1]).size(), 3U * limits::kPageBytes);
}

}  // namespace
}  // namespace brindlemoor
