// What files add to shared tables: cards of other files, custom strings and trait graphics.
#include <utility>

#include "core/card_files.h"
#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_reader.h"
#include "data/card_reading.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "script/effect_masks.h"

namespace brindlemoor {

namespace {

/// Keys that are compared as fast as one item of an ordinary search.
constexpr std::size_t kKeysOfItem = 4;

bool LeadsOut(std::string_view file) {
  return file.starts_with('/') || file.starts_with('\\') ||
         file.find("..") != std::string_view::npos;
}

/// The path of a referenced file, "" when it is not there. A reference that names its own way only
/// counts by its last component; one that names a folder below means the file there.
std::string ReferencedPath(std::string_view file) {
  const bool isPlain = file.find_first_of("/\\") == std::string_view::npos;
  if (isPlain) {
    std::string own = FileOfOwnGame(file);
    if (!own.empty()) return own;
  }
  const bool isInOrder = isPlain && State().CurrentFolder == State().ProgramFolder;
  if (!file.empty() && !isInOrder && !LeadsOut(file)) {
    std::string path = InCurrentFolder(file);
    if (Desktop().Files().Exists(path)) return path;
  }
  return TakeReferencedFile(file);
}

Text FolderOfGame() {
  const Session& session = State();
  return session.Games.Holds(session.CurrentGame) ? session.Games[session.CurrentGame].Folder
                                                  : Text();
}

/// The cache entry of a file, read now if it is not there; nullptr when it can't be read.
ReferenceFile* CachedFile(const std::string& path) {
  Session& session = State();
  Table<ReferenceFile>& cache = session.RefCache;
  const Text folder = FolderOfGame();
  for (ReferenceFile& entry : cache) {
    if (entry.FileName != path || entry.GameFolder != folder) continue;
    session.TwinsTaken += entry.TookTwins ? 1 : 0;
    return &entry;
  }
  cache.Resize(cache.UpperBound() + 1);
  const int last = cache.UpperBound();
  ReferenceFile& entry = cache[last];
  InitPlayer(entry, kTemporaryState);
  // Named before it is read, so that a file that refers to itself finds what it has so far.
  entry.FileName = path;
  entry.GameFolder = folder;
  const int before = session.TwinsTaken;
  if (TakeCardsOut(path, entry, "")) {
    entry.TookTwins = session.TwinsTaken != before;
    return &entry;
  }
  cache.Resize(last - 1);
  return nullptr;
}

}  // namespace

Card GetRefCard(std::string_view name, std::string_view file) {
  const std::string path = ReferencedPath(file);
  if (path.empty() || name.empty()) return {};
  const ReferenceFile* entry = CachedFile(path);
  if (entry == nullptr) return {};
  SpendWorkOnSearch(static_cast<std::size_t>(entry->Deck.UpperBound()));
  for (const Card& card : entry->Deck) {
    if (card.Name != name) continue;
    Card copy = card;
    RenumberTraitBits(copy);  // the cache outlives games, which number trait names anew
    return copy;
  }
  return {};
}

bool AddCustomString(std::string_view key, std::string_view value) {
  Table<CustomStringRec>& strings = State().CustomStrings;
  if (strings.UpperBound() == 0) strings.Resize(1);
  int slot = 1;
  while (slot <= strings.UpperBound() && !strings[slot].Key.empty() && strings[slot].Key != key) {
    ++slot;
  }
  SpendWorkOnSearch(static_cast<std::size_t>(slot) / kKeysOfItem);
  if (slot > limits::kCustomStrings) return false;
  if (slot > strings.UpperBound()) strings.Resize(slot);
  NoteCustomString(value);
  CustomStringRec& record = strings[slot];
  if (record.Key.empty()) {
    record.Key = key;
    record.Values.Reset(1);
    record.Values[1] = value;
    return true;
  }
  if (record.Values.UpperBound() >= limits::kCustomStringValues) return false;
  record.Values.Append(value);
  return true;
}

void AddTraitGraphic(std::string_view name, std::string_view picture, std::string_view fontColor,
                     std::string_view label, int showSmall, int showLarge) {
  Table<TraitGraphic>& graphics = State().TraitGraphics;
  const bool first =
      graphics.UpperBound() == 0 || (graphics.UpperBound() == 1 && graphics[1].TraitName.empty());
  graphics.Resize(first ? 1 : graphics.UpperBound() + 1);
  TraitGraphic& graphic = graphics[graphics.UpperBound()];
  graphic.TraitName = name;
  graphic.Picture = picture;
  graphic.FontColor = fontColor;
  graphic.Label = label;
  graphic.ShowSmall = static_cast<std::uint8_t>(showSmall);
  graphic.ShowLarge = static_cast<std::uint8_t>(showLarge);
}

}  // namespace brindlemoor
