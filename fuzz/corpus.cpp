// The targets as a table, and the inputs to begin with: what the shipped games hold.
#include <algorithm>
#include <random>
#include <set>

#include "archive/zip_library.h"
#include "core/cards.h"
#include "core/desktop.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_reader.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "fuzz/made_folder.h"
#include "game/kept_matches.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "platform/headless/memory_archives.h"
#include "platform/headless/memory_images.h"
#include "script/card_setup.h"
#include "script/command_table.h"
#include "script/parsed_script.h"
#include "simulation/automatic_player.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using Inputs = std::vector<std::string>;

std::vector<FolderFile> TextFilesOf(const std::string& folder) {
  const LocalFileSystem machine;
  std::vector<FolderFile> files;
  const auto add = [&](const std::string& below) {
    for (const std::string& name : machine.ListFiles(folder + below)) {
      if (!name.ends_with(".txt")) continue;
      files.push_back({Joined(below.empty() ? "" : below.substr(1) + "/", name),
                       machine.Read(Joined(folder, below, "/", name)).value_or("")});
    }
  };
  add("");
  for (const std::string& name : machine.ListFolders(folder)) add("/" + name);
  return files;
}

/// Every card of the shipped games, as their files define them.
std::vector<Card> ShippedCards(const std::string& folder) {
  FuzzSession session;
  std::vector<Card> cards;
  const auto add = [&cards](const Pile& pile) {
    for (const Card& card : pile) cards.push_back(card);
  };
  for (const FolderFile& file : TextFilesOf(folder)) {
    session.WriteFile("Input.txt", file.Bytes);
    InitPlayer(State().GameDeck, kGameDeckState);
    ReadCards("Input.txt", State().GameDeck, 1, "INDECK", 1);
    add(State().GameDeck.Deck);
    cards.push_back(State().RulesCard);
  }
  add(State().TraitActions);
  return cards;
}

Inputs Different(const std::set<std::string>& inputs) { return {inputs.begin(), inputs.end()}; }

/// What a function finds in every script of the shipped games.
template <class Find>
Inputs FromScripts(const std::string& folder, Find find) {
  std::set<std::string> inputs;
  for (const Card& card : ShippedCards(folder)) {
    for (const CardEffect& effect : card.Effects) {
      if (!effect.Script.empty()) find(effect.Script, inputs);
    }
  }
  return Different(inputs);
}

/// The arguments of a kind that a script's commands have.
void AddArguments(const Text& script, ArgumentKind kind, std::set<std::string>& inputs) {
  const ParsedScript& fields = ParsedScript::Of(script);
  for (int field = 1; field <= fields.FieldCount(); ++field) {
    const Command* row = fields.RowAt(field).Row;
    if (row == nullptr) continue;
    FieldWalker names(ArgumentNames(*row), ' ');
    for (int argument = 1; argument <= row->Arguments; ++argument) {
      if (KindOfArgument(names.Next()) == kind) inputs.emplace(fields.Field(field + argument));
    }
  }
}

Inputs CardFiles(const std::string& folder) {
  Inputs inputs;
  for (FolderFile& file : TextFilesOf(folder)) inputs.push_back(std::move(file.Bytes));
  for (FolderFile& file : FilesOfText(SmallGame())) inputs.push_back(std::move(file.Bytes));
  return inputs;
}

Inputs Scripts(const std::string& folder) {
  return FromScripts(folder, [](const Text& script, std::set<std::string>& inputs) {
    inputs.insert(script.Str());
  });
}

Inputs Values(const std::string& folder) {
  return FromScripts(folder, [](const Text& script, std::set<std::string>& inputs) {
    AddArguments(script, ArgumentKind::kValue, inputs);
  });
}

Inputs Messages(const std::string& folder) {
  std::set<std::string> inputs;
  for (const Card& card : ShippedCards(folder)) {
    inputs.insert(Joined(card.Description, "\n%HIT%=hits $TARGETNAME"));
    for (const Text& caption : card.TraitCaptions) inputs.insert(caption.Str());
    for (const CardEffect& effect : card.Effects) {
      AddArguments(effect.Script, ArgumentKind::kMessage, inputs);
    }
  }
  return Different(inputs);
}

/// Messages, and pieces of markup thrown together.
Inputs Pages(const std::string& folder) {
  constexpr std::string_view kPieces[] = {
      "<",      "</",     "<!--",  "-->",  "<![CDATA[", "]]>",      "<?",       ">",    "/>",
      " ",      "\t",     "/",     "=",    "\"",        "'",        "&#60;",    "x",    "b",
      "script", "style",  "svg",   "img",  "a",         "table",    "<td",      "<img", "<font",
      "src=",   "href=",  "color", "on=x", "CARD1",     "http:",    "//",       "\\",   "<script>",
      "</b>",   "</svg>", "`",     "\r\n", "\x1B",      "\xC3\xA9", "style=\"", "<a "};
  Inputs inputs = Messages(folder);
  std::minstd_rand random(1);
  for (int text = 0; text < 500; ++text) {
    std::string input;
    for (int piece = 0; piece < 25; ++piece) input += kPieces[random() % std::size(kPieces)];
    inputs.push_back(std::move(input));
  }
  return inputs;
}

/// The files of a player who has opened the first starter deck.
FolderFile PlayersFile(const std::string& folder, std::string_view ending) {
  FuzzSession session;
  for (const FolderFile& file : TextFilesOf(folder)) session.WriteFile(file.Name, file.Bytes);
  NewGame();
  ChooseGame(1, 1);
  EndGame();
  for (const std::string& name : Desktop().Files().ListFiles(std::string(kFuzzFolder))) {
    if (name.ends_with(ending)) return {name, session.ReadFile(name)};
  }
  return {};
}

Inputs PlayerFiles(const std::string& folder) { return {PlayersFile(folder, ".plr").Bytes}; }

Inputs ProfileLists(const std::string& folder) {
  return {PlayersFile(folder, "Profiles.txt").Bytes,
          "\"#PLAYERPROFILE\",\"Ann\",\"Ann_Small.plr:Small.txt\",\"\",\"\",\"\"\r\n\r\n"};
}

Inputs Links(const std::string&) {
  return {"WCARD102\nDMENUACTION:102:1\nT\n", "WGAME:1:2\nT\nWCARD100\nWCARDRulesCard\n",
          "WHELP:SmallHelp.html\nPCARD101\nDMENUACTION:101:2\n",
          "WGAME:1:3\nDMENUACTION:102:1\nT\nT\n"};
}

Inputs Images(const std::string&) {
  Raster picture(3, 2);
  picture.SetPixel(1, 1, 0xFF8000);
  return {MemoryImageLibrary::PixmapBytes(picture), "P6\n# word\n2 1\n255\nabcdef"};
}

Inputs Matches(const std::string& folder) { return {SmallGame(), FolderText(TextFilesOf(folder))}; }

Inputs Folders(const std::string&) { return StrangeFolders(SmallGame()); }

Inputs Writers(const std::string&) {
  return {
      "1NAnn\n2NBo\n1G0\n2G0\n1E\n2E\n1C\n1T5\n1S\n2S\n1Q\n2Q\n1P1\n2P0\n2P1\n",
      "1NAnn\n2NBo\n1G0\n", "1NAnn\n2NAnn\n2P0\n2P1\n2NBo\n1NCy\n2K\n2NDi\n1K\n1P0\n2P3\n",
      "1NAnn\n1G0\n1X\n1S\n1Y\n1T5\n1S\n1X\n1T5\n1Y\n1A\n1E\n1U\n1Q\n2P0\n2G1\n2X\n2U\n2E\n",
      "1NAnn\n1G0\n1E\n1U\n1G1\n1B\n1Rfast, \"small\"\n1A\n1W\n1U\n1K\n2P0\n2G2\n2B\n2D\n2S\n2Q\n"};
}

/// The small game behind each of some turns, with a plan for the next one.
Inputs SavedMatches(const std::string&) {
  FuzzSession session;
  for (const FolderFile& file : FilesOfText(SmallGame())) session.WriteFile(file.Name, file.Bytes);
  PlayDeckManagers(session.Desktop());
  NewGame();
  ChooseGame(1, kFirstOpponent);
  EndGame();
  NewGame();
  ChooseGame(1, kFirstOpponent + 1);
  Inputs inputs;
  for (int turn = 0; turn < 4; ++turn) {
    PlanAutomaticPlays();
    if (turn == 1) LayOutSmallTable();
    const MatchFileBytes file = ComposeMatchFile(7);
    MustHold(file.Problem.empty(), file.Problem);
    inputs.push_back(file.Bytes);
    TakeTurn(0);
  }
  return inputs;
}

/// The small game in both formats, and in the plain one what no archive may have.
Inputs Archives(const std::string&) {
  std::vector<ArchiveFile> files;
  for (const FolderFile& file : FilesOfText(SmallGame())) files.push_back({file.Name, file.Bytes});
  Inputs inputs(2);
  ZipLibrary().Write(files, inputs[0]);
  MemoryArchiveLibrary().Write(files, inputs[1]);
  const std::string plain = inputs[1];
  for (const std::string_view entry :
       {"FILE 1 ../a.txt\nx", "LINK 3 art/a.png\nabc", "FOLDER 0 art/\nFILE 1 ART/b.png\nx"}) {
    inputs.push_back(Joined(plain, entry));
  }
  return inputs;
}

/// The small game's files as they are typed, to some line, and frames.
Inputs Typed(const std::string&) {
  Inputs inputs = {
      "@raw\nContent-Length: 45\r\n\r\n{\"id\":1,\"method\":\"initialize\",\"params\":{}   }",
      "@raw\nContent-Length: many\r\n\r\n{}Content-Length: 2\r\n\r\n[]"};
  for (const FolderFile& file : FilesOfText(SmallGame())) {
    for (std::size_t end = 0; end < file.Bytes.size(); end = file.Bytes.find('\n', end + 40)) {
      inputs.push_back(file.Bytes.substr(0, end));
    }
    inputs.push_back(file.Bytes);
  }
  return inputs;
}

constexpr FuzzTarget kTargets[] = {
    {"card_file", FuzzCardFile, CardFiles},
    {"script", FuzzScript, Scripts},
    {"value", FuzzValue, Values},
    {"message", FuzzMessage, Messages},
    {"page", FuzzPage, Pages},
    {"player_file", FuzzPlayerFile, PlayerFiles},
    {"profile_list", FuzzProfileList, ProfileLists},
    {"links", FuzzLinks, Links},
    {"image", FuzzImage, Images},
    {"match", FuzzMatch, Matches},
    {"archive", FuzzArchive, Archives},
    {"folder", FuzzFolder, Folders},
    {"writers", FuzzWriters, Writers},
    {"saved_match", FuzzSavedMatch, SavedMatches},
    {"server", FuzzServer, Typed},
};

}  // namespace

std::span<const FuzzTarget> FuzzTargets() { return kTargets; }

const FuzzTarget* FindFuzzTarget(std::string_view name) {
  const auto* row = std::ranges::find(kTargets, name, &FuzzTarget::Name);
  return row != std::end(kTargets) ? row : nullptr;
}

}  // namespace brindlemoor
