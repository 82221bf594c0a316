// Judging an archive while it is read.
#include "sharing/game_archive.h"

#include <algorithm>
#include <map>
#include <utility>

#include "check/checked_file.h"
#include "core/desktop.h"
#include "sharing/entry_names.h"
#include "text/encoding.h"
#include "text/fold.h"
#include "text/one_line.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kShownName = 200;  // bytes of a name in a message

/// A name of strangers in a message: one line of harmless characters.
std::string Shown(std::string_view name) {
  const bool isText = IsUtf8(name);
  std::string shown;
  for (const char character : name.substr(0, kShownName)) {
    const auto byte = static_cast<unsigned char>(character);
    shown += byte < 0x20 || byte == 0x7F || (byte > 0x7F && !isText) ? '?' : character;
  }
  return Joined("\"", shown, name.size() > kShownName ? "…" : "", "\"");
}

class ArchiveJudge : public ArchiveVisitor {
 public:
  explicit ArchiveJudge(std::size_t archiveBytes) : archiveBytes_(archiveBytes) {}

  bool Begin(const ArchiveEntry& entry) override {
    if (++entries_ > kMostEntries) {
      return Refuse(Joined("has more than ", kMostEntries, " entries"));
    }
    isFile_ = entry.Kind == ArchiveEntryKind::kFile;
    const std::string why = WhyNot(entry);
    if (!why.empty()) return Refuse(Joined("has the entry ", Shown(entry.Name), ", which ", why));
    if (isFile_) result_.Files.push_back({entry.Name, ""});
    return true;
  }

  bool Take(std::string_view bytes) override {
    result_.Bytes += bytes.size();
    if (result_.Bytes > kMostUnpacked) {
      return Refuse(Joined("holds more than ", SizeText(kMostUnpacked)));
    }
    if (result_.Bytes > kFreelyUnpacked && result_.Bytes / kMostGrowth > archiveBytes_) {
      return Refuse(Joined("holds more than ", kMostGrowth, " times its own size"));
    }
    if (!isFile_ && !bytes.empty()) return Refuse("has a folder with bytes of its own");
    if (isFile_) result_.Files.back().Bytes += bytes;
    return true;
  }

  GameArchive TakeResult(const std::string& damage) {
    if (result_.Problem.empty() && !damage.empty()) Refuse(damage);
    if (result_.Problem.empty()) {
      std::ranges::sort(result_.Files, {}, &ArchiveFile::Name);
      FindGames();
      if (result_.Games.empty()) Refuse("holds no game: no file at its top has #GAMERULES");
    }
    if (result_.Problem.empty()) return std::move(result_);
    return {{}, {}, 0, std::move(result_.Problem)};
  }

 private:
  bool Refuse(std::string_view what) {
    result_.Problem = Joined("The archive ", what, ".");
    return false;
  }

  std::string WhyNot(const ArchiveEntry& entry) {
    if (entry.Kind == ArchiveEntryKind::kLink) return "is a link";
    if (entry.Kind == ArchiveEntryKind::kOther) return "is neither a file nor a folder";
    if (entry.IsEncrypted) return "is encrypted";
    const std::string_view name = entry.Name;
    std::string why = isFile_ ? WhyNoEntry(name) : WhyNoFolderEntry(name);
    if (!why.empty()) return why;
    return IsTaken(name.substr(0, name.size() - (name.ends_with('/') ? 1 : 0)))
               ? "is there twice, or once as a file and once as a folder"
               : "";
  }

  /// Notes the name and the folder of it: a file's name must be new, a folder's no file's.
  bool IsTaken(std::string_view name) {
    const std::string folded = FoldUpper(name);
    const std::size_t slash = folded.find('/');
    if (slash != folded.npos) {
      const auto [folder, isNew] = taken_.try_emplace(folded.substr(0, slash), false);
      if (!isNew && folder->second) return true;
    }
    const auto [entry, isNew] = taken_.try_emplace(folded, isFile_);
    return !isNew && (isFile_ || entry->second);
  }

  void FindGames() {
    for (const ArchiveFile& file : result_.Files) {
      const bool mayBeGame = file.Name.find('/') == std::string::npos &&
                             KindOfGameFile(file.Name) == GameFileKind::kText;
      std::string game = mayBeGame ? GameDeclaredBy(file.Bytes) : "";
      if (!game.empty()) result_.Games.push_back(std::move(game));
    }
  }

  const std::size_t archiveBytes_;
  std::size_t entries_ = 0;
  bool isFile_ = false;
  std::map<std::string, bool> taken_;  ///< folded names, and which are files
  GameArchive result_;
};

}  // namespace

std::string GameDeclaredBy(const std::string& bytes) {
  constexpr std::string_view kWord = "#GAMERULES";
  if (bytes.find(kWord) == std::string::npos) return "";
  const CheckedFile file("", bytes);
  const auto line = std::ranges::find(file.Directives(), kWord, &CheckedDirective::Word);
  if (line == file.Directives().end() || line->Fields.empty()) return "";
  return std::string(std::string_view(OneLine(line->Fields[0].Text)));
}

std::string SizeText(std::size_t bytes) {
  constexpr std::size_t kKilo = 1024;
  if (bytes < kKilo) return Joined(bytes, " bytes");
  if (bytes < kKilo * kKilo) return Joined((bytes + kKilo - 1) / kKilo, " KB");
  const std::size_t tenths = (bytes * 10 + kKilo * kKilo - 1) / (kKilo * kKilo);
  return Joined(tenths / 10, ".", tenths % 10, " MB");
}

GameArchive ReadGameArchive(std::string_view archive) {
  ArchiveJudge judge(archive.size());
  const std::string damage = Desktop().Archives().Read(archive, judge);
  return judge.TakeResult(damage);
}

}  // namespace brindlemoor
