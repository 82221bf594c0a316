// Composing and showing the preview of a card.
#include "editor/card_preview.h"

#include <string>
#include <utility>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "game/looking.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "script/run_action.h"
#include "text/addresses.h"
#include "ui/card_description.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPreviewPage = "CardPreview.html";
/// The editor shows the picture at its full size; here the words below it must be seen.
constexpr std::string_view kSmallPicture = "<img width=\"150\" height=\"225\" src=\"";

/// The card as it enters play; the picture of the main window stays as it is.
std::string PreviewHtml(Card& card) {
  if (IsFree(card)) return "";
  const Looking looking;
  const std::string painted = TheMainWindow().Picture1.Picture;
  RunEntryScripts(card);
  std::string summary = CardSummary(card, 1);
  TheMainWindow().Picture1.Picture = painted;
  const std::string picture = ResolvePath(card.Picture, 0);
  if (picture.empty()) return summary;
  return Joined(kSmallPicture, PageAddress(picture), "\"></img><br>", summary);
}

}  // namespace

void ShowCardPreview(Card card, BrowserView& view, std::string& shown, bool afresh) {
  Session& state = State();
  std::string page = std::exchange(state.PageText, {});
  std::string html = PreviewHtml(card);
  if (afresh || html != shown) {
    shown = html;
    state.PageText = std::move(html);
    WritePage(kPreviewPage, "#000000");
    ShowInView(view, kPreviewPage);
  }
  state.PageText = std::move(page);
}

}  // namespace brindlemoor
