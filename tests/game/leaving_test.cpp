// What a player owns stays theirs whatever files, windows and other programs do.
#include "game/leaving.h"

#include "data/profiles.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kOwn = "Ann_Goblins.plr";
constexpr const char* kOwnPath = "/game/Ann_Goblins.plr";
constexpr const char* kOthers =
    "#PLAYERDECK\r\n#TOKENS, 1\r\n#CARD, COLLECTION, Imp, , , , , , \r\n";

/// Files that can't be read for a while, as under a virus scanner.
class BusyFiles : public MemoryFileSystem {
 public:
  std::string Busy;

  bool Exists(const std::string& path) const override {
    return path != Busy && MemoryFileSystem::Exists(path);
  }
  std::optional<std::string> Read(const std::string& path) const override {
    return path == Busy ? std::nullopt : MemoryFileSystem::Read(path);
  }
  std::string WhyUnread(const std::string& path) const override {
    return path == Busy ? "busy" : MemoryFileSystem::WhyUnread(path);
  }
};

std::string Names(const Pile& pile) {
  std::string names;
  for (const Card& card : pile) names += IsFree(card) ? "" : card.Name.Str() + " ";
  return names;
}

/// Two games, a player who owns cards of one, and the program at the list of games.
class LeavingTest : public ::testing::Test {
 protected:
  LeavingTest() {
    auto files = std::make_unique<BusyFiles>();
    files_ = files.get();
    auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
    desktop_ = desktop.get();
    OpenProgramSession(std::move(desktop), "/game");
    for (const std::string name : {"Goblins", "Orcs"}) {
      Put(name + ".txt", Joined("#GAMERULES, ", name, ", , , ", name, ",\n#RULESCARD\n"));
      Put(name + "/king_Enemy.txt",
          Joined("#GAME, ", name, "\n#CARD, #PLAYERCARD, King, , , , , #00FF00, \"\"\n",
                 "#CARDINDECK, King, , , #00FF00, ,\n#TRAIT, PLAYER\n"));
    }
    Put("Orcs/starter.txt",
        "#STARTERDECK\n#GAME, Orcs\n#CARD, #PLAYERCARD, Chest, S-3, , , , #FFFFFF, \"\"\n"
        "#CARD, INDECK, Urk, S-1, , , , , \"\"\n"
        "#RULESCARD\n#EFFECT, SELF, GAMESTART, BOOSTERCARD:Urk:2\n");
    Put(kOwn,
        "#PLAYERDECK\r\n#TOKENS, 42\r\n#DECKNAME, 2, \"Green\"\r\n"
        "#CARD, INPLAYERDECK:1, Elf, , , , , , \r\n#CARD, INPLAYERDECK:1, Bat, , , , , , \r\n"
        "#CARD, COLLECTION, Spare, , , , , , \r\n#CARD, COLLECTION, Troll, , , , , , \r\n");
    Put("PlayerProfiles.txt", "#PLAYERPROFILE,Ann,Ann_Goblins.plr:Goblins.txt,,,\n");
    State().Profile = {"Ann", kOwn, "Goblins.txt"};
    StartProgram();
  }
  ~LeavingTest() override {
    for (const std::string& dialog : desktop_->UnexpectedDialogs) {
      ADD_FAILURE() << "unexpected " << dialog;
    }
    EXPECT_TRUE(desktop_->YesNoAnswers.empty() && desktop_->SaveAnswers.empty()) << "never asked";
    State() = Session{};
  }

  void Put(const std::string& name, std::string_view bytes) {
    files_->Contents["/game/" + name] = bytes;
  }
  std::string Get(const std::string& name) const {
    const auto entry = files_->Contents.find("/game/" + name);
    return entry == files_->Contents.end() ? "(none)" : entry->second;
  }
  bool Saved(std::string_view words) const { return Get(kOwn).find(words) != std::string::npos; }

  template <class Use>
  void UseDecks(Use use) {
    desktop_->ModalForms.emplace_back([use](Form&) { use(TheDeckManager()); });
  }
  /// The deck is chosen at once, or the match begins without a choice.
  void Match(std::string_view game, int opponent, bool plays = true) {
    if (plays) UseDecks([](DeckManager& decks) { decks.Command2.Click(); });
    for (int index = 1; index <= State().Games.UpperBound(); ++index) {
      if (State().Games[index].Name == game) ChooseGame(index, opponent);
    }
    desktop_->ModalForms.clear();
  }
  /// A card goes from the collection to the first deck, and the disk does not take it.
  void ChangeUnsaved() {
    UseDecks([this](DeckManager& decks) {
      decks.CollectPic[0]->MouseUp(MouseButton::kLeft);
      files_->WriteError = "no space";
      decks.Form_QueryClose();
      files_->WriteError = "";
    });
    desktop_->AcceptMessages = true;
    TheMainWindow().deckmanagermen_Click();
    EXPECT_EQ(desktop_->Messages, std::vector<std::string>{"Can't save Ann_Goblins.plr: no space"});
    desktop_->AcceptMessages = false;
  }

  BusyFiles* files_;
  HeadlessPlatform* desktop_;
};

TEST_F(LeavingTest, AFileThatCannotBeReadForAWhileIsNotSavedOver) {
  const std::string own = Get(kOwn);
  desktop_->AcceptMessages = true;
  files_->Busy = kOwnPath;
  NewGame();
  files_->Busy = "";
  EXPECT_EQ(Names(State().Collection) + Names(State().Decks[1].Cards), "");
  TheMainWindow().Form_QueryClose();
  EXPECT_EQ(Get(kOwn), own);

  std::string large = own;
  for (int card = 0; card < 3000; ++card) large += "#CARD, COLLECTION, Imp, , , , , , \r\n";
  Put(kOwn, large);
  State().Work.Limit = 2000;
  NewGame();
  EXPECT_EQ(desktop_->Messages.back(), "Can't read Ann_Goblins.plr.  It takes too much work.");
  State().Work.Limit = Session{}.Work.Limit;
  TheMainWindow().Form_QueryClose();
  EXPECT_TRUE(Get(kOwn) == large);

  NewGame();
  files_->Contents.erase(kOwnPath);
  NewGame();
  TheMainWindow().Form_QueryClose();
  EXPECT_EQ(Get(kOwn), "(none)");
}

TEST_F(LeavingTest, AFileThatIsGoneIsWrittenAgain) {
  files_->Contents.erase(kOwnPath);
  TheMainWindow().newgamemen_Click();
  EXPECT_TRUE(Saved("Troll"));
}

TEST_F(LeavingTest, TheAnswerIsAboutWhatWasThereWhenItWasAsked) {
  Put(kOwn, kOthers);
  State().Players[1].Tokens = 7;
  class Meddling : public HeadlessPlatform {
   public:
    using HeadlessPlatform::HeadlessPlatform;
    std::function<void()> Meanwhile;
    bool AskYesNo(std::string_view text) override {
      if (const auto act = std::exchange(Meanwhile, nullptr)) act();
      return HeadlessPlatform::AskYesNo(text);
    }
  };
  auto files = std::make_unique<BusyFiles>();
  files->Contents = files_->Contents;
  files_ = files.get();
  auto desktop = std::make_shared<Meddling>(std::move(files));
  const std::string second = Joined(kOthers, "#CARD, COLLECTION, Precious, , , , , , \r\n");
  desktop->Meanwhile = [this, second] { Put(kOwn, second); };
  desktop_ = desktop.get();
  State().Desktop = desktop;
  desktop_->YesNoAnswers = {true, true};
  EXPECT_TRUE(StorePlayer());
  EXPECT_TRUE(Saved("#TOKENS, 7"));
  EXPECT_EQ(Get("Ann_Goblins.plr.other"), second);
}

TEST_F(LeavingTest, WhatTheUserHasLetGoOfIsNotSavedBehindATurn) {
  Match("Goblins", 2);
  const std::string before = Get(kOwn);
  State().Players[1].Tokens = 7;
  State().TurnRunning = 1;  // in a pick of a running turn
  desktop_->YesNoAnswers = {true};
  desktop_->SaveAnswers = {SaveAnswer::kDiscard};
  TheDeckManager().quitmen.Click();
  EXPECT_TRUE(desktop_->Ending());
  State().TurnRunning = 0;
  State().Players[1].Tokens = 8;
  StorePlayer();
  EndGame();
  EXPECT_EQ(Get(kOwn), before);
}

TEST_F(LeavingTest, SaveSavesInARunningTurnToo) {
  Match("Goblins", 2);
  Put(kOwn, kOthers);
  State().Players[1].Tokens = 7;
  State().TurnRunning = 1;
  desktop_->YesNoAnswers = {false};
  StorePlayer();
  desktop_->SaveAnswers = {SaveAnswer::kSave};
  desktop_->YesNoAnswers = {true, true};  // to leave the match, and to save over
  TheDeckManager().quitmen.Click();
  EXPECT_TRUE(desktop_->Ending() && Saved("#TOKENS, 7"));
  EXPECT_EQ(Get("Ann_Goblins.plr.other"), kOthers);
}

TEST_F(LeavingTest, NothingIsAskedTwiceOrWithoutNeed) {
  UseDecks([](DeckManager& decks) {
    decks.Command6.Click();  // in whatever order the cards lie
    decks.quitmen.Click();
  });
  TheMainWindow().deckmanagermen_Click();
  EXPECT_TRUE(desktop_->Ending());

  Match("Goblins", 2);
  Put(kOwn, kOthers);
  State().Players[1].Tokens = 7;
  desktop_->YesNoAnswers = {false};
  TheMainWindow().Command1_Click();
  desktop_->SaveAnswers = {SaveAnswer::kCancel};
  TheMainWindow().newgamemen_Click();
  EXPECT_EQ(State().GameOver, 0) << "the match goes on";
  desktop_->SaveAnswers = {SaveAnswer::kDiscard};
  TheMainWindow().newgamemen_Click();
  EXPECT_EQ(Get(kOwn), kOthers);
  EXPECT_EQ(Names(State().Collection), "Imp ");

  Put(kOwn, Joined(kOthers, "#CARD, COLLECTION, Ogre, , , , , , \r\n"));
  TheMainWindow().newgamemen_Click();
  EXPECT_EQ(Names(State().Collection), "Imp Ogre ") << "nothing was new here";
}

TEST_F(LeavingTest, AMatchKeepsWhatWasNotSaved) {
  ChangeUnsaved();
  EXPECT_TRUE(PlayerIsUnsaved());
  UseDecks([](DeckManager& decks) { decks.backmen_Click(); });
  Put("Ann_Orcs.plr", "#PLAYERDECK\n#TOKENS, 9\n#CARD, INPLAYERDECK:1, Urk, , , , , , \n");
  Match("Orcs", 2, false);
  EXPECT_EQ(Names(State().Decks[1].Cards), "Bat Elf Spare ") << "back at the list";
  Match("Goblins", 2);
  EXPECT_EQ(Names(State().Decks[1].Cards), "Bat Elf Spare ");
  EXPECT_FALSE(PlayerIsUnsaved());
}

TEST_F(LeavingTest, GivingUpTheChoiceOfADeckAsksForWhatIsNotSaved) {
  UseDecks([this](DeckManager& decks) {
    State().Players[1].Tokens = 77;
    files_->WriteError = "busy";
    desktop_->AcceptMessages = true;
    desktop_->SaveAnswers = {SaveAnswer::kCancel};
    decks.backmen_Click();
    EXPECT_FALSE(decks.GaveUp);
    files_->WriteError = "";
    desktop_->SaveAnswers = {SaveAnswer::kSave};
    State().Players[1].Tokens = 78;
    decks.quitmen.Click();
    decks.backmen_Click();
  });
  Match("Goblins", 2, false);
  EXPECT_TRUE(Saved("#TOKENS, 78"));
}

TEST_F(LeavingTest, WhatIsUnsavedIsSavedBeforeDebugModeAndBeforeAnotherPlayer) {
  State().Players[1].Tokens = 50;
  TheMainWindow().debugmen_Click();
  EXPECT_TRUE(Saved("#TOKENS, 50"));
  TheMainWindow().debugmen_Click();
  State().Players[1].Tokens = 51;
  files_->Contents["/home/a.plr"] = kOthers;
  UseDecks([this](DeckManager& decks) {
    desktop_->FileAnswers = {"/home/a.plr"};
    decks.loadplrmen.Click();
  });
  TheMainWindow().deckmanagermen_Click();
  EXPECT_NE(Get("Ann_Goblins.plr.before").find("#TOKENS, 51"), std::string::npos);
}

TEST_F(LeavingTest, AnotherPlayersFileIsSavedOverOnlyWhenTheUserSaysSo) {
  Put("Bob_Goblins.plr", kOthers);
  UseDecks([this](DeckManager& decks) {
    desktop_->FileAnswers = {"/game/Bob_Goblins.plr", "/game/Bob_Goblins.plr"};
    desktop_->YesNoAnswers = {false, true};
    decks.savedeckmen.Click();
    EXPECT_EQ(Get("Bob_Goblins.plr"), kOthers);
    decks.savedeckmen.Click();
  });
  TheMainWindow().deckmanagermen_Click();
  EXPECT_NE(Get("Bob_Goblins.plr").find("Troll"), std::string::npos);
  EXPECT_EQ(Get("Bob_Goblins.plr.other"), kOthers);
}

TEST_F(LeavingTest, ASecondFileOfThePlayerIsACopy) {
  UseDecks([this](DeckManager& decks) {
    decks.CollectPic[0]->MouseUp(MouseButton::kLeft);
    desktop_->FileAnswers = {"/game/backup.plr"};
    decks.savedeckmen.Click();
    EXPECT_TRUE(PlayerIsUnsaved());
    decks.Form_QueryClose();
  });
  TheMainWindow().deckmanagermen_Click();
  EXPECT_EQ(Get("backup.plr"), Get(kOwn));
  EXPECT_TRUE(Saved("INPLAYERDECK:1, \"Spare\""));
  EXPECT_EQ(State().Profile.PlayerFile, kOwn);
}

TEST_F(LeavingTest, LoadedPlayersLeaveEachOwnFileBeside) {
  files_->Contents["/home/empty.plr"] = "#PLAYERDECK\n";
  for (const char* name : {"/home/empty.plr", "/home/a.plr", "/home/b.plr"}) {
    if (name != std::string("/home/empty.plr")) files_->Contents[name] = kOthers;
    files_->Contents[name] += name;
    UseDecks([this, name](DeckManager& decks) {
      desktop_->FileAnswers = {name};
      decks.loadplrmen.Click();
      decks.Form_QueryClose();
    });
    desktop_->AcceptMessages = true;
    TheMainWindow().deckmanagermen_Click();
  }
  EXPECT_EQ(desktop_->Messages.front(), "There are no cards in empty.plr.");
  EXPECT_NE(Get("Ann_Goblins.plr.before").find("Troll"), std::string::npos);
  EXPECT_TRUE(Saved("#TOKENS, 1") && files_->Contents.contains("/game/Ann_Goblins.plr.before-2"));
}

TEST_F(LeavingTest, NamesOfDecksComeBackAndBelongToOneGame) {
  EXPECT_EQ(State().Decks[2].DeckName, "Green");
  for (const std::string name : {"a, b", "\"quoted\"", "#CARD", "#TOKENS, 9", " both ", "&quot",
                                 "&amp;", "\"", "a\r\nb", "#DECKNAME", "Deck #1"}) {
    State().Decks[2].DeckName = name;
    EXPECT_TRUE(WritePlayerFile(kOwn) && ReadPlayerFile(kOwn));
    EXPECT_EQ(State().Decks[2].DeckName, name);
    EXPECT_EQ(Joined(State().Players[1].Tokens, Names(State().Collection)), "42Spare Troll ");
  }
  Put(kOwn, Joined(Get(kOwn), "#INCLUDE, more.txt, \r\n"));
  Put("more.txt", "#DECKNAME, 3, \"Stranger\"\n");
  EXPECT_TRUE(ReadPlayerFile(kOwn));
  EXPECT_EQ(State().Decks[3].DeckName, "Deck #3");
  Match("Orcs", 3, false);
  EXPECT_EQ(State().Decks[2].DeckName, "Deck #2");
  EXPECT_EQ(Get("Ann_Orcs.plr").find("#DECKNAME"), std::string::npos);
}

TEST_F(LeavingTest, TheQuestionCountsWhateverTheFileHolds) {
  Match("Goblins", 2);
  for (const auto& [file, holds] :
       {std::pair{"#CARD, COLLECTION, A, , , , , , \n#TOKENS,5\n", "1 card and 5 tokens"},
        std::pair{"#TOKENS, 1e300\n", "0 cards and 2147483647 tokens"},
        std::pair{"#TOKENS, abc\n\"#CARD\"\n", "1 card and 0 tokens"}}) {
    Put(kOwn, file);
    ++State().Players[1].Tokens;
    StorePlayer();
    ASSERT_EQ(desktop_->UnexpectedDialogs.size(), 1U);
    EXPECT_NE(desktop_->UnexpectedDialogs[0].find(Joined("it holds ", holds, " now")),
              std::string::npos)
        << desktop_->UnexpectedDialogs[0];
    desktop_->UnexpectedDialogs.clear();
  }
}

TEST_F(LeavingTest, AnOldListOfPlayersSetsNobodyBackAndMakesNoSecondOne) {
  const std::string list = Get("PlayerProfiles.txt");
  State().Profile = {};
  Put("PlayerProfiles.txt", "#PLAYERPROFILE,Ann,:,,,\n");
  desktop_->ModalForms.emplace_back([this, list](Form&) {
    Put("PlayerProfiles.txt", list);
    TheProfileMenu().Command1[1]->Click();
  });
  NewGame();
  EXPECT_NE(Get("PlayerProfiles.txt").find(kOwn), std::string::npos);
  EXPECT_EQ(State().Players[1].Tokens, 42);

  State().Profile = {};
  files_->Contents.erase("/game/PlayerProfiles.txt");
  desktop_->ModalForms.emplace_back([this, list](Form&) {
    Put("PlayerProfiles.txt", list);
    desktop_->TextAnswers = {"ann", "Bob"};
    desktop_->ExpectedMessages = {"There is a player of this name already."};
    TheProfileMenu().Command1[0]->Click();
  });
  NewGame();
  EXPECT_EQ(State().Profile.PlayerName, "Bob");
  EXPECT_NE(Get("PlayerProfiles.txt").find(kOwn), std::string::npos);
}

TEST_F(LeavingTest, AMatchIsLeftOnlyByAnAnswer) {
  Match("Goblins", 2);
  const auto leave = {
      +[] { TheMainWindow().newgamemen.Click(); }, +[] { TheMainWindow().switchmen.Click(); },
      +[] { TheMainWindow().Form_QueryClose(); }, +[] { TheDeckManager().quitmen.Click(); }};
  for (const auto& way : leave) {
    desktop_->ChoiceAnswers = {"Stay"};
    way();
    EXPECT_TRUE(State().CurrentGame == 1 && State().GameOver == 0 && !desktop_->Ending());
    EXPECT_TRUE(desktop_->ChoiceAnswers.empty());
  }
  desktop_->ChoiceAnswers = {"Save and Leave"};
  TheMainWindow().newgamemen.Click();
  EXPECT_EQ(State().CurrentGame, 0);
  EXPECT_TRUE(files_->Contents.contains("/game/Ann_Goblins.match"));
  EXPECT_TRUE(TheMainWindow().Kept.Panel.Visible);
  Match("Goblins", 2);
  desktop_->ChoiceAnswers = {"Give Up"};
  TheMainWindow().newgamemen.Click();
  EXPECT_EQ(State().CurrentGame, 0);
  EXPECT_FALSE(files_->Contents.contains("/game/Ann_Goblins.match"));
  TheMainWindow().newgamemen.Click();  // at the list, and in a visit, nothing is given up
  Match("Orcs", 3, false);
  TheMainWindow().newgamemen.Click();
  EXPECT_EQ(State().CurrentGame, 0);
}

TEST_F(LeavingTest, AnotherPlayerTakesOverWithoutARestart) {
  Match("Goblins", 2);
  State().Players[1].Tokens = 77;
  desktop_->ChoiceAnswers = {"Give Up"};
  desktop_->TextAnswers = {"Bo"};
  desktop_->ModalForms.emplace_back(
      [](Form& form) { static_cast<ProfileMenu&>(form).Command1[0]->Click(); });
  TheMainWindow().switchmen.Click();
  EXPECT_TRUE(Saved("#TOKENS, 77"));
  EXPECT_EQ(State().Profile.PlayerName, "Bo");
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_EQ(Names(State().Collection) + State().Decks[2].DeckName.Str(), "Deck #2");
  EXPECT_TRUE(State().Links.Games && State().CurrentGame == 0);

  // Closing the chooser leaves who played.
  desktop_->ModalForms.emplace_back([](Form& form) { form.QueryClose(); });
  TheMainWindow().switchmen.Click();
  EXPECT_EQ(State().Profile.PlayerName, "Bo");
  desktop_->ModalForms.emplace_back(
      [](Form& form) { static_cast<ProfileMenu&>(form).Command1[1]->Click(); });
  TheMainWindow().switchmen.Click();
  EXPECT_EQ(State().Profile.PlayerName, "Ann");
  EXPECT_EQ(State().Players[1].Tokens, 77);
  EXPECT_EQ(Names(State().Decks[1].Cards), "Bat Elf ");
  EXPECT_FALSE(desktop_->Ending());
}

}  // namespace
}  // namespace brindlemoor
