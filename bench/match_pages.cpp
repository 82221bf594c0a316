// Plays automatic matches and prints a line for each: opponent, seed and a hash of its report
// pages. Equal lines of two engines mean equal pages.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <unistd.h>

#include "simulation/automatic_match.h"

namespace fs = std::filesystem;

namespace {

std::uint64_t HashOfFolder(const fs::path& folder) {
  std::set<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.insert(entry.path());
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const fs::path& file : files) {
    std::ifstream stream(file, std::ios::binary);
    for (std::istreambuf_iterator<char> at(stream), end; at != end; ++at) {
      hash = (hash ^ static_cast<unsigned char>(*at)) * 0x100000001B3;
    }
  }
  return hash;
}

/// False when there is no such opponent.
bool Play(const std::string& folder, int opponent, std::uint64_t seed) {
  const fs::path pages =
      fs::temp_directory_path() / ("brindlemoor-pages-" + std::to_string(::getpid()));
  brindlemoor::AutomaticMatchOptions options;
  options.Folder = folder;
  options.PagesFolder = pages.string();
  options.Seed = seed;
  options.Opponent = opponent;
  std::ostringstream ignored;
  const auto result = brindlemoor::AutomaticMatch(options, ignored);
  if (result.Error.empty()) {
    std::printf("opponent %d seed %llu turns %d pages %016llx\n", opponent,
                static_cast<unsigned long long>(seed), result.Turns,
                static_cast<unsigned long long>(HashOfFolder(pages)));
  }
  fs::remove_all(pages);
  return result.Error.empty();
}

}  // namespace

int main(int count, char** words) {
  const int matches = count > 1 ? std::atoi(words[1]) : 20;
  const std::string folder = count > 2 ? words[2] : BRINDLEMOOR_BENCH_DATA "/games";
  int played = 0;
  for (int opponent = 1;; ++opponent) {
    for (int seed = 1; seed <= matches; ++seed) {
      if (!Play(folder, opponent, static_cast<std::uint64_t>(seed))) return played > 0 ? 0 : 1;
      ++played;
    }
  }
}
