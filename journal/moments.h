// Moments of a session: where events reach the logic, counted the same way in a recording and in a
// replay.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// When an event came: between the others, while the program waited in one of the calls to its
/// desktop that an earlier event led to, or in the middle of an event behind such a call.
struct Moment {
  int Event = -1;  ///< the earlier event, 0 the start of the program; -1 for none
  int Call = 0;    ///< its call, from 1; with Behind how many there were
  bool Behind = false;
  bool operator==(const Moment&) const = default;

  /// "-", "17.3", or "17.3+" with Behind.
  std::string Text() const;
  static std::optional<Moment> Read(std::string_view text);
};

/// Follows which events and calls are in progress. Calls are those in which a desktop may let
/// events run.
class MomentCounter {
 public:
  void BeginEvent(int number) { progress_.push_back({number, 0, true}); }
  void EndEvent() { progress_.pop_back(); }
  void BeginCall();
  void EndCall() { progress_.pop_back(); }

  /// The moment of an event that comes now.
  Moment Now() const { return progress_.empty() ? Moment{} : progress_.back(); }
  /// The event in progress, at the moment behind its last call.
  Moment InnermostEvent() const;
  /// How many events and calls are in progress.
  std::size_t Depth() const { return progress_.size(); }

 private:
  std::vector<Moment> progress_;  // an event as the moment behind its last call
};

}  // namespace brindlemoor
