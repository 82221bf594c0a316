// ScenarioLibrary: what scenarios read of game data, read once for all of them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "scenario/machine_files.h"

namespace brindlemoor {

class FileSystem;
struct Session;
struct Scene;

class ScenarioLibrary {
 public:
  ScenarioLibrary();
  /// Reads through files, which must outlive it.
  explicit ScenarioLibrary(FileSystem& files);
  ~ScenarioLibrary();
  ScenarioLibrary(const ScenarioLibrary&) = delete;
  ScenarioLibrary& operator=(const ScenarioLibrary&) = delete;

  MachineFiles& Machine() { return machine_; }

  /// The card called so (by name or unique ID) in a card file; an empty record when there is none.
  /// Reading it changes nothing of the session.
  Card Definition(const Scene& scene, const std::string& path, std::string_view name);

  /// Reads a rules file into the session as the start of a match does. A session in which nothing
  /// was laid out yet gets what an earlier scenario read. False when it can't be read.
  bool ReadRules(const Scene& scene, const std::string& path);

 private:
  using Cards = std::vector<Card>;

  MachineFiles machine_;
  std::map<std::string, Cards> definitions_;
  std::map<std::string, std::unique_ptr<Session>> rules_;
};

/// Lets the random source run a sequence of its own while something is laid out, so that what
/// scripts roll depends on the scenario's seed alone.
class OwnSequence {
 public:
  OwnSequence();
  ~OwnSequence();
  OwnSequence(const OwnSequence&) = delete;
  OwnSequence& operator=(const OwnSequence&) = delete;

 private:
  std::uint64_t outer_;
};

/// The tables of a session as a game begins with: one free element each, bit values, piles.
void PrepareTables();

/// The path of a card file that a scenario names, "" when there is none.
std::string FindGameFile(const std::string& name);

}  // namespace brindlemoor
