// Adding up shards that are at hand.
#pragma once

#include <string>
#include <vector>

#include "simulation/totals_file.h"

namespace brindlemoor {

inline std::string MergeTotals(const std::vector<NamedTotals>& shards, TotalsFile& merged) {
  ShardMerge merge;
  for (const NamedTotals& shard : shards) {
    if (std::string problem = merge.Add(shard); !problem.empty()) return problem;
  }
  return merge.Finish(merged);
}

}  // namespace brindlemoor
