// The file of a shard: what was simulated and the raw sums, as text.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "simulation/totals.h"

namespace brindlemoor {

/// A shard, or with 1/1 a whole simulation.
struct TotalsFile {
  SimulationSetup Setup;
  Totals Sums;
};

std::string TotalsText(const TotalsFile& file);

/// True for the bytes of the file of a shard, of any version.
bool IsTotalsFile(std::string_view bytes);

/// The sums alone, as a job of a simulation hands them on. ReadSums reads them for a setup that
/// says what was played; "" or what is wrong.
std::string SumsText(const Totals& sums);
std::string ReadSums(std::string_view text, const SimulationSetup& setup, Totals& sums);

/// Reads the bytes of such a text. "" or what is wrong with it: one that was cut off, or that does
/// not fit to the checksum in its last line, is refused. Files of the first version have none.
std::string ReadTotals(std::string_view bytes, TotalsFile& file);

/// A file with the name by which problems are told.
struct NamedTotals {
  std::string Name;
  TotalsFile File;
};

/// Adds up the shards of one simulation, of which it keeps the sum only.
class ShardMerge {
 public:
  /// "" or why the shard does not fit to those before: other files, other options, a shard twice.
  std::string Add(const NamedTotals& shard);
  /// Hands out the sum. "" or which shards are missing.
  std::string Finish(TotalsFile& merged);

 private:
  std::string first_;  ///< name of the first shard
  std::set<int> present_;
  TotalsFile merged_;
};

}  // namespace brindlemoor
