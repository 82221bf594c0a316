// Journals of matches that the computer plays alone.
#pragma once

#include "journal/session_journal.h"
#include "simulation/automatic_match.h"
#include "simulation/simulation.h"

namespace brindlemoor {

/// Writes the head of a match's journal. The options get a handler that notes the pages.
void RecordMatch(JournalWriter& writer, AutomaticMatchOptions& options);
/// Notes how the match ended.
void RecordResult(JournalWriter& writer, const AutomaticMatchResult& result);

/// Plays a match again, up to the first page that differs.
ReplayResult ReplayMatch(const Journal& journal, const ReplayOptions& options);

/// Notes the matches of a simulation, in whichever process they are played.
class SimulationRecorder : public MatchObserver {
 public:
  explicit SimulationRecorder(JournalWriter& writer) : writer_(writer) {}

  /// Writes the head; folder is as the simulation names it.
  void Begin(const SimulationOptions& options);
  void MatchBegins(const MatchKey& key) override;
  void MatchEnds(const MatchKey& key, const PlayedMatch& outcome, const Stage& stage) override;

 private:
  JournalWriter& writer_;
};

/// Plays the matches of a simulation again, up to the first that differs.
ReplayResult ReplaySimulation(const Journal& journal, const ReplayOptions& options);

}  // namespace brindlemoor
