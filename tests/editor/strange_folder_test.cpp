// A stranger's game played from its list to its end, with links in place of everything that the
// program writes, pipes in place of files, and names that would be lines of their own on pages.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "check/game_check.h"
#include "core/state.h"
#include "data/profiles.h"
#include "editor/card_preview.h"
#include "editor/compose_folder.h"
#include "editor/editor_forms.h"
#include "editor/image_recipes.h"
#include "editor/program_session.h"
#include "editor/unsaved_copy.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "pages/page_files.h"
#include "platform/headless/headless_platform.h"
#include "tests/support/played_pictures.h"
#include "ui/card_description.h"
#include "ui/forms.h"
#include "ui/help_window.h"
#include "ui/hint_page.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSecret = "the user's own\n";
constexpr const char* kRules =
    "#GAMERULES, \"Im\nps\", , \"#10\r2030\", imps, \"Help\n.html\"\n#RULESCARD\n"
    "#TRAIT, \"TRAITGRAPHIC:STING::sting:#FF\n0000:1:1\"\n";
constexpr const char* kOpponent =
    "#CARD, #PLAYERCARD, \"Lord\nof imps\", L-1, , , \"a\x1B.jpg\", #FFFFFF, \"\"\n"
    "#CARD, INDECK, \"Lord\nof imps\", L-1, , , , \"#00\nFF00\", \"\"\n#TRAIT, PLAYER\n#TRAIT, "
    "HP:9\n";
constexpr const char* kOwn =
    "#PLAYERDECK\n#CARD, INPLAYERDECK:1, \"He\nro\", H-1, , , , \"#0000\nFF\", \"\"\n"
    "#TRAIT, PLAYER\n#TRAIT, HP:9\n#TRAIT, STING:1\n"
    "#EFFECT, SELF, \"MENU:PHASE1:Sti\tng\n\", \"MODTRAIT:HP:1\"\n"
    "#CARD, INPLAYERDECK:1, \"Im\np\", I-1, , , , \"#0000\nFF\", \"\"\n"
    "#EFFECT, RANDOMENEMY, \"ENTER\nPLAY\", \"MODTRAIT:HP:1\"\n"
    "#EFFECT, RANDOMENEMY, \"MENU:PHASE1:Sti\tng\n\", \"MODTRAIT:HP:1\"\n";
constexpr const char* kOwnFile = "Ann_Im_ps.plr";

/// The machine's files; whoever tests sees every page that is written.
class WatchedFiles : public LocalFileSystem {
 public:
  std::vector<std::pair<std::string, std::string>> Pages;  ///< path and bytes

  std::string Write(const std::string& path, std::string_view bytes) override {
    if (path.ends_with(".html")) Pages.emplace_back(path, bytes);
    return LocalFileSystem::Write(path, bytes);
  }
};

class StrangeFolderTest : public testing::Test {
 protected:
  StrangeFolderTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-folder-XXXXXX").string();
    root_ = fs::canonical(::mkdtemp(pattern.data()));
    fs::create_directories(root_ / "home");
    fs::create_directories(root_ / "games/game/imps");
    folder_ = (root_ / "games/game").string();
    Put("Imps.txt", kRules);
    Put("imps/Lord.txt", kOpponent);
    Put(kOwnFile, kOwn);
    std::ofstream(root_ / "home/profile") << kSecret;
  }
  ~StrangeFolderTest() override {
    State() = Session{};
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  std::string In(const std::string& name) const { return folder_ + "/" + name; }
  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(In(name), std::ios::binary) << bytes;
  }
  std::string BytesOf(const std::string& path) const {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string Secret() const { return BytesOf((root_ / "home/profile").string()); }
  void LinkToSecret(const std::string& name) const {
    fs::remove(In(name));
    fs::create_symlink(root_ / "home/profile", In(name));
  }

  HeadlessPlatform& Open() {
    auto files = std::make_unique<WatchedFiles>();
    files_ = files.get();
    auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
    desktop_ = desktop.get();
    desktop->AcceptMessages = true;
    OpenProgramSession(std::move(desktop), folder_);
    State().Profile.PlayerName = "Ann";
    return *desktop_;
  }
  static Card ImpOfDeck() {
    for (const Card& card : State().Decks[1].Cards) {
      if (card.Name == "Im\np") return card;
    }
    ADD_FAILURE() << "there is no imp";
    return {};
  }
  /// From the list of games into a match, and every page that there is.
  void ShowEverything() {
    StartProgram();
    desktop_->ModalForms.emplace_back([this](Form& decks) {
      desktop_->Deliver(decks, {.Kind = UserEventKind::kHover, .Control = "DeckPic(1)"});
      TheDeckManager().Command2_Click();
    });
    ChooseGame(1, 2);
    ASSERT_EQ(State().CurrentGame, 1);
    Card& hero = State().CardTable[State().Players[1].PlayerCard];
    ShowCardDescription(hero, 1);
    Card held = ImpOfDeck();
    State().Players[1].Hand[1] = held;
    State().PlayQueue[1] = 1;
    State().PlayTarget[1] = hero.Slot;
    for (int effect = 1; effect <= hero.Effects.UpperBound(); ++effect) {
      hero.Effects.Edit(effect).MenuState = kArmedMenuAction;
      hero.Effects.Edit(effect).ChosenTarget = hero.Slot;
    }
    ShowPlayMenu();
    ShowHint();
    TakeTurn(0);
    std::string shown;
    ShowCardPreview(held, TheCardEdit().PreviewWB, shown, true);
    ShowHelp("MainHelp.html");
  }

  fs::path root_;
  std::string folder_;
  HeadlessPlatform* desktop_ = nullptr;
  WatchedFiles* files_ = nullptr;
};

TEST_F(StrangeFolderTest, NothingIsWrittenThroughALink) {
  const std::vector<std::string> links = {
      "Display.html",         "LastDiplayed.html",     "CardDesc.html",
      "CardPreview.html",     "ScriptReference.html",  "Ann_Im_ps.plr.damaged",
      "Ann_Im_ps.plr.before", "imps/Lord.txt.unsaved", "CardImages.list"};
  for (const std::string& link : links) LinkToSecret(link);
  Open();
  ShowEverything();
  EndGame();
  EXPECT_EQ(Secret(), kSecret);
  for (const char* page : {"Display.html", "LastDiplayed.html", "CardDesc.html", "CardPreview.html",
                           "ScriptReference.html"}) {
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(In(page)))) << page << " is a page again";
  }
  UnsavedCopy copy;
  EXPECT_TRUE(copy.Write(In("imps/Lord.txt"), "unsaved"));
  ImageRecipes recipes(folder_ + "/");
  recipes.Set({.File = "a.jpg", .Foreground = "b.jpg", .Background = "", .Border = "", .Crop = {}});
  EXPECT_EQ(recipes.Write(), "the list that is there can't be read");
  EXPECT_EQ(Secret(), kSecret);
}

TEST_F(StrangeFolderTest, ImagesAreNotComposedIntoAFolderThatALinkLeadsTo) {
  std::ofstream(root_ / "home/art.jpg") << "the user's";
  fs::create_directory_symlink(root_ / "home", In("art"));
  std::ofstream(root_ / "home/CardImages.list")
      << "art.jpg\t" << In("fore.jpg") << "\t\t\t0\t2\t0\t2\t0\t2\t0\t2\n";
  Put("Cards.txt", "#CARD, INDECK, Imp, I-1, , art.jpg, art-mini.jpg, #FFFFFF, \"\"\n");
  Put("fore.jpg", MemoryImageLibrary::PixmapBytes(Raster(4, 4)));
  Open();
  EXPECT_EQ(ComposeFolderImages(100).Images, 0);
  EXPECT_EQ(BytesOf((root_ / "home/art.jpg").string()), "the user's");
}

/// The cards that the player has are not taken for none, nor saved over.
TEST_F(StrangeFolderTest, AFileOfThePlayerThatLeadsElsewhereIsNeitherReadNorReplaced) {
  for (const bool isPipe : {false, true}) {
    for (const char* name : {kOwnFile, "PlayerProfiles.txt"}) {
      LinkToSecret(name);
      if (isPipe) {
        fs::remove(In(name));
        ASSERT_EQ(::mkfifo(In(name).c_str(), 0600), 0);
      }
    }
    Open();
    NewGame();
    ChooseGame(1, 2);
    EXPECT_EQ(State().CurrentGame, 0);
    SaveProfiles();
    const std::string why =
        isPipe ? "it is a pipe" : "it is a link that leads out of the program's folder";
    const std::vector<std::string> told = {Joined("Can't read PlayerProfiles.txt: ", why, "."),
                                           Joined("Can't read ", kOwnFile, ": ", why, "."),
                                           "Can't save PlayerProfiles.txt: it can't be read."};
    EXPECT_EQ(desktop_->Messages, told);
    for (const char* name : {kOwnFile, "PlayerProfiles.txt"}) {
      EXPECT_FALSE(fs::is_regular_file(fs::symlink_status(In(name)))) << name;
    }
    EXPECT_EQ(Secret(), kSecret);
  }
}

TEST_F(StrangeFolderTest, WhatIsNoCardFileIsAProblemAndTheListIsShown) {
  ASSERT_EQ(::mkfifo(In("Pipe.txt").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", In("Zero.txt"));
  fs::create_symlink("/proc/self/environ", In("imps/Own.txt"));
  fs::create_directory(In("Folder.txt"));
  LinkToSecret("Secret.txt");
  { std::ofstream large(In("Large.txt")); }
  std::error_code full;
  fs::resize_file(In("Large.txt"), std::uintmax_t{5} << 30, full);
  Put("Elsewhere.txt", "#GAMERULES, Elsewhere, , , away,\n");
  fs::create_directory_symlink(root_ / "home", In("away"));
  std::ofstream(root_ / "home/Lord.txt") << kOpponent;
  Open();
  NewGame();
  std::string problems;
  for (const Problem& problem : State().Problems) {
    problems += Joined(problem.File, ": ", problem.Message, "\n");
  }
  const std::string cant = ": the file can't be read: ";
  const std::string leadsOut = "it is a link that leads out of the program's folder\n";
  EXPECT_EQ(problems,
            Joined(full ? "" : Joined("Large.txt", cant, "it is larger than 256 MB\n"), "Pipe.txt",
                   cant, "it is a pipe\n", "Secret.txt", cant, leadsOut, "Zero.txt", cant, leadsOut,
                   "away: the folder can't be listed, or is a link that leads out of the program's "
                   "folder\n",
                   "Own.txt", cant, leadsOut));
  std::string unreadable;
  for (const Finding& finding : CheckPaths({folder_}).Findings) {
    if (finding.Code != FindingCode::kUnreadable) continue;
    unreadable += Joined(finding.File.substr(folder_.size() + 1), " ", finding.Text, "\n");
  }
  const std::string cantBe = " This can't be read: ";
  const std::string link = "it is a link that leads out of the program's folder.\n";
  EXPECT_EQ(unreadable,
            Joined(full ? "" : Joined("Large.txt", cantBe, "it is larger than 256 MB.\n"),
                   "Pipe.txt", cantBe, "it is a pipe.\n", "Secret.txt", cantBe, link, "Zero.txt",
                   cantBe, link, "away This can't be read.\nimps/Own.txt", cantBe, link));
  EXPECT_EQ(State().Games.UpperBound(), 2);
  EXPECT_EQ(State().Games[1].Opponents.UpperBound(), 1) << "Elsewhere has none";
  EXPECT_EQ(State().Games[2].Opponents.UpperBound(), 2);
}

/// The lines of pages are the program's; a name that a file brings is a part of one.
TEST_F(StrangeFolderTest, NamesOfGamesCardsAndOpponentsAreNoLinesOfPages) {
  Open();
  ShowEverything();
  std::set<std::string> shown;
  for (auto& [path, page] : files_->Pages) {
    if (path == In("ScriptReference.html")) continue;
    shown.insert(path);
    EXPECT_EQ(std::count(page.begin(), page.end(), '\n'), 4) << path << "\n" << page;
    for (std::size_t end = page.find("\r\n"); end != page.npos; end = page.find("\r\n")) {
      page.erase(end, 2);
    }
    EXPECT_EQ(std::count_if(page.begin(), page.end(), [](char c) { return c >= 0 && c < ' '; }), 0)
        << path << "\n"
        << page;
  }
  EXPECT_EQ(shown.size(), 5U);
  for (const char* name : {"Im ps", "Lord of imps", "He ro", "Sti ng "}) {
    const bool isShown = std::ranges::any_of(files_->Pages, [&](const auto& page) {
      return page.second.find(name) != std::string::npos;
    });
    EXPECT_TRUE(isShown) << name;
  }
  // Files have the names that they had.
  EXPECT_EQ(State().Games[1].Name, "Im\nps");
  EXPECT_NE(BytesOf(In(kOwnFile)).find("\"He\nro\""), std::string::npos);
}

TEST_F(StrangeFolderTest, TheSecondProgramOnAFolderKeepsItsPagesApart) {
  Open();
  NewGame();
  const std::string first = BytesOf(In("Display.html"));
  const Session kept = std::move(State());
  HeadlessPlatform& second = Open();
  State().CopyOfProgram = 2;
  ShowEverything();
  EXPECT_EQ(BytesOf(In("Display.html")), first);
  for (const char* page : {"CardDesc.html", "LastDiplayed.html", "CardPreview.html"}) {
    EXPECT_FALSE(fs::exists(In(page))) << page;
  }
  EXPECT_EQ(TheMainWindow().WB.Url.Get(), "file://" + In("Display-2.html"));
  EXPECT_EQ(second.Pages["WB"], BytesOf(In("Display-2.html")));
  EXPECT_EQ(TheMainWindow().CardDescWB.Url.Get(), "file://" + In("CardDesc-2.html"));
  EXPECT_EQ(TheHelpForm().HelpWB.Url.Get(), "file://" + In("MainHelp.html"));
  EXPECT_EQ(PagePath("Display.html"), In("Display-2.html"));
  State() = Session(kept);
  ShowMain("Display.html");
  EXPECT_EQ(TheMainWindow().WB.Url.Get(), "file://" + In("Display.html"));
}

}  // namespace
}  // namespace brindlemoor
