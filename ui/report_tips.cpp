// Naming the pictures of resources and traits.
#include "ui/report_tips.h"

#include "core/paths.h"
#include "core/state.h"
#include "game/plan_forecast.h"
#include "pages/card_pages.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

void Add(std::vector<PictureTip>& tips, std::string file, std::string name) {
  if (file.empty() || name.empty()) return;
  name.front() = AsciiUpper(name.front());
  tips.push_back({std::move(file), std::move(name)});
}

}  // namespace

std::vector<PictureTip> ReportTips() {
  std::vector<PictureTip> tips;
  for (const TraitGraphic& graphic : State().TraitGraphics) {
    Add(tips, FileNameOf(graphic.Picture.View()), ResourceName(graphic.TraitName.View()));
  }
  // A badge may show the same picture; behind it, so that the header's word counts.
  for (const HeaderResource& resource : kHeaderResources) {
    Add(tips, std::string(resource.Image), ResourceName(resource.Trait));
  }
  return tips;
}

}  // namespace brindlemoor
