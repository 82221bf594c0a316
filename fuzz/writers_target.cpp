// A target that lets two programs write to one folder in turn, and others change files meanwhile.
#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "core/cards.h"
#include "core/state.h"
#include "data/profiles.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "fuzz/made_folder.h"
#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "script/card_setup.h"
#include "script/run_action.h"
#include "text/encoding.h"
#include "text/text.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kMostSteps = 60;
constexpr std::string_view kPlayerEnding = ".plr";

/// Names of all cards that a player owns, and their tokens.
std::string Owned() {
  std::vector<std::string> names;
  const auto add = [&names](const Pile& pile) {
    for (const Card& card : pile) {
      if (!IsFree(card)) names.push_back(card.Name.Str());
    }
  };
  add(State().Collection);
  for (const DeckRec& deck : State().Decks) add(deck.Cards);
  std::ranges::sort(names);
  std::string owned = Joined(State().Players[1].Tokens);
  for (const std::string& name : names) owned += Joined("|", name);
  return owned;
}

/// What the player files of the folder must be.
struct Files {
  struct PlayerFile {
    std::string Bytes;  ///< as written last, by a program or from outside
    std::string Owned;  ///< what the program held that has written it; "" from outside
    std::set<std::string> Strangers;  ///< cards from outside that may not get lost
  };
  std::map<std::string, PlayerFile> ByPath;
  std::set<std::string> Players;  ///< that were added
  int Strangers = 0;
};

std::string BytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The machine's files; what is written for a player is known.
class WatchedFiles : public LocalFileSystem {
 public:
  explicit WatchedFiles(Files& files) : files_(files) {}
  std::string Write(const std::string& path, std::string_view bytes) override {
    std::string failure = LocalFileSystem::Write(path, bytes);
    if (failure.empty() && path.ends_with(kPlayerEnding)) {
      Files::PlayerFile& file = files_.ByPath[path];
      file.Bytes = bytes;
      file.Owned = brindlemoor::Owned();
    }
    return failure;
  }

 private:
  Files& files_;
};

/// One of the programs. Its session is State() while it takes a step.
class Writer {
 public:
  Writer(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

  void TakeStep(char action, std::string_view rest);
  const std::string& Player() const { return player_; }

 private:
  /// Begins anew, as the new player of this name or, for "", the one of a button.
  void Start(const std::string& newPlayer, std::size_t button);
  /// A loss of power: nothing is saved any more.
  void Stop();
  void Play(char action, std::string_view rest);
  void ChangeFromOutside(char action);

  Files& files_;
  std::string folder_;
  Session kept_;
  HeadlessPlatform* desktop_ = nullptr;  ///< nullptr while it does not run
  std::string player_;
};

int NumberOf(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::clamp(number, 0, 1000);
}

void Writer::Start(const std::string& newPlayer, std::size_t button) {
  if (desktop_ != nullptr) Play('Q', "");
  if (desktop_ != nullptr) return;
  desktop_ = &OpenFuzzProgram(std::make_unique<WatchedFiles>(files_), folder_);
  desktop_->TextAnswers = {newPlayer};
  desktop_->ModalForms.emplace_back([button, &newPlayer](Form&) {
    ProfileMenu& form = TheProfileMenu();
    const std::size_t last = form.Command1.size() - 1;
    form.Command1[newPlayer.empty() ? 1 + button % last : 0]->Click();
    if (State().Profile.PlayerName.empty()) form.QueryClose();
  });
  const bool isNew = !newPlayer.empty() && !files_.Players.contains(newPlayer);
  StartProgram();
  player_ = State().Profile.PlayerName.Str();
  if (isNew && player_ == newPlayer) files_.Players.insert(newPlayer);
  desktop_->ModalForms.clear();
  PlayDeckManagers(*desktop_);
  if (desktop_->Ending()) Stop();
}

void Writer::Stop() {
  State() = Session{};
  desktop_ = nullptr;
  player_.clear();
}

void Writer::Play(char action, std::string_view rest) {
  Session& session = State();
  if (action == 'G' && session.CurrentGame == 0) ChooseGame(1, kFirstOpponent + NumberOf(rest));
  if (action == 'U') TheMainWindow().Command1.Click();
  if (action == 'E' && session.CurrentGame != 0) EndGame();
  if (action == 'T') session.Players[1].Tokens += NumberOf(rest);
  if (action == 'R') session.Decks[2].DeckName = rest;
  if (action == 'S') WritePlayerFile(OwnPlayerFileName());
  if (action == 'A') StorePlayer();
  if (action == 'Y') desktop_->YesNoAnswers.push_back(true);
  if (action == 'C') {
    Card gift;
    InitCard(gift, 1, 0);
    gift.Name = "Gift";
    session.Collection.Append(gift);
  }
  if (action == 'B' && session.CurrentGame != 0) {
    Card store = session.RulesCard;
    RunAction(store, store, 1, {.ScriptOverride = "BOOSTERCARD:Imp:2"});
  }
  if (action == 'K') Stop();
  if (action == 'Q' && !TheMainWindow().QueryClose() && desktop_->Ending()) Stop();
}

void Writer::ChangeFromOutside(char action) {
  const std::string name = OwnPlayerFileName();
  if (name.empty()) return;
  const std::string path = Joined(folder_, "/", name);
  Files::PlayerFile& file = files_.ByPath[path];
  if (action == 'D') {
    fs::remove(path);
    file = {};
    return;
  }
  const std::string stranger = Joined("Stranger ", ++files_.Strangers, ".");
  if (action == 'W' || !fs::exists(path)) {
    file = {"#PLAYERDECK\r\n\r\n#TOKENS, 5\r\n", "", {}};
  }
  file.Bytes += Joined("#CARD, COLLECTION, ", stranger, ", S-1, , , , #FFFFFF, \r\n");
  file.Owned.clear();
  file.Strangers.insert(stranger);
  std::ofstream(path, std::ios::binary) << file.Bytes;
}

void Writer::TakeStep(char action, std::string_view rest) {
  constexpr std::string_view kOutside = "XWD";
  State() = std::move(kept_);
  if (action == 'N' && !rest.empty()) {
    Start(std::string(rest), 0);
  } else if (action == 'P') {
    Start("", static_cast<std::size_t>(NumberOf(rest)));
  } else if (desktop_ != nullptr && kOutside.find(action) != kOutside.npos) {
    ChangeFromOutside(action);
  } else if (desktop_ != nullptr) {
    Play(action, rest);
  }
  kept_ = std::move(State());
  State() = Session{};
}

bool IsInCopy(const std::string& path, const std::string& card) {
  return std::ranges::any_of(
      fs::directory_iterator(fs::path(path).parent_path()), [&](const fs::directory_entry& entry) {
        const std::string found = entry.path().string();
        return found.starts_with(path) && BytesOf(found).find(card) != std::string::npos;
      });
}

/// Holds after every step.
void FilesMustBeWhole(const Files& files) {
  for (const auto& [path, file] : files.ByPath) {
    MustHold(BytesOf(path) == file.Bytes, "a player file is not as it was written");
    for (const std::string& card : file.Strangers) {
      MustHold(IsInCopy(path, card), "a card that was added from outside is gone");
    }
  }
}

/// Holds in the end: a third program finds all players, and what was theirs.
void AllMustBeRead(const Files& files, const std::string& folder) {
  const FuzzProgram program(std::make_unique<LocalFileSystem>(), folder);
  LoadProfiles();
  std::set<std::string> listed;
  for (const ProfileRec& row : State().Profiles) listed.insert(row.PlayerName.Str());
  for (const std::string& player : files.Players) {
    MustHold(listed.contains(player), "a player is gone from the list");
  }
  for (const auto& [path, file] : files.ByPath) {
    if (file.Owned.empty()) continue;
    State().Problems.clear();
    State().Collection.Reset(1);
    for (DeckRec& deck : State().Decks) deck.Cards.Reset(1);
    MustHold(ReadPlayerFile(fs::path(path).filename().string()), "a player file can't be read");
    MustHold(State().Problems.empty(), "a player file has problems");
    MustHold(Owned() == file.Owned, "a player file holds something else than was owned");
  }
}

}  // namespace

/// Lines of steps: "1" or "2" for the program, the letter of an action, and what belongs to it.
void FuzzWriters(std::string_view bytes) {
  const MadeFolder folder(SmallGame());
  Files files;
  {
    std::array<Writer, 2> writers = {Writer(files, folder.Path()), Writer(files, folder.Path())};
    int steps = 0;
    for (const std::string& line : LinesOf(bytes)) {
      // What a user types is UTF-8.
      if (line.size() < 2 || !IsUtf8(line) || ++steps > kMostSteps) continue;
      writers[line[0] == '2' ? 1 : 0].TakeStep(line[1], std::string_view(line).substr(2));
      FilesMustBeWhole(files);
      MustHold(writers[0].Player().empty() || writers[0].Player() != writers[1].Player(),
               "two programs have the same player");
    }
  }
  AllMustBeRead(files, folder.Path());
}

}  // namespace brindlemoor
