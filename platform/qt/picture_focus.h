// Where the focus goes from one picture of a window to another.
#pragma once

#include <QPoint>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brindlemoor {

/// A picture that can have the focus.
struct FocusSpot {
  QPoint Middle;      ///< its place in the window
  std::string Group;  ///< that keeps the focus when the picture hides
};

/// The spot that an arrow key leads to, by its index from 0; nothing where none lies that way. The
/// direction is one step along an axis, such as (-1, 0) for left.
std::optional<std::size_t> SpotTowards(const std::vector<FocusSpot>& spots, QPoint from,
                                       QPoint direction);
/// The spot that takes the focus over from one that hides, by its index from 0: the nearest of its
/// group, if there is one. The one that hides is none of the spots.
std::optional<std::size_t> SpotAfter(const std::vector<FocusSpot>& spots, const FocusSpot& hidden);

}  // namespace brindlemoor
