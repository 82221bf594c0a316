// Reading and writing the sizes of letters: lines such as "MainWindow=120", in percent.
#include "platform/qt/letter_sizes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/files.h"

namespace brindlemoor {

namespace {

constexpr const char* kFile = "LetterSizes.settings";
constexpr std::size_t kMostWindows = 100;  // that a file may name
constexpr double kWhole = 100.0;           // percent

int Percent(double size) {
  return static_cast<int>(
      std::lround(std::clamp(size, LetterSizes::kSmallest, LetterSizes::kLargest) * kWhole));
}

}  // namespace

LetterSizes::LetterSizes(FileSystem& files, const std::string& folder)
    : files_(files), path_(folder + "/" + kFile) {
  const std::string text = files_.Read(path_).value_or("");
  std::string_view rest = text;
  while (!rest.empty() && percents_.size() < kMostWindows) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(rest.size(), line.size() + 1));
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) continue;
    int percent = 0;
    const char* end = line.data() + line.size();
    if (std::from_chars(line.data() + sign + 1, end, percent).ec != std::errc()) continue;
    percents_[std::string(line.substr(0, sign))] = Percent(percent / kWhole);
  }
}

double LetterSizes::Of(const std::string& window) const {
  const auto found = percents_.find(window);
  return found == percents_.end() ? 1.0 : found->second / kWhole;
}

void LetterSizes::Keep(const std::string& window, double size) {
  const int percent = Percent(size);
  if (percent == Percent(Of(window))) return;
  percents_.erase(window);
  if (percent != Percent(1.0)) percents_[window] = percent;
  std::string text;
  for (const auto& [name, value] : percents_) text += name + "=" + std::to_string(value) + "\n";
  files_.Write(path_, text);
}

}  // namespace brindlemoor
