// EditedImage: the images of the edited card, and the parts that new ones are composed of.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "core/records.h"
#include "editor/kept_pictures.h"
#include "editor/picture_files.h"
#include "platform/controls.h"

namespace brindlemoor {

/// The images of State().EditCard. They are finished while its Picture names a file. Else they are
/// composed of parts: the background and the border stay from card to card; the foreground, with
/// its crop State().Crop, belongs to one card, until what is composed of it has been written.
class EditedImage : public Observed {  // tells of Main and Mini
 public:
  std::string BackFile;  ///< a name, or a file that was picked; "" for none
  std::string MiniBorderFile;
  std::string CardFolder;  ///< folder of the card file with its separator; "" for the program's
  std::function<void(const std::string& note)> OnNote;  ///< is told of what needs no answer

  const std::string& ForeFile() const { return foreground_; }
  static std::int32_t FrameColor();  ///< the card's, red high and blue low
  /// What is to be seen: the large image and the thumbnail.
  const ShownPicture& Main() const { return main_; }
  const ShownPicture& Mini() const { return mini_; }

  /// The first parts, of no card.
  void Begin();
  /// Another card comes.
  void ForgetForeground();
  void Show(ShownPicture main, ShownPicture mini);
  /// Nothing is seen: of a card of no image yet, or of files whose names are those of others now.
  void ShowNothing() { Show({}, {}); }
  /// Shows the finished images, which stay as they were where they can't be found, or those of the
  /// parts. False when these could not be composed, of which the user is told once for a
  /// foreground; then what was shown stays.
  bool Redraw();

  /// Composes images of a foreground that pick asks for. Finished ones, unless they stay, give way
  /// to them. What was before comes back if there is no foreground, or none that can be used.
  void ChooseForeground(const std::function<std::string()>& pick, bool finishedStays);
  void ChooseBackground(const std::string& file);
  /// The user chose a file: as a part it is taken wherever it lies.
  void NotePicked(const std::string& file) { picked_.insert(file); }

  /// True for images that are in no file yet.
  bool IsUnsaved() const;
  /// False when the user would rather stay than lose composed images that could not be written.
  bool MayLeave() const;
  /// Gives a card that is kept the finished images back in whose place others are composed.
  void KeepReplaced(Card& card) const;
  /// The edited card is edited on as it was kept: what is composed for it stays.
  void GoOn(Card& kept) const;
  /// Writes what is composed for the card, of that place in the list, and names it in the card.
  /// False, after a message, when that failed; then everything stays.
  bool Store(int place);
  /// Writes both images to a file and one beside it. False, after a message, if that failed.
  bool SaveAs(const std::string& path);
  /// Write what is seen to a file (absolute, or in the current folder). False, after a message,
  /// when it was not written.
  bool SaveImage(const std::string& file) const;
  bool SaveMini(const std::string& file) const;

  std::string Folder() const;  ///< where composed images go, with its separator
  /// Where a background or border lies; "" for none.
  std::string FindPart(const std::string& name) const;
  /// Names the background and the border as files do, of which picked ones are copied beside the
  /// cards where a game would not find them. False, after a message, when that failed.
  bool KeepParts();
  /// Tells what was copied, and with a message what could not be.
  void TellOf(const KeptPictures& kept) const;

 private:
  /// What a card's images are, or are made of.
  struct Choice {
    Text Picture{};
    Text Thumb{};
    std::string Foreground{};
    CropCoordinates Crop{};
  };

  bool IsComposed() const;
  Choice Present() const;
  /// The card has no finished image any more: another is composed.
  void DropFinished();
  ShownPicture Finished(const Text& name, const ShownPicture& present) const;
  bool Compose();
  bool Write(int place);
  void TellOfMissingBackground();
  /// Returns the name that files have for a part; "" for none.
  std::string KeepPart(KeptPictures& kept, std::string& part) const;
  void RecordRecipe(const std::string& file);

  std::string foreground_;
  ShownPicture main_;
  ShownPicture mini_;
  std::string composedOf_;        // the foreground of the images that are shown, if composed
  std::string unusable_;          // the foreground of which the user was told
  std::string missing_;           // the background of which the user was told
  std::set<std::string> picked_;  // full names
  Choice replaced_;
};

}  // namespace brindlemoor
