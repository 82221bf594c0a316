// A progress bar with an estimate, on terminals only.
#include "apps/brindle/progress_line.h"

#include <cmath>
#include <iostream>
#include <string>
#include <unistd.h>

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kCells = 30;
constexpr std::chrono::milliseconds kBetweenDrawings{100};

std::string TimeText(double seconds) {
  const auto whole = static_cast<std::int64_t>(std::ceil(seconds));
  if (whole < 100) return Joined(whole, " s");
  if (whole < 100 * 60) return Joined((whole + 30) / 60, " min");
  return Joined((whole + 1800) / 3600, " h");
}

}  // namespace

ProgressLine::ProgressLine(std::int64_t all, std::string_view what)
    : all_(all), what_(what), shows_(::isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
  if (shows_) std::cerr << "\r\x1b[K" << std::flush;
}

void ProgressLine::Add(std::int64_t more) {
  done_ += more;
  if (!shows_) return;
  const Clock::time_point now = Clock::now();
  if (now - drawn_ < kBetweenDrawings) return;
  drawn_ = now;
  Draw(std::chrono::duration<double>(now - start_).count());
}

void ProgressLine::Draw(double seconds) const {
  const double part = all_ > 0 ? static_cast<double>(done_) / static_cast<double>(all_) : 0;
  const auto filled = static_cast<std::size_t>(part * kCells);
  std::string line =
      Joined("\r[", std::string(filled, '#'), std::string(kCells - filled, ' '), "] ",
             static_cast<int>(100 * part), " %  ", done_, " of ", all_, " ", what_);
  if (done_ > 0 && seconds > 0) {
    const double rate = static_cast<double>(done_) / seconds;
    line += Joined(", ", static_cast<std::int64_t>(rate), " a second, ",
                   TimeText(static_cast<double>(all_ - done_) / rate), " left");
  }
  std::cerr << line << "\x1b[K" << std::flush;
}

}  // namespace brindlemoor
