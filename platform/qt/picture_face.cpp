// Drawing pictures, blank cards and badges.
#include "platform/qt/picture_face.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <QTextLayout>
#include <algorithm>

#include "platform/controls.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/style.h"

namespace brindlemoor {

namespace {

constexpr QSize kCardProportion(2, 3);
constexpr int kCardRadius = 6;
constexpr int kCardMargin = 5;
constexpr int kBadgeRadius = 4;
constexpr int kBadgePadding = 4;
constexpr int kBadgeInset = 4;  // from the picture's corner

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

void DrawBadge(QPainter& painter, QRect picture, const QString& text) {
  QFont font = painter.font();
  font.setBold(true);
  painter.setFont(font);
  const QFontMetrics metrics(font);
  const int most = picture.width() - 2 * (kBadgeInset + kBadgePadding);
  if (most <= 0) return;
  const QString shown = metrics.elidedText(text, Qt::ElideRight, most);
  const int height = metrics.height() + 2;
  const int width = std::max(height, metrics.horizontalAdvance(shown) + 2 * kBadgePadding);
  const QRect plate(picture.right() + 1 - kBadgeInset - width,
                    picture.bottom() + 1 - kBadgeInset - height, width, height);
  painter.setPen(TextColor());
  painter.setBrush(BadgeColor());
  painter.drawRoundedRect(QRectF(plate).adjusted(0.5, 0.5, -0.5, -0.5), kBadgeRadius, kBadgeRadius);
  painter.drawText(plate, Qt::AlignCenter, shown);
}

}  // namespace

QRect DrawPicture(QPainter& painter, QRect room, const PictureBox& model, PictureCache& pictures,
                  double ratio) {
  QPixmap picture = pictures.Scaled(QString::fromStdString(model.Picture),
                                    (QSizeF(room.size()) * ratio).toSize());
  const std::string& caption = model.Caption;
  const std::string& badge = model.Badge;
  if (picture.isNull() && caption.empty()) return {};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QRect place;
  if (picture.isNull()) {
    place = DrawBlankCard(painter, room, QString::fromStdString(caption));
  } else {
    picture.setDevicePixelRatio(ratio);
    place = QRect(QPoint(0, 0), picture.deviceIndependentSize().toSize());
    place.moveCenter(room.center());
    painter.drawPixmap(place.topLeft(), picture);
  }
  if (!badge.empty()) DrawBadge(painter, place, QString::fromStdString(badge));
  painter.restore();
  return place;
}

}  // namespace brindlemoor
