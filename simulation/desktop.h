// SimulationDesktop: a desktop that shows nothing and keeps nothing.
#pragma once

#include <memory>
#include <string>

#include "platform/headless/headless_platform.h"
#include "simulation/cached_files.h"

namespace brindlemoor {

class SimulationDesktop : public HeadlessPlatform {
 public:
  explicit SimulationDesktop(std::unique_ptr<CachedFileSystem> files)
      : HeadlessPlatform(std::move(files)) {}

  CachedFileSystem& Cache() { return static_cast<CachedFileSystem&>(Files()); }
  /// Starts the sequence that stands for the clock.
  void Restart(std::uint64_t seed) { seed_ = seed; }

  void MessageBox(std::string_view) override {}
  bool AskYesNo(std::string_view) override { return false; }
  SaveAnswer AskSaving(std::string_view) override { return SaveAnswer::kDiscard; }
  std::size_t AskChoice(std::string_view, const std::vector<std::string>& captions) override {
    return captions.size() - 1;
  }
  void RaiseForm(Form&) override {}
  void Navigate(BrowserView&, const std::string&) override {}
  std::uint64_t ClockSeed() override { return seed_++; }

 private:
  std::uint64_t seed_ = 0;
};

}  // namespace brindlemoor
