// The work that scripts and files may ask for: counted in steps, so that the same files and the
// same seed end at the same place on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "core/limits.h"

namespace brindlemoor {

/// How much of the present account is spent. A step is a command that is carried out, or as much
/// other work: a card that is tried as a target, a run that is refused, some hundred bytes of text,
/// a file that is looked for, some bytes of a card file.
struct WorkBudget {
  std::int64_t Limit = 0;  ///< steps of one account; 0 stands for limits::kStepsOfTurn
  std::int64_t Done = 0;   ///< steps of the present account, or of the last one
  std::int64_t Total = 0;  ///< steps of all accounts, and of work without one
  std::int64_t Most = 0;   ///< the most that an account took
  int Accounts = 0;        ///< WorkAccount objects that exist
  int LeftOut = 0;         ///< texts of the account that nobody reads and that were not composed
  std::int64_t MostAloud = 0;  ///< more than any account would have taken with them
  std::string StoppedCard{};   ///< whose script was ended first in this account, "" for none
  std::string StoppedFile{};   ///< the file whose reading was ended first, "" for none
  bool SearchStopped = false;  ///< a file was not looked for everywhere
  /// Where IsSpent looks closer: the end of the account, or the next service of the windows.
  std::int64_t NextStop = kNever;

  static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();
  /// The desktop serves its windows this often (Platform::ServeWindows).
  static constexpr std::int64_t kStepsBetweenLooks = 10000;
  /// More than composing a text takes that may be left out (pages/unread_texts.h).
  static constexpr std::int64_t kStepsOfText = 20000;

  void Spend(std::int64_t steps) noexcept {
    Done += steps;
    Total += steps;
  }
  /// For work on a text of so many bytes; what takes about as long as a command is a step.
  void SpendOnText(std::size_t bytes) noexcept {
    constexpr std::size_t kBytesOfStep = 256;
    Spend(static_cast<std::int64_t>(bytes / kBytesOfStep));
  }
  /// For a look through so many items of a list.
  void SpendOnSearch(std::size_t items) noexcept {
    constexpr std::size_t kItemsOfStep = 16;
    Spend(static_cast<std::int64_t>(items / kItemsOfStep));
  }
  /// For one look at whether a folder holds a file.
  void SpendOnLook() noexcept {
    constexpr std::int64_t kStepsOfLook = 3;
    Spend(kStepsOfLook);
  }
  /// For a file that is opened and read.
  void SpendOnFile(std::size_t bytes) noexcept {
    constexpr std::int64_t kStepsOfOpening = 32;
    constexpr std::size_t kBytesOfStep = 256;
    Spend(kStepsOfOpening + static_cast<std::int64_t>(bytes / kBytesOfStep));
  }
  /// For a card file that is taken apart and is read up to a position; counted is up to where it
  /// was counted before.
  void SpendOnFields(std::size_t position, std::size_t& counted) noexcept {
    constexpr std::size_t kBytesOfStep = 64;
    const std::size_t steps = (position - counted) / kBytesOfStep;
    counted += steps * kBytesOfStep;
    Spend(static_cast<std::int64_t>(steps));
  }
  /// For a folder of so many entries that is listed.
  void SpendOnListing(std::size_t entries) noexcept {
    constexpr std::int64_t kStepsOfOpening = 32;
    Spend(kStepsOfOpening + static_cast<std::int64_t>(entries));
  }
  /// May let the desktop show itself; no event reaches the logic in there.
  bool IsSpent() noexcept { return Done >= NextStop && StopsHere(); }
  /// The same for a script of a card that would go on or begin.
  bool Stops(std::string_view acting) {
    if (!IsSpent()) return false;
    if (StoppedCard.empty()) StoppedCard = acting;
    return true;
  }
  /// The same for a file that would be read on.
  bool StopsFile(std::string_view file) {
    if (!IsSpent()) return false;
    if (StoppedFile.empty()) StoppedFile = file;
    return true;
  }
  /// The same for a folder in which a file would be looked for.
  bool StopsSearch() noexcept {
    SearchStopped = SearchStopped || IsSpent();
    return IsSpent();
  }

  /// The number of steps at which the present account is spent.
  std::int64_t Bound() const noexcept { return Limit > 0 ? Limit : limits::kStepsOfTurn; }

 private:
  bool StopsHere() noexcept;
};

/// While one exists, work is counted together: a turn, the judging of a hand, a single run, the
/// read of a file. One inside another counts on the outer one. At its end the page says what was
/// ended.
class WorkAccount {
 public:
  WorkAccount();
  ~WorkAccount();
  WorkAccount(const WorkAccount&) = delete;
  WorkAccount& operator=(const WorkAccount&) = delete;
};

}  // namespace brindlemoor
