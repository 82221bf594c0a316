// What benchmarks start from: a fresh session without a display, and the files that are measured.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

#include "core/cards.h"
#include "core/state.h"
#include "editor/program_session.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"

namespace brindlemoor {

/// A fresh session on a folder; messages need not be expected.
inline HeadlessPlatform& StartBenchSession(std::unique_ptr<FileSystem> files, std::string folder,
                                           std::uint64_t seed = 1) {
  auto desktop = std::make_shared<HeadlessPlatform>(std::move(files), seed);
  desktop->AcceptMessages = true;
  OpenProgramSession(desktop, folder);
  return *desktop;
}

/// A file or folder of the tree that the measured files come from.
inline std::string BenchData(std::string_view path) {
  return std::string(BRINDLEMOOR_BENCH_DATA) + "/" + std::string(path);
}

/// A copy of the shipped games in a temporary folder, removed at the end.
class GamesCopy {
 public:
  GamesCopy()
      : path_(std::filesystem::temp_directory_path() /
              ("brindlemoor-bench-" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(path_);
    std::filesystem::copy(BenchData("games"), path_, std::filesystem::copy_options::recursive);
  }
  GamesCopy(const GamesCopy&) = delete;
  GamesCopy& operator=(const GamesCopy&) = delete;
  ~GamesCopy() { std::filesystem::remove_all(path_); }
  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace brindlemoor
