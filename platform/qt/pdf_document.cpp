// Pages for printing, written as PDF.
#include <QBuffer>
#include <QCache>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "platform/printing.h"
#include "platform/qt/qt_image_library.h"
#include "platform/qt/qt_platform.h"

namespace brindlemoor {

namespace {

constexpr int kDotsPerInch = 300;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72;
constexpr double kLineWidth = 0.1;  // millimetres
constexpr double kSmallestShare = 0.5;
constexpr double kShrinkStep = 0.9;
constexpr qsizetype kMostLetters = 20'000;  // no page holds more
constexpr qsizetype kKilobyte = 1024;
constexpr qsizetype kKeptKilobytes = qsizetype{64} * kKilobyte;

double Dots(double millimetres) { return millimetres * kDotsPerInch / kMillimetresPerInch; }

QRectF Place(const PrintArea& area) {
  return {Dots(area.X), Dots(area.Y), Dots(area.Width), Dots(area.Height)};
}

/// A picture in no more dots than its print has, which keeps the document small.
QImage ReadForPrint(const FileSystem& files, const std::string& file, QSize room) {
  QImage image;
  if (ReadImage(files, file, room, image) != kImageOk) return {};
  const QSize printed = image.size().scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
  if (image.width() <= printed.width()) return image;
  return image.scaled(printed, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

class QtPdfDocument : public PdfDocument {
 public:
  QtPdfDocument(const FileSystem& files, PaperSize paper) : files_(files), writer_(&buffer_) {
    pictures_.setMaxCost(kKeptKilobytes);
    buffer_.open(QIODevice::WriteOnly);
    writer_.setCreator("Brindlemoor");
    writer_.setResolution(kDotsPerInch);
    writer_.setPageSize(QPageSize(QSizeF(paper.Width, paper.Height), QPageSize::Millimeter, {},
                                  QPageSize::ExactMatch));
    writer_.setPageMargins(QMarginsF());
  }

  void AddPage(const PrintedPage& page) override {
    if (painter_.isActive()) {
      writer_.newPage();
    } else if (!painter_.begin(&writer_)) {
      return;
    }
    for (const PrintedPicture& picture : page.Pictures) Draw(picture);
    for (const PrintedText& text : page.Texts) Draw(text);
    painter_.setPen(QPen(Qt::black, Dots(kLineWidth)));
    for (const PrintedLine& line : page.Lines) {
      painter_.drawLine(QPointF(Dots(line.X1), Dots(line.Y1)),
                        QPointF(Dots(line.X2), Dots(line.Y2)));
    }
  }

  std::string Finish() override {
    if (!painter_.isActive() || !painter_.end()) return "";
    return buffer_.data().toStdString();
  }

 private:
  /// The writer puts an image that it has seen before into the document only once.
  QImage Image(const std::string& file, QSize room) {
    const QString key = QString::number(room.width()) + 'x' + QString::number(room.height()) + ' ' +
                        QString::fromStdString(file);
    if (const QImage* known = pictures_.object(key)) return *known;
    const QImage image = ReadForPrint(files_, file, room);
    pictures_.insert(key, new QImage(image), 1 + image.sizeInBytes() / kKilobyte);
    return image;
  }

  void Draw(const PrintedPicture& picture) {
    const QRectF area = Place(picture.Area);
    const QSize room = area.size().toSize();
    if (room.isEmpty()) return;
    const QImage image = Image(picture.File, room);
    if (image.isNull()) return;
    QRectF place(QPointF(), QSizeF(image.size()).scaled(area.size(), Qt::KeepAspectRatio));
    place.moveCenter(area.center());
    painter_.drawImage(place, image);
  }

  void Draw(const PrintedText& text) {
    const QRectF area = Place(text.Area);
    const QString words = QString::fromStdString(text.Text).left(kMostLetters);
    const int flags =
        Qt::TextWordWrap | (text.Centred ? int{Qt::AlignHCenter} : int{Qt::AlignLeft});
    QFont font = painter_.font();
    font.setBold(text.Bold);
    QRectF shown = area;
    double points = text.Points;
    const auto fits = [&] {
      font.setPixelSize(std::max(1, qRound(points * kDotsPerInch / kPointsPerInch)));
      const QFontMetricsF metrics(font, &writer_);
      // Where the text is cut, it is behind a whole line.
      const double line = metrics.lineSpacing();
      shown.setHeight(
          std::min(std::max(std::floor(area.height() / line), 1.0) * line, area.height()));
      const QRectF needed = metrics.boundingRect(area, flags, words);
      return needed.height() <= area.height() && needed.width() <= area.width();
    };
    const double smallest = text.Points * kSmallestShare;
    while (!fits() && points > smallest) points = std::max(points * kShrinkStep, smallest);
    painter_.save();
    painter_.setClipRect(shown);
    painter_.setFont(font);
    painter_.setPen(QColor::fromRgb(static_cast<QRgb>(text.Color)));
    painter_.drawText(area, flags, words);
    painter_.restore();
  }

  QCache<QString, QImage> pictures_;
  const FileSystem& files_;
  QBuffer buffer_;
  QPdfWriter writer_;
  QPainter painter_;  // ends before the writer goes
};

}  // namespace

std::unique_ptr<PdfDocument> QtPlatform::NewPdf(PaperSize paper) {
  return std::make_unique<QtPdfDocument>(Files(), paper);
}

}  // namespace brindlemoor
