// The picture picker: its arrangement, its folders, opening and closing.
#include "images/picture_picker.h"

#include <algorithm>
#include <string_view>

#include "core/desktop.h"
#include "core/state.h"
#include "platform/arrangement.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kFoldersWidth = 230;
constexpr int kPromptHeight = 28;
constexpr std::int32_t kPromptColor = 0xF0C46C;
constexpr const char* kIndent = "    ";  // of a folder below its parent
constexpr int kTick = 10;                // milliseconds

Layout Framed(Frame& frame, Layout content) {
  content.Group = &frame;
  content.Stretch = 1;
  return content;
}

bool IsThere(const std::string& folder) {
  return folder == "/" ||
         Desktop().Files().FolderExists(folder.substr(0, folder.find_last_not_of('/') + 1));
}

}  // namespace

PicPick::PicPick() : Form("PicPick"), LastPictures(kCells) {
  Caption = "Picture Viewer";
  Width = 1000;
  Height = 740;
  for (int cell = 0; cell < kCells; ++cell) Image1[cell].FrameWhenEmpty = true;
  Command1.Caption = "Random Image";
  Command1.ToolTip = "Go to a page of this folder by chance";
  BackButton.Caption = "Other Picture";
  BackButton.ToolTip = "Go back to the pictures of the folder";
  CloseButton.Caption = "Close";
  CloseButton.Cancel = true;
  Label1.TextColor = kPromptColor;
  GuideLabel.Caption = "The dashed line shows the proportion that fills its place on the card.";
  Dirbox.ToolTip = "Double click a folder to see its pictures";
  Drive1.Spoken = "Drive";
  Dirbox.Spoken = "Folders";
  VScroll1.Spoken = "More pictures";
  Image2.Spoken = Picture1.Spoken = "The chosen picture";
  VScroll1.LargeStep = kCells / kColumns;
  Image2.Visible = false;
  Picture1.Visible = false;
  LargeFrame.Visible = false;
  LoadTimer.Interval = kTick;
  Timers = {&LoadTimer};
  Arrange();
  ConnectEvents();
}

void PicPick::Arrange() {
  Layout cells = Column({}, 1);
  for (int cell = 0; cell < kCells; ++cell) {
    if (cell % kColumns == 0) cells.Children.push_back(Row({}, 1));
    cells.Children.back().Children.push_back(
        Column({Cell(Image1[cell], 1), Cell(PicNameLabel[cell]), Layout{.Height = 6}}, 1));
  }
  Layout folders = Column(
      {Cell(Drive1), Cell(Dirbox, 1), Cell(Command1), Layout{.Height = 12}, Cell(CloseButton)});
  folders.Width = kFoldersWidth;
  Layout grid = Column({Row({std::move(cells), Cell(VScroll1)}, 1)});
  Layout large = Row({Column({Cell(Image2, 0, kLargeWidth, kLargeHeight)}), Layout{.Width = 8},
                      Column({Cell(FileLabel), Cell(SizeLabel), Cell(GuideLabel),
                              Layout{.Height = 8}, Cell(BackButton)},
                             1)});
  Arrangement = Row({std::move(folders),
                     Column({Cell(Label1, 0, 0, kPromptHeight), Framed(GridFrame, std::move(grid)),
                             Framed(LargeFrame, std::move(large)), Cell(CountLabel)},
                            1)});
}

void PicPick::ConnectEvents() {
  for (int cell = 0; cell < kCells; ++cell) {
    PictureBox& image = Image1[cell];
    image.MouseUp = [this, cell](MouseButton button) {
      if (button == MouseButton::kLeft) Image1_Click(cell);
    };
    image.KeyDown = [this, cell](PictureKey key) { return Image1_KeyDown(cell, key); };
  }
  Activate = [this] { Form_Activate(); };
  QueryClose = [this] { return Form_QueryClose(); };
  Drive1.Change = [this] { Drive1_Change(); };
  Dirbox.Click = [this] { Dirbox_Click(); };
  Dirbox.Open = [this] { Dirbox_Open(); };
  VScroll1.Change = [this] { VScroll1_Change(); };
  Command1.Click = [this] { Command1_Click(); };
  BackButton.Click = [this] { BackButton_Click(); };
  CloseButton.Click = [this] { CloseButton_Click(); };
  LoadTimer.Tick = [this] { LoadTimer_Tick(); };
  Image2.PointMove = [this](int x, int y) { Image2_MouseMove(x, y); };
  Image2.PointUp = [this](int x, int y) { Image2_MouseUp(x, y); };
  Picture1.PointUp = [this](int x, int y) { Picture1_MouseUp(x, y); };
}

void PicPick::Form_Load() {
  ViewRatio = 1.0F;
  FolderPath = State().ProgramFolder;
  ListDrives();
  FillFolders();
  setfnames();
  updatpics();
}

/// Files may have come or gone while the form was hidden.
void PicPick::Form_Activate() {
  if (!Image2.Visible) ShowGrid();
  const std::vector<std::string> before = FileList;
  ListDrives();
  setfnames();
  if (FileList == before) return;
  LimitFirstShown();
  FillFolders();
  updatpics();
}

bool PicPick::Form_QueryClose() {
  Picture1.Visible = false;
  ShowGrid();
  return false;
}

void PicPick::CloseButton_Click() {
  Form_QueryClose();
  Desktop().HideForm(*this);
}

void PicPick::ListDrives() {
  Drive1.Items = Desktop().Drives();
  // The drive of the folder is the one that shares most of its path.
  std::string_view longest;
  for (const std::string& drive : Drive1.Items.Get()) {
    if (Folder().starts_with(WithSeparator(drive)) && drive.size() > longest.size())
      longest = drive;
  }
  Drive1.Text = std::string(longest);
}

void PicPick::FillFolders() {
  const std::string folder = Folder();
  std::vector<std::string> items;
  std::string indent;
  FolderPaths.clear();
  const auto add = [&](std::string name, std::string path) {
    items.push_back(indent + std::move(name));
    FolderPaths.push_back(std::move(path));
  };
  add("/", "/");
  for (std::size_t start = 1, end = 0; (end = folder.find('/', start)) != folder.npos;
       start = end + 1) {
    indent += kIndent;
    add(folder.substr(start, end - start), folder.substr(0, end));
  }
  const int selected = static_cast<int>(items.size());
  indent += kIndent;
  for (std::string& name : Desktop().Files().ListFolders(folder.substr(0, folder.size() - 1))) {
    if (!name.starts_with('.')) add(name, folder + name);
  }
  Dirbox.Items = std::move(items);
  Dirbox.Selected = selected;
}

void PicPick::ShowFolder(const std::string& folder) {
  if (!IsThere(folder)) {
    Desktop().MessageBox(Joined("The folder \"", folder, "\" is no longer there."));
    return;
  }
  FolderPath = folder;
  Dirbox_Change();
}

void PicPick::Drive1_Change() { ShowFolder(Drive1.Text); }

void PicPick::Dirbox_Change() {
  FirstShown = 0;
  VScroll1.Value = 0;
  LastScrolled = 0;
  ListDrives();
  FillFolders();
  setfnames();
  updatpics();
}

/// The folder on show stays: a double click opens another, as the list's tool tip says.
void PicPick::Dirbox_Click() { ScrollTo(0); }

void PicPick::Dirbox_Open() {
  const auto chosen = static_cast<std::size_t>(Dirbox.Selected);
  if (chosen < 1 || chosen > FolderPaths.size()) return;
  const std::string folder = FolderPaths[chosen - 1];
  ShowFolder(folder);
}

}  // namespace brindlemoor
