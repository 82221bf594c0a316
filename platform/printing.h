// Pages for printing, laid out in millimetres, and the document that they become.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brindlemoor {

/// A rectangle of a page; X and Y are its upper left corner. Millimetres.
struct PrintArea {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
};

/// A picture, scaled into the area with its proportion kept.
struct PrintedPicture {
  PrintArea Area{};
  std::string File{};  ///< absolute path; one that can't be read leaves the area empty
};

/// A text in lines that are as long as the area is wide. What does not fit is made smaller, down to
/// half the size, and cut behind that.
struct PrintedText {
  PrintArea Area{};
  std::string Text{};  ///< plain
  double Points = 8;
  bool Bold = false;
  bool Centred = false;
  std::int32_t Color = 0;  ///< red high, blue low
};

/// A thin line. Millimetres.
struct PrintedLine {
  double X1 = 0;
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
};

struct PrintedPage {
  std::vector<PrintedPicture> Pictures{};
  std::vector<PrintedText> Texts{};
  std::vector<PrintedLine> Lines{};
};

struct PaperSize {
  double Width = 0;  ///< millimetres
  double Height = 0;
};

/// A document that is made page by page.
class PdfDocument {
 public:
  virtual ~PdfDocument() = default;
  virtual void AddPage(const PrintedPage& page) = 0;
  /// The bytes of the file; no page comes behind that. "" when it could not be made.
  virtual std::string Finish() = 0;
};

}  // namespace brindlemoor
