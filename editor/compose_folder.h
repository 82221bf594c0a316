// Composing the card images of a whole program folder, without the card editor's window.
#pragma once

#include <string>

#include "images/card_images.h"

namespace brindlemoor {

struct FolderComposition {
  int Images = 0;      ///< that were composed
  std::string Failed;  ///< what could not be read or written, "" for nothing
};

/// Composes the images that the lists "CardImages.list" of the program's folder and of its direct
/// subfolders record, each beside its list and framed in the colour of a card that shows it. Cards
/// are looked for in all card files of these folders; the collection is not kept.
/// quality, from 0 to 100, is that of the large images.
FolderComposition ComposeFolderImages(int quality = kMainQuality);

}  // namespace brindlemoor
