// Listing folders once.
#include "core/folder_lists.h"

#include <algorithm>
#include <functional>

#include "core/desktop.h"
#include "core/state.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// For putting a list in order, beside its listing.
constexpr std::int64_t kStepsOfOrder = 32;

std::uint64_t FoldHash(std::string_view name) { return std::hash<std::string>()(FoldUpper(name)); }

/// The list of a folder, made now if it is not there. Nothing is listed once the work is spent.
template <class List, class Make>
const List& ListOnce(std::map<std::string, List>& lists, const std::string& folder, Make make) {
  static const List kEmpty(std::vector<std::string>{});
  const auto known = lists.find(folder);
  if (known != lists.end()) return known->second;
  WorkBudget& work = State().Work;
  if (work.StopsSearch()) return kEmpty;
  std::vector<std::string> names = make();
  work.Spend(kStepsOfOrder);
  work.SpendOnListing(names.size());
  return lists.emplace(folder, List(std::move(names))).first->second;
}

}  // namespace

ListedFolder::ListedFolder(std::vector<std::string> files) : files_(std::move(files)) {
  byFold_.reserve(files_.size());
  for (const std::string& name : files_) {
    byFold_.emplace_back(FoldHash(name), static_cast<std::uint32_t>(byFold_.size()));
  }
  std::ranges::sort(byFold_);
}

std::vector<std::string_view> ListedFolder::FilesLike(std::string_view name) const {
  std::vector<std::string_view> names;
  const std::pair<std::uint64_t, std::uint32_t> first(FoldHash(name), 0);
  for (auto entry = std::ranges::lower_bound(byFold_, first);
       entry != byFold_.end() && entry->first == first.first; ++entry) {
    const std::string& present = files_[entry->second];
    if (FoldEquals(present, name)) names.push_back(present);
  }
  return names;
}

const ListedFolder& FolderLists::FilesOf(const std::string& folder) {
  return ListOnce(files_, folder, [&] { return Desktop().Files().ListFiles(folder); });
}

const std::vector<std::string>& FolderLists::SubfoldersOf(const std::string& folder) {
  return ListOnce(subfolders_, folder, [&] { return Desktop().Files().ListFolders(folder); });
}

void FolderLists::Forget() {
  files_.clear();
  subfolders_.clear();
}

FolderLists& Folders() {
  Session& session = State();
  if (session.Work.Accounts == 0) session.Lists.Forget();
  return session.Lists;
}

}  // namespace brindlemoor
