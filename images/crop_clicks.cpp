// The picture picker's large picture: four clicks choose the pieces for a card's two images.
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <limits>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "images/card_images.h"
#include "images/picture_picker.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kHandle = 3;  // to each side of a corner that has no piece yet

using Coordinate = std::int16_t CropCoordinates::*;

/// One click: the corner that it sets, and what follows.
struct CropClick {
  Coordinate X;
  Coordinate Y;
  Coordinate FromX;  ///< the opposite corner; null for the first of a piece
  Coordinate FromY;
  const char* Prompt;  ///< of the next click; null after the last
  int GuideWidth;      ///< the proportion that the piece should have
  int GuideHeight;
};

constexpr const char* kFirstPrompt = "Choose Upper Left Coordinates of Main Card Picture";
constexpr int kPieceWidth = kMainWidth - kFrameMargin;
constexpr int kPieceHeight = kMainHeight - kFrameMargin;

/// The click to come is the first that was not made and whose X is 0.
constexpr CropClick kClicks[] = {
    {&CropCoordinates::MainX1, &CropCoordinates::MainY1, nullptr, nullptr,
     "Choose Lower Right Coordinates of Main Card Picture", kPieceWidth, kPieceHeight},
    {&CropCoordinates::MainX2, &CropCoordinates::MainY2, &CropCoordinates::MainX1,
     &CropCoordinates::MainY1, "Choose Upper Left Coordinates of Thumbnail Picture", kPieceWidth,
     kPieceHeight},
    {&CropCoordinates::MiniX1, &CropCoordinates::MiniY1, nullptr, nullptr,
     "Choose Lower Right Coordinates of Thumbnail Picture", 1, 1},
    {&CropCoordinates::MiniX2, &CropCoordinates::MiniY2, &CropCoordinates::MiniX1,
     &CropCoordinates::MiniY1, nullptr, 1, 1},
};

const CropClick* NextClick(const CropCoordinates& crop, int made) {
  const auto* click = std::find_if(std::begin(kClicks) + made, std::end(kClicks),
                                   [&crop](const CropClick& row) { return crop.*row.X == 0; });
  return click == std::end(kClicks) ? nullptr : click;
}

std::int16_t Shortened(float number) {
  constexpr float kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp(number, 0.0F, kMost));
}

/// The largest rectangle of the click's proportion that lies within another, at the same corner.
PictureMark GuideWithin(const PictureMark& piece, const CropClick& click) {
  const int width = piece.X2 - piece.X1;
  const int height = piece.Y2 - piece.Y1;
  PictureMark guide = piece;
  guide.Guide = true;
  if (width * click.GuideHeight > height * click.GuideWidth) {
    guide.X2 = piece.X1 + height * click.GuideWidth / click.GuideHeight;
  } else {
    guide.Y2 = piece.Y1 + width * click.GuideHeight / click.GuideWidth;
  }
  return guide;
}

}  // namespace

std::int16_t PicPick::ToPicture(int place) const {
  return Shortened(static_cast<float>(place) / ViewRatio);
}

int PicPick::ToView(std::int16_t place) const {
  return static_cast<int>(std::lround(static_cast<float>(place) * ViewRatio));
}

void PicPick::ShowLarge(const std::string& file, PictureSize size) {
  ViewRatio = 1.0F;
  if (size.Height > kLargeHeight || size.Width > kLargeWidth) {
    ViewRatio = std::min(float{kLargeWidth} / static_cast<float>(size.Width),
                         float{kLargeHeight} / static_cast<float>(size.Height));
  }
  const auto shrunk = [this](int length) {
    return std::max(1, static_cast<int>(std::lround(static_cast<float>(length) * ViewRatio)));
  };
  Image2.ViewWidth = shrunk(size.Width);
  Image2.ViewHeight = shrunk(size.Height);
  Image2.Picture = file;
  Image2.Marks = std::vector<PictureMark>{};
  FileLabel.Caption = FileNameOf(file);
  FileLabel.ToolTip = file;
  SizeLabel.Caption = Joined(size.Width, " by ", size.Height, " pixels");
  PromptOfGrid = Label1.Caption;
  SwitchViews(true);
  Label1.Caption = kFirstPrompt;
  CornersTaken = 0;
}

void PicPick::ShowGrid() {
  if (Image2.Visible) Label1.Caption = PromptOfGrid;
  SwitchViews(false);
}

void PicPick::SwitchViews(bool large) {
  for (Control* control : std::initializer_list<Control*>{&Drive1, &Dirbox, &Command1}) {
    control->Enabled = !large;
  }
  Image2.Visible = large;
  CountLabel.Visible = !large;
  // The one that comes goes first, so that the keyboard's focus finds its way there.
  Frame& shown = large ? LargeFrame : GridFrame;
  Frame& hidden = large ? GridFrame : LargeFrame;
  shown.Visible = true;
  hidden.Visible = false;
}

bool PicPick::TakeCorner(std::int16_t x, std::int16_t y) {
  CropCoordinates& crop = State().Crop;
  const CropClick* click = NextClick(crop, CornersTaken);
  if (click == nullptr) return false;
  const bool second = click->FromX != nullptr;
  if (second && (x <= crop.*click->FromX || y <= crop.*click->FromY)) return false;
  crop.*click->X = x;
  crop.*click->Y = y;
  // A corner at 0 has been chosen all the same.
  CornersTaken = static_cast<int>(click - std::begin(kClicks)) + 1;
  if (click->Prompt == nullptr) return true;
  Label1.Caption = click->Prompt;
  return false;
}

void PicPick::Image2_MouseMove(int x, int y) {
  const CropCoordinates& crop = State().Crop;
  const CropClick* next = NextClick(crop, CornersTaken);
  std::vector<PictureMark> marks;
  for (const CropClick& click : kClicks) {
    if (click.FromX == nullptr) continue;
    const int x1 = ToView(crop.*click.FromX);
    const int y1 = ToView(crop.*click.FromY);
    if (&click == next && (x <= x1 || y <= y1)) {
      marks.push_back({x1 - kHandle, y1 - kHandle, x1 + kHandle, y1 + kHandle});
    } else if (&click == next) {
      marks.push_back({x1, y1, x, y});
      marks.push_back(GuideWithin(marks.back(), click));
    } else if (crop.*click.X != 0) {
      marks.push_back({x1, y1, ToView(crop.*click.X), ToView(crop.*click.Y)});
    }
  }
  Image2.Marks = std::move(marks);
}

void PicPick::Image2_MouseUp(int x, int y) {
  if (TakeCorner(ToPicture(x), ToPicture(y))) {
    ShowGrid();
    Desktop().HideForm(*this);
  } else {
    Image2_MouseMove(x, y);
  }
}

void PicPick::Picture1_MouseUp(int x, int y) {
  if (TakeCorner(Shortened(static_cast<float>(x)), Shortened(static_cast<float>(y)))) {
    Desktop().HideForm(*this);
  }
}

void PicPick::BackButton_Click() {
  State().Crop = {};
  CornersTaken = 0;
  ShowGrid();
}

}  // namespace brindlemoor
