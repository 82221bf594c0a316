// PicPick: the image browser of the editor, and the choice of a card's crop.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/records.h"
#include "images/folder_pictures.h"
#include "images/image_bridge.h"
#include "platform/control_array.h"
#include "platform/controls.h"

namespace brindlemoor {

/// A grid of twenty pictures of one folder, five to a row. Lives on hidden, so that the folder and
/// the place in it survive between uses. Who shows it sets Label1 before, reads PicName after.
struct PicPick : Form {
  PicPick();

  static constexpr int kCells = 20;
  static constexpr int kColumns = 5;
  static constexpr int kLargeWidth = 500;  ///< of the room for the large picture, in pixels
  static constexpr int kLargeHeight = 600;

  ComboBox Drive1{"Drive1"};
  ListBox Dirbox{"Dirbox"};  ///< the folder below its parents and above its subfolders
  ScrollBar VScroll1{"VScroll1"};
  ControlArray<PictureBox, kCells> Image1{"Image1"};         ///< the cells
  ControlArray<Label, kCells> PicNameLabel{"PicNameLabel"};  ///< the file name under each cell
  PictureBox Image2{"Image2"};                               ///< the large picture
  PictureBox Picture1{"Picture1"};  ///< another box for it, whose positions count as they are
  Label Label1{"Label1"};           ///< the prompt
  Button Command1{"Command1"};
  Label CountLabel{"CountLabel"};   ///< which files are shown, and how far they are loaded
  Label FileLabel{"FileLabel"};     ///< name of the large picture
  Label SizeLabel{"SizeLabel"};     ///< and its size
  Label GuideLabel{"GuideLabel"};   ///< what the lines over it mean
  Button BackButton{"BackButton"};  ///< from the large picture to the grid
  Button CloseButton{"CloseButton"};
  Frame GridFrame{"GridFrame"};
  Frame LargeFrame{"LargeFrame"};
  Timer LoadTimer{"LoadTimer"};  ///< loads one picture per tick

  std::vector<std::string> FileList;  ///< full names from 0, and an empty one at the end
  int FileCount = 0;                  ///< index of the last real entry
  int FirstShown = 0;                 ///< index of the file in cell 0
  std::string PicName;                ///< the chosen file, full name
  bool CropOn = false;
  bool Clicked = false;    ///< a picture was clicked since who shows the form cleared this
  float ViewRatio = 1.0F;  ///< by how much the large picture is shrunk

  void PicSizeOn(bool onOrOff) { CropOn = onOrOff; }
  void setfnames();
  void updatpics();

  /// The folder whose pictures are shown, with a separator at its end.
  std::string Folder() const { return WithSeparator(FolderPath); }
  /// Shows the pictures of a folder; a folder that is not there is reported.
  void ShowFolder(const std::string& folder);

  void Form_Load();
  void Form_Activate();
  bool Form_QueryClose();
  void Drive1_Change();
  void Dirbox_Change();
  void Dirbox_Click();
  void Dirbox_Open();
  void VScroll1_Change();
  void Command1_Click();
  void Image1_Click(int cell);
  bool Image1_KeyDown(int cell, PictureKey key);
  void Image2_MouseMove(int x, int y);
  void Image2_MouseUp(int x, int y);
  void Picture1_MouseUp(int x, int y);
  void BackButton_Click();
  void CloseButton_Click();
  void LoadTimer_Tick();

 private:
  struct WaitingPicture {
    int Cell;
    std::string File;
  };

  void Arrange();
  void ConnectEvents();
  void FillFolders();
  void ListDrives();
  /// FirstShown at most so that the last page is full, and never below 0.
  void LimitFirstShown();
  void ScrollTo(int value);
  void HideCell(int cell);
  /// Shows a file's name; its picture too if another cell had it, else that waits.
  void FillCell(int cell, const std::string& file, const std::vector<std::string>& loaded);
  void TellCount();
  void ShowLarge(const std::string& file, PictureSize size);
  void ShowGrid();
  /// What belongs to the grid, or to the large picture, can be seen and used.
  void SwitchViews(bool large);
  /// Takes a corner of a piece, in pixels of the picture. True when it was the last.
  bool TakeCorner(std::int16_t x, std::int16_t y);
  std::int16_t ToPicture(int place) const;
  int ToView(std::int16_t place) const;

  std::string FolderPath;                ///< as chosen, without a file
  std::vector<std::string> FolderPaths;  ///< parallel to Dirbox
  std::vector<WaitingPicture> Waiting;
  std::vector<std::string> LastPictures;  ///< of each cell
  int LastScrolled = 0;                   ///< FirstShown as the scroll bar had it last
  std::string PromptOfGrid;
  int CornersTaken = 0;  ///< of the large picture, from 0 to 4
  cGdiPlus Reader;       ///< one that tells nobody of its failures
};

}  // namespace brindlemoor
