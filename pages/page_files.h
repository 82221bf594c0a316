// Page files: composing text, writing it as an HTML file and showing it in a view.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brindlemoor {

struct BrowserView;

/// Appends to PageText.
void AppendPage(std::string_view text);

/// Where a page lies that WritePage has written. It has its plain name in the program's folder; a
/// second program on the same folder writes "Display-2.html" beside it, so that none shows what
/// another wrote. Files that are no such page keep their name.
std::string PagePath(std::string_view file);

/// Writes PageText as an HTML file of the program's folder, line ends as "<br>". Whatever
/// strangers' texts have brought onto the page, only the markup of the list is left on it
/// (pages/shown_markup.h). The colour is not used. PageText stays.
void WritePage(std::string_view file, std::string_view color);
/// The same for a page that is kept in several files.
void WritePages(std::span<const std::string_view> files);

/// Writes a page anew that has been written before, with the same bytes. What was no such page gets
/// the markup of one.
void RewritePages(std::string_view page, std::span<const std::string_view> files);

/// Shows a page, or another file of the program's folder, in a view, from the element with the id
/// of the anchor on; lets events run and empties PageText.
void ShowInView(BrowserView& view, std::string_view file, std::string_view anchor = {});

}  // namespace brindlemoor
