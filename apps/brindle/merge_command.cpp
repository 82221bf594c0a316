// brindle merge: the shards of a simulation, added up.
#include "apps/brindle/commands.h"
#include "apps/brindle/report_output.h"
#include "platform/files.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

struct MergeOptions {
  ReportOutput Output;
};

constexpr std::array<Option<MergeOptions>, 3> kOptions = {{
    {"--csv", StoreForm<0, MergeOptions>, true, true},
    {"--json", StoreForm<1, MergeOptions>, true, true},
    {"--html", StoreForm<2, MergeOptions>, true, true},
}};

/// "" or what is wrong with the file.
std::string ReadShard(const std::string& path, NamedTotals& shard) {
  shard.Name = path;
  const auto bytes = LocalFileSystem().Read(path);
  if (!bytes) return Joined("can't read ", path);
  const std::string problem = ReadTotals(*bytes, shard.File);
  return problem.empty() ? "" : Joined("can't use ", path, ": ", problem);
}

}  // namespace

int RunMerge(Arguments arguments) {
  MergeOptions options;
  std::vector<std::string> paths;
  const int wrong = ReadOptions<MergeOptions>(arguments, kOptions, options, paths);
  if (wrong != kSuccess) return wrong;
  if (paths.empty()) return WrongUsage("a file is missing behind ", "merge");
  std::string problem = OutputProblem(options.Output);
  if (!problem.empty()) return Refuse(problem, kWrongUsage);

  ShardMerge merge;
  for (const std::string& path : paths) {
    NamedTotals shard;
    problem = ReadShard(path, shard);
    if (!problem.empty()) return Refuse(problem, kWrongUsage);
    problem = merge.Add(shard);
    if (!problem.empty()) return Refuse(problem, kFailure);
  }
  TotalsFile merged;
  problem = merge.Finish(merged);
  if (!problem.empty()) return Refuse(problem, kFailure);
  return WriteReport(MakeReport(merged), options.Output);
}

}  // namespace brindlemoor
