// Drawing a run's card pictures in the plain engine: every outermost run has them at hand.
#include "script/run_pictures.h"

#include "core/state.h"
#include "pages/card_pages.h"
#include "script/run.h"

namespace brindlemoor {

void DrawPictures(Run& run) {
  if (State().RunDepth > 1) return;
  run.SourcePicture = CardPictureHtml(run.Source, -1, 1);
  if (run.Source.GlobalID == run.Target.GlobalID) return;
  run.TargetPicture = CardPictureHtml(run.Target, -1, run.Source.Owner == run.Target.Owner ? 2 : 1);
}

}  // namespace brindlemoor
