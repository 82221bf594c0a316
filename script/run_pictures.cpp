// Drawing a run's card pictures, where one of its commands may show them.
#include "script/run_pictures.h"

#include "core/state.h"
#include "pages/card_pages.h"
#include "pages/unread_texts.h"
#include "script/run.h"

namespace brindlemoor {

void DrawPictures(Run& run) {
  // Those of a test are never seen.
  if (State().RunDepth > 1 || run.Testing() || !run.Fields.WantsPictures()) return;
  if (run.Fields.OnlyShowsPictures() && LeavesOutPicture(run.Source) &&
      LeavesOutPicture(run.Target)) {
    return;
  }
  run.SourcePicture = CardPictureHtml(run.Source, -1, 1);
  if (run.Source.GlobalID == run.Target.GlobalID) return;
  run.TargetPicture = CardPictureHtml(run.Target, -1, run.Source.Owner == run.Target.Owner ? 2 : 1);
}

}  // namespace brindlemoor
