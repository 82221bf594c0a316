// The card pictures that a run's messages may show.
#pragma once

namespace brindlemoor {

struct Run;

/// Draws the pictures of both cards for the outermost run.
void DrawPictures(Run& run);

}  // namespace brindlemoor
