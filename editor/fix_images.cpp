// The card editor: "Fix Images", which writes the pictures of a folder anew.
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/saving.h"
#include "editor/card_edit.h"
#include "editor/picture_files.h"
#include "images/image_bridge.h"
#include "text/fold.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kSettings = "CardEditor.settings";  // no .txt: that would be a game
constexpr std::string_view kFolderKey = "FixImagesFolder=";
constexpr int kFixedQuality = 85;

std::string SettledFolder() {
  std::string text = Desktop().Files().Read(InProgramFolder(kSettings)).value_or("");
  if (!text.starts_with(kFolderKey)) return "";
  text = text.substr(kFolderKey.size());
  return text.substr(0, text.find_first_of("\r\n"));
}

std::vector<std::string> PicturesOf(const std::string& folder) {
  std::vector<std::string> names;
  for (std::string& name : Desktop().Files().ListFiles(folder)) {
    if (FoldEquals(cGdiPlus::FileExtension(name), "jpg")) names.push_back(std::move(name));
  }
  return names;
}

/// The folder that was settled, or another that the user would rather take; "" for none.
std::string ConfirmedFolder() {
  std::string folder = SettledFolder();
  const bool settled = folder.starts_with('/') && Desktop().Files().FolderExists(folder);
  if (!settled) folder.clear();
  while (true) {
    if (!folder.empty()) {
      const int count = static_cast<int>(PicturesOf(folder).size());
      if (count == 0) {
        Desktop().MessageBox(Joined("There are no .jpg files in ", folder, "."));
      } else if (Desktop().AskYesNo(Joined("Write all ", count, " .jpg files of ", folder,
                                           " anew with quality ", kFixedQuality, "?"))) {
        Desktop().Files().TakeChoice(folder);
        return folder;
      }
    }
    const auto chosen = Desktop().AskFolder("Folder whose .jpg files are written anew");
    if (!chosen || chosen->empty()) return "";
    folder = *chosen;
    SaveOrTell(InProgramFolder(kSettings), kSettings, Joined(kFolderKey, folder, "\r\n"));
  }
}

}  // namespace

void CardEdit::Command7_Click() {
  const std::string folder = ConfirmedFolder();
  if (folder.empty()) return;
  State().CurrentFolder = folder;
  const std::vector<std::string> names = PicturesOf(folder);
  std::shared_ptr<cGdiPlus>& bridge = State().ImageBridge;
  if (bridge == nullptr) bridge = std::make_shared<cGdiPlus>();
  ShortList failed;
  ProgressForm& progress = TheProgressForm();
  const int done = progress.Run("Fix Images", static_cast<int>(names.size()), [&](int index) {
    const std::string& name = names[static_cast<std::size_t>(index)];
    progress.What.Caption = name;
    const std::string path = Joined(folder, "/", name);
    PictureBox box("MainPic");  // a large picture is not kept longer than its turn takes
    auto picture = bridge->FilenameToIPicture(path);
    if (picture) box.Drawing = std::make_shared<const Raster>(std::move(*picture));
    if (!picture || !bridge->PictureBoxToFile(box, path, kFixedQuality)) failed.Add(name);
  });
  EnterProgramFolder();
  std::string report = Joined(CountText(done - failed.Count(), "image"), " written anew.");
  if (failed.Count() > 0) report += Joined("  Not read or written: ", failed.Told(), ".");
  Desktop().MessageBox(report);
}

}  // namespace brindlemoor
