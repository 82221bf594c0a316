// The picture picker's grid: the files of a folder, a page of them, and loading their pictures.
#include <algorithm>
#include <cmath>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/random.h"
#include "images/picture_picker.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kRows = PicPick::kCells / PicPick::kColumns;
constexpr int kToTheEnd = 1'000'000;

/// Keys of the grid that scroll it: by how many rows, and from which row on.
struct ScrollKey {
  PictureKey Key;
  int Rows;
  int FromRow;  ///< -1 from every row
};
constexpr ScrollKey kScrollKeys[] = {
    {PictureKey::kUp, -1, 0},
    {PictureKey::kDown, 1, kRows - 1},
    {PictureKey::kPageUp, -kRows, -1},
    {PictureKey::kPageDown, kRows, -1},
    {PictureKey::kHome, -kToTheEnd, -1},
    {PictureKey::kEnd, kToTheEnd, -1},
};

std::string WithCommas(int number) {
  std::string digits = std::to_string(number);
  for (int place = static_cast<int>(digits.size()) - 3; place > 0; place -= 3) {
    digits.insert(static_cast<std::size_t>(place), ",");
  }
  return digits;
}

}  // namespace

void PicPick::setfnames() {
  FileList = PicturesIn(Folder());
  FileCount = std::max(static_cast<int>(FileList.size()) - 1, 0);
  FileList.emplace_back();
  VScroll1.Maximum =
      static_cast<int>(std::lround((FileCount - (kCells - 1)) / double{kColumns} + 1));
  VScroll1.Enabled = VScroll1.Maximum > 0;
}

void PicPick::LimitFirstShown() {
  const int upperBound = static_cast<int>(FileList.size()) - 1;
  FirstShown = std::max(std::min(FirstShown, upperBound - kCells), 0);
}

void PicPick::HideCell(int cell) {
  Image1[cell].Visible = false;
  PicNameLabel[cell].Visible = false;
}

void PicPick::FillCell(int cell, const std::string& file, const std::vector<std::string>& loaded) {
  PictureBox& image = Image1[cell];
  const std::string name = FileNameOf(file);
  if (!image.Picture.Get().empty()) LastPictures[static_cast<std::size_t>(cell)] = image.Picture;
  const bool known = std::binary_search(loaded.begin(), loaded.end(), file);
  image.Picture = known ? file : std::string();
  image.Badge = "";
  image.Caption = "";
  image.ToolTip = name;
  PicNameLabel[cell].Caption = name;
  PicNameLabel[cell].ToolTip = name;
  image.Visible = true;
  PicNameLabel[cell].Visible = true;
  if (!known) Waiting.push_back({cell, file});
}

void PicPick::updatpics() {
  std::vector<std::string> loaded;
  loaded.reserve(kCells);
  for (int cell = 0; cell < kCells; ++cell) loaded.push_back(Image1[cell].Picture);
  std::sort(loaded.begin(), loaded.end());
  Waiting.clear();
  for (int cell = 0; cell < kCells; ++cell) {
    const auto number = static_cast<std::size_t>(cell) + static_cast<std::size_t>(FirstShown);
    if (number >= FileList.size() || FileList[number].empty()) {
      HideCell(cell);
    } else {
      FillCell(cell, FileList[number], loaded);
    }
  }
  LoadTimer.Enabled = !Waiting.empty();
  TellCount();
}

void PicPick::LoadTimer_Tick() {
  if (!Waiting.empty()) {
    const WaitingPicture next = std::move(Waiting.front());
    Waiting.erase(Waiting.begin());
    PictureBox& image = Image1[next.Cell];
    if (const auto size = Reader.SizeOfFile(next.File)) {
      image.Picture = next.File;
      image.ToolTip = Joined(FileNameOf(next.File), " (", size->Width, " by ", size->Height, ")");
    } else {
      // The cell keeps its last picture, as authors know the grid; the badge tells them apart.
      image.Picture = LastPictures[static_cast<std::size_t>(next.Cell)];
      image.Badge = "unreadable";
    }
    image.Caption = "unreadable";  // seen where there is no picture
  }
  if (Waiting.empty()) LoadTimer.Enabled = false;
  TellCount();
}

void PicPick::TellCount() {
  const int files = static_cast<int>(FileList.size()) - 1;
  if (files < 1) {
    CountLabel.Caption = "No pictures in this folder";
    return;
  }
  const int shown = std::min(files - FirstShown, kCells);
  std::string text = Joined("Pictures ", WithCommas(FirstShown + 1), " to ",
                            WithCommas(FirstShown + shown), " of ", WithCommas(files));
  if (!Waiting.empty()) {
    text += Joined(", loading ", shown - static_cast<int>(Waiting.size()) + 1, " of ", shown);
  }
  CountLabel.Caption = text;
}

void PicPick::VScroll1_Change() {
  FirstShown = VScroll1.Value * kColumns;
  const bool moved = FirstShown != LastScrolled;
  LastScrolled = FirstShown;
  LimitFirstShown();
  if (moved) updatpics();
}

void PicPick::ScrollTo(int value) {
  VScroll1.Value = std::clamp(value, 0, std::max(VScroll1.Maximum.Get(), 0));
  VScroll1_Change();
}

void PicPick::Command1_Click() {
  if (VScroll1.Maximum > 0) ScrollTo(RollDie(VScroll1.Maximum));
}

bool PicPick::Image1_KeyDown(int cell, PictureKey key) {
  for (const ScrollKey& row : kScrollKeys) {
    if (row.Key != key) continue;
    if (row.FromRow >= 0 && cell / kColumns != row.FromRow) return false;
    ScrollTo(VScroll1.Value + row.Rows);
    return true;
  }
  return false;
}

void PicPick::Image1_Click(int cell) {
  const auto number = static_cast<std::size_t>(FirstShown) + static_cast<std::size_t>(cell);
  if (number >= FileList.size() || FileList[number].empty()) return;
  const std::string file = FileList[number];
  if (!CropOn) {
    PicName = file;
    Clicked = true;
    Desktop().HideForm(*this);
    return;
  }
  // Read as a whole: a picture that breaks off can't be cropped either.
  const auto picture = Reader.FilenameToIPicture(file);
  if (!picture) {
    Desktop().MessageBox(Joined("The file \"", FileNameOf(file), "\" can't be read as a picture."));
    return;
  }
  PicName = file;
  Clicked = true;
  ShowLarge(file, {picture->Width(), picture->Height()});
}

}  // namespace brindlemoor
