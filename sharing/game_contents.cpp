// Following the names in a game's files.
#include "sharing/game_contents.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "core/card_files.h"
#include "core/desktop.h"
#include "core/folder_lists.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/profiles.h"
#include "game/game_files.h"
#include "pages/card_pages.h"
#include "platform/passing_names.h"
#include "sharing/entry_names.h"
#include "sharing/named_files.h"
#include "sharing/test_files.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Pictures that the program shows in every game that has them.
constexpr std::array<std::string_view, 2> kPortraits = {"Player1thumb.bmp", "Player2thumb.bmp"};

bool HoldsDirectives(std::string_view bytes) { return bytes.find('#') != bytes.npos; }

class Following {
 public:
  explicit Following(const GameRec& game) : game_(game), folder_(State().ProgramFolder + "/") {}

  GameContents Take() {
    AddCardFiles();
    for (const HeaderResource& resource : kHeaderResources) AddIfThere(resource.Image);
    for (const std::string_view portrait : kPortraits) AddIfThere(portrait);
    while (!waiting_.empty()) {
      const std::string path = std::move(waiting_.back());
      waiting_.pop_back();
      Follow(path);
    }
    for (std::string& path : TestsOfGame(game_.RulesFile)) Add(path);
    ListLeftOut();
    for (auto& [name, path] : files_) contents_.Files.push_back({std::move(path), name});
    std::ranges::sort(contents_.Problems);
    std::ranges::sort(contents_.Remarks);
    return std::move(contents_);
  }

 private:
  /// The name in the program's folder of what lies there or above.
  std::string NameOf(const std::string& path) const {
    return path.starts_with(folder_) ? path.substr(folder_.size()) : FileNameOf(path);
  }

  void Add(const std::string& path) {
    const std::string name = NameOf(path);
    if (IsProgramsOwn(FileNameOf(name)) || !files_.try_emplace(name, path).second) return;
    waiting_.push_back(path);
  }
  void AddIfThere(std::string_view picture) {
    if (const std::string path = ResolvePath(picture, 0); !path.empty()) Add(path);
  }

  void AddCardFiles() {
    if (!game_.Folder.empty()) {
      for (const std::string& path : CardFilesOf(game_)) {
        // Notes that lie beside the cards are none.
        const auto bytes = Desktop().Files().Read(path);
        if (bytes && HoldsDirectives(*bytes)) Add(path);
      }
    }
    Add(InProgramFolder(game_.RulesFile));
    for (const Text& opponent : game_.OpponentFiles) {
      if (!opponent.empty()) Add(opponent.Str());
    }
  }

  void Follow(const std::string& path) {
    const GameFileKind kind = KindOfGameFile(path);
    if (kind == GameFileKind::kPicture) return;
    const auto bytes = Desktop().Files().Read(path);
    if (!bytes) return;
    const std::string name = NameOf(path);
    if (kind == GameFileKind::kText) FollowCards(name, *bytes);
    if (kind == GameFileKind::kPage) FollowAddresses(name, AddressesOfPage(*bytes));
    if (kind == GameFileKind::kStyle) FollowAddresses(name, AddressesOfStyle(*bytes));
  }

  void FollowCards(const std::string& file, const std::string& bytes) {
    for (const NamedFile& named : FilesNamedBy(bytes)) {
      const std::string place = Joined(file, ", line ", named.Line, ": ");
      if (named.IsComposed) {
        contents_.Remarks.push_back(Joined(place, "\"", named.Name,
                                           "\" is put together while the script runs: which files ",
                                           "it means can't be told."));
      } else {
        AddNamed(named.Name, PathOf(named), place);
      }
    }
  }

  static std::string PathOf(const NamedFile& named) {
    switch (named.Use) {
      case NameUse::kCardFile:
        return PathOfCardFile(named.Name);
      case NameUse::kPicture:
        return ResolvePath(named.Name, 0);
      case NameUse::kPage:
        return PathIfThere(named.Name);
      case NameUse::kAddress:
        break;
    }
    const std::string place = PlaceOfAddress("", named.Name);
    return place.empty() ? "" : PathIfThere(place);
  }
  /// A reference that names a folder below means the file there.
  static std::string PathOfCardFile(const std::string& name) {
    const bool isInside = !name.starts_with('/') && name.find("..") == name.npos;
    const std::string path = isInside && name.find('/') != name.npos ? PathIfThere(name) : "";
    return path.empty() ? FindReferencedFile(name).Path : path;
  }
  static std::string PathIfThere(const std::string& name) {
    const std::string path = InProgramFolder(name);
    return Desktop().Files().Exists(path) ? path : "";
  }

  void FollowAddresses(const std::string& name, const std::vector<std::string>& addresses) {
    const std::size_t slash = name.find('/');
    const std::string folder = slash == name.npos ? "" : name.substr(0, slash);
    for (const std::string& address : addresses) {
      const std::string place = PlaceOfAddress(folder, address);
      if (!place.empty() && IsProgramsOwn(FileNameOf(place))) continue;
      AddNamed(address, place.empty() ? "" : PathIfThere(place), Joined(name, ": "));
    }
  }

  void AddNamed(const std::string& name, const std::string& path, const std::string& place) {
    if (path.empty()) {
      contents_.Problems.push_back(Joined(place, "the file \"", name, "\" is not there."));
    } else if (KindOfGameFile(path) == GameFileKind::kNone) {
      contents_.Remarks.push_back(Joined(place, "\"", name, "\" is no card file, picture, page or ",
                                         "style, and is left out."));
    } else {
      Add(path);
    }
  }

  void ListLeftOut() {
    const std::string& program = State().ProgramFolder;
    ListLeftOutIn(program, "");
    for (const std::string& name : Folders().SubfoldersOf(program)) {
      const std::string folder = Joined(program, "/", name);
      ListLeftOutIn(folder, Joined(name, "/"));
      for (const std::string& below : Folders().SubfoldersOf(folder)) {
        contents_.LeftOut.push_back(Joined(name, "/", below, "/"));
      }
    }
    std::ranges::sort(contents_.LeftOut);
  }
  void ListLeftOutIn(const std::string& folder, const std::string& shownAs) {
    for (const std::string& name : Folders().FilesOf(folder).Files()) {
      const bool isPassing = name.starts_with(kPassingFile);
      if (!isPassing && !files_.contains(shownAs + name))
        contents_.LeftOut.push_back(shownAs + name);
    }
  }

  const GameRec& game_;
  const std::string folder_;
  std::map<std::string, std::string> files_;  ///< paths by name
  std::vector<std::string> waiting_;          ///< paths of files that may name others
  GameContents contents_;
};

}  // namespace

GameContents ContentsOfGame(int gameIndex) {
  const WorkAccount account;
  State().CurrentGame = gameIndex;
  const GameRec game = State().Games[gameIndex];
  GameContents contents = Following(game).Take();
  if (WorkIsSpent()) contents.Problems.emplace_back("The folder takes too much work to read.");
  return contents;
}

}  // namespace brindlemoor
