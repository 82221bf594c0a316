// Carrying out an update of the shipped games.
#include "sharing/games_update.h"

#include <optional>
#include <string_view>
#include <vector>

#include "core/strings.h"
#include "platform/files.h"
#include "sharing/entry_names.h"
#include "sharing/file_stage.h"
#include "sharing/first_lines.h"
#include "sharing/update_plan.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr StagePurpose kUpdate{"update", "The files of an update, to be moved to their places:\n",
                               &WhyNoPlace, false};
constexpr std::string_view kGames = "The games that come with the program";

std::string InFolder(const std::string& folder, std::string_view name) {
  return Joined(folder, "/", name);
}

std::string Failed(const std::string& problem) {
  return Joined(kGames, " could not be updated: ", problem, ".");
}

/// What was put there stays the program's as long as nobody touches it.
FileStage::Permission MayReplace(const PutBefore& before) {
  return [&before](const std::string& name) {
    return name == kShippedList ? std::optional(true) : before.IsUntouched(name);
  };
}

class Update {
 public:
  Update(FileSystem& files, const std::string& folder, const std::string& shippedFolder)
      : files_(files), folder_(folder), shippedFolder_(shippedFolder) {}

  std::string Run() {
    const auto bytes = files_.Read(InFolder(shippedFolder_, kShippedList));
    const auto shipped = ReadShippedList(bytes.value_or(""));
    if (!shipped) return "";
    std::string told = FinishEarlier(*shipped);
    const auto record = files_.Read(InFolder(folder_, kShippedList));
    if (record == bytes) return told;
    if (!record && IsThere(files_, InFolder(folder_, kShippedList))) {
      return Failed(Joined("\"", kShippedList, "\" can't be read"));
    }
    const PutBefore before(files_, folder_, ReadShippedList(record.value_or("")), *shipped);
    if (!before.WasFilled()) return told;
    const UpdatePlan plan = PlanUpdate(files_, folder_, before, shipped->Latest);
    if (!plan.Problem.empty()) return Failed(plan.Problem);
    const std::string done = CarryOut(plan, before, *shipped, *bytes);
    return Joined(told, told.empty() || done.empty() ? "" : "\n\n", done);
  }

 private:
  std::string FinishEarlier(const ShippedList& shipped) {
    FileStage stage(files_, folder_, kUpdate);
    if (!stage.IsHeld() || !stage.HasLeftovers()) return "";
    if (!stage.TakeLeftovers()) {
      stage.Clear();
      return "";  // nothing was changed, and the update begins anew
    }
    const auto record = files_.Read(InFolder(folder_, kShippedList));
    const PutBefore before(files_, folder_, ReadShippedList(record.value_or("")), shipped);
    const std::string problem = stage.MoveIn(MayReplace(before));
    if (!problem.empty()) return Failed(problem);
    return stage.Moved() == 0 ? "" : Joined(kGames, " have been updated.");
  }

  std::string CarryOut(const UpdatePlan& plan, const PutBefore& before, const ShippedList& shipped,
                       std::string_view list) {
    FileStage stage(files_, folder_, kUpdate);
    if (!stage.IsHeld() || stage.HasLeftovers()) return "";
    std::string problem = Fill(stage, plan, shipped);
    // The list comes last: until it is there, what the files were held against is the old one.
    if (problem.empty()) problem = stage.Add(kShippedList, list);
    if (problem.empty()) problem = stage.Complete();
    if (!problem.empty()) {
      stage.Clear();
      return Failed(problem);
    }
    problem = stage.MoveIn(MayReplace(before));
    return problem.empty() ? Told(plan) : Failed(problem);
  }

  std::string Fill(FileStage& stage, const UpdatePlan& plan, const ShippedList& shipped) {
    for (const std::string& name : plan.Written) {
      const auto bytes = files_.Read(InFolder(shippedFolder_, name));
      // While a package is being installed the list may be newer than the file.
      if (!bytes || HashOf(*bytes) != shipped.Latest.at(name)) {
        return Joined(InFolder(shippedFolder_, name), " is not the file that was shipped");
      }
      std::string problem = stage.Add(name, *bytes);
      if (!problem.empty()) return Joined(name, ": ", problem);
    }
    for (const std::string& name : plan.Removed) stage.AddRemoval(name);
    return "";
  }

  std::string Told(const UpdatePlan& plan) const {
    const std::size_t count = plan.Written.size() + plan.Removed.size();
    if (count == 0 && plan.Kept.empty() && plan.Named.empty()) return "";
    std::string text = count == 0 ? "There are newer games with the program."
                                  : Joined(kGames, " have been updated: ",
                                           CountText(static_cast<int>(count), "file"), ".");
    if (!plan.Kept.empty()) {
      text += Joined("\n\nThese files are yours and stayed as they are:\n", FirstLines(plan.Kept),
                     "\nThe newer ones are in \"", shippedFolder_, "\".");
    }
    if (!plan.Named.empty()) {
      text += Joined("\n\nNo longer part of the games, but kept, as your files name them:\n",
                     FirstLines(plan.Named));
    }
    return text;
  }

  FileSystem& files_;
  const std::string& folder_;
  const std::string& shippedFolder_;
};

}  // namespace

std::string UpdateGames(FileSystem& files, const std::string& folder, const std::string& shipped) {
  return Update(files, folder, shipped).Run();
}

}  // namespace brindlemoor
