// Drawing pictures, blank cards, badges and frames.
#include "platform/qt/picture_face.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "platform/controls.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/style.h"
#include "platform/raster.h"

namespace brindlemoor {

namespace {

constexpr QSize kCardProportion(2, 3);
constexpr int kCardRadius = 6;
constexpr int kCardMargin = 5;
constexpr int kBadgeRadius = 4;
constexpr int kBadgePadding = 4;
constexpr int kBadgeInset = 4;   // from the picture's corner
constexpr int kFrameRadius = 4;  // of an empty box
constexpr int kRingWidth = 2;
constexpr int kChoiceWidth = 4;
constexpr QRgb kOpaque = 0xFF000000;
constexpr int kOpaqueLine = 255;  // of 255
constexpr int kLightLine = 190;
constexpr int kDarkLine = 170;
constexpr int kFaintLine = 110;

/// The lines of a text in a width, no more than given; the last one is elided if more would come.
QStringList Lines(QString text, const QFont& font, int width, int most) {
  const QFontMetrics metrics(font);
  text.replace('\n', QChar::LineSeparator);
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  while (lines.size() < most) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    const bool last = lines.size() + 1 == most;
    const QString rest = text.mid(line.textStart()).replace(QChar::LineSeparator, ' ');
    lines << (last ? metrics.elidedText(rest.trimmed(), Qt::ElideRight, width)
                   : text.mid(line.textStart(), line.textLength()).trimmed());
  }
  layout.endLayout();
  return lines;
}

QRect DrawBlankCard(QPainter& painter, QRect room, const QString& caption) {
  QRect card(QPoint(0, 0), kCardProportion.scaled(room.size(), Qt::KeepAspectRatio));
  card.moveCenter(room.center());
  painter.setPen(CardEdgeColor());
  painter.setBrush(CardColor());
  painter.drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), kCardRadius, kCardRadius);
  const QRect inner = card.adjusted(kCardMargin, kCardMargin, -kCardMargin, -kCardMargin);
  if (inner.isEmpty()) return card;
  const int height = painter.fontMetrics().height();
  const QStringList lines =
      Lines(caption, painter.font(), inner.width(), std::max(1, inner.height() / height));
  QRect line(inner.left(), 0, inner.width(), height);
  line.moveTop(inner.center().y() - static_cast<int>(lines.size()) * height / 2);
  painter.setPen(TextColor());
  for (const QString& text : lines) {
    painter.drawText(line, Qt::AlignCenter, text);
    line.translate(0, height);
  }
  return card;
}

/// In the lower right corner of the picture; one that is wider than the picture stands in the
/// middle below, as far as there is room.
void DrawBadge(QPainter& painter, QRect picture, QRect room, const QString& text) {
  QFont font = painter.font();
  font.setBold(true);
  painter.setFont(font);
  const QFontMetrics metrics(font);
  const int most = std::max(picture.width() - 2 * kBadgeInset, room.width()) - 2 * kBadgePadding;
  if (most <= 0) return;
  const QString shown = metrics.elidedText(text, Qt::ElideRight, most);
  const int height = metrics.height() + 2;
  const int width = std::max(height, metrics.horizontalAdvance(shown) + 2 * kBadgePadding);
  QRect plate(picture.right() + 1 - kBadgeInset - width,
              picture.bottom() + 1 - kBadgeInset - height, width, height);
  if (plate.left() < picture.left() + kBadgeInset) {
    plate.moveLeft(std::clamp(picture.center().x() - width / 2, room.left(),
                              std::max(room.left(), room.right() + 1 - width)));
  }
  painter.setPen(TextColor());
  painter.setBrush(BadgeColor());
  painter.drawRoundedRect(QRectF(plate).adjusted(0.5, 0.5, -0.5, -0.5), kBadgeRadius, kBadgeRadius);
  painter.drawText(plate, Qt::AlignCenter, shown);
}

QImage ImageOf(const Raster& raster) {
  QImage image(raster.Width(), raster.Height(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < raster.Height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    const std::int32_t* row = raster.Row(y);
    for (int x = 0; x < raster.Width(); ++x) line[x] = kOpaque | static_cast<QRgb>(row[x]);
  }
  return image;
}

/// A light line within a dark one is seen on any picture; that of a guide is fainter and dashed.
void DrawMark(QPainter& painter, QRectF place, bool guide) {
  painter.setPen(QPen(QColor(0, 0, 0, guide ? kFaintLine : kDarkLine), guide ? 1 : 3));
  painter.drawRect(place);
  QPen light(QColor(255, 255, 255, guide ? kLightLine : kOpaqueLine), 1);
  if (guide) light.setStyle(Qt::DashLine);
  painter.setPen(light);
  painter.drawRect(place);
}

void DrawMarks(QPainter& painter, QRect picture, const std::vector<PictureMark>& marks) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setClipRect(picture);
  painter.setBrush(Qt::NoBrush);
  for (const PictureMark& mark : marks) {
    const QRect place(mark.X1, mark.Y1, mark.X2 - mark.X1, mark.Y2 - mark.Y1);
    DrawMark(painter, place.translated(picture.topLeft()), mark.Guide);
  }
}

/// What is chosen has a frame of its own colour, besides the ring of pointer and focus.
void DrawChoice(QPainter& painter, QRect place) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ChoiceColor(), kChoiceWidth));
  painter.drawRoundedRect(QRectF(place).adjusted(1.5, 1.5, -1.5, -1.5), kFrameRadius, kFrameRadius);
}

void DrawEmptyFrame(QPainter& painter, QRect place) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(CardEdgeColor());
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), kFrameRadius, kFrameRadius);
  painter.restore();
}

}  // namespace

QPixmap PictureFace::Scaled(QSize box) {
  const std::shared_ptr<const Raster>& drawing = model_.Drawing;
  if (drawing == nullptr) {
    drawn_.reset();
    return pictures_.Scaled(QString::fromStdString(model_.Picture), box);
  }
  if (drawing->Empty() || box.isEmpty()) return {};
  if (drawn_ != drawing || drawnFor_ != box) {
    scaledDrawing_ = QPixmap::fromImage(
        ImageOf(*drawing).scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    drawn_ = drawing;
    drawnFor_ = box;
  }
  return scaledDrawing_;
}

void PictureFace::DrawScaled(QPainter& painter, QRect room, QPixmap picture, double ratio) {
  picture.setDevicePixelRatio(ratio);
  const QSize view(model_.ViewWidth, model_.ViewHeight);
  if (view.isEmpty()) {
    picturePlace_ = QRect(QPoint(0, 0), picture.deviceIndependentSize().toSize());
    picturePlace_.moveCenter(room.center());
    painter.drawPixmap(picturePlace_.topLeft(), picture);
  } else {
    picturePlace_ = QRect(room.topLeft(), view);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(picturePlace_, picture);
  }
}

QRect PictureFace::DrawContent(QPainter& painter, QRect room, double ratio) {
  const QSize view(model_.ViewWidth, model_.ViewHeight);
  const QSize box = view.isEmpty() ? room.size() : view;
  const QPixmap picture = Scaled((QSizeF(box) * ratio).toSize());
  const std::string& caption = model_.Caption;
  const std::string& badge = model_.Badge;
  picturePlace_ = {};
  if (picture.isNull() && caption.empty()) return {};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QRect place;
  if (picture.isNull()) {
    place = DrawBlankCard(painter, room, QString::fromStdString(caption));
  } else {
    DrawScaled(painter, room, picture, ratio);
    place = picturePlace_;
  }
  if (model_.Dimmed) painter.fillRect(place, DimColor());
  if (model_.Framed) DrawChoice(painter, place);
  if (!badge.empty()) DrawBadge(painter, place, room, QString::fromStdString(badge));
  if (!picturePlace_.isEmpty()) DrawMarks(painter, picturePlace_, model_.Marks);
  painter.restore();
  return place;
}

void PictureFace::Draw(QPainter& painter, QRect room, double ratio, bool ring) {
  QRect place = DrawContent(painter, room, ratio);
  if (place.isEmpty()) {
    place = room;
    if (model_.FrameWhenEmpty) DrawEmptyFrame(painter, place);
  }
  if (!ring) return;
  // Of three colours, so that it is seen beside a frame of the picture's own.
  painter.setRenderHint(QPainter::Antialiasing, false);
  const QColor colors[] = {HighlightColor(), Qt::black, Qt::white};
  for (int line = 0; line < 3; ++line) {
    const int inset = 1 + line * kRingWidth;
    painter.setPen(QPen(colors[line], kRingWidth));
    painter.drawRect(place.adjusted(inset, inset, -inset, -inset));
  }
}

QPixmap PictureFace::Shown(QSize size, double ratio, const QFont& font) {
  QPixmap shown((QSizeF(size) * ratio).toSize());
  shown.setDevicePixelRatio(ratio);
  shown.fill(Qt::transparent);
  QPainter painter(&shown);
  painter.setFont(font);
  DrawContent(painter, QRect(QPoint(0, 0), size), ratio);
  return shown;
}

}  // namespace brindlemoor
