// What the program adds to a page when it is shown, without changing the page's file.
#pragma once

#include <QString>

namespace brindlemoor {

struct BrowserView;

/// A script that adds what the model asks for: tool tips of pictures, links of cells, outlines and
/// marks of links.
QString PageAdditions(const BrowserView& model);

}  // namespace brindlemoor
