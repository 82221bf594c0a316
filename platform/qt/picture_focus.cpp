// The nearest picture in a direction, or of a group.
#include "platform/qt/picture_focus.h"

#include <cmath>
#include <limits>

namespace brindlemoor {

namespace {

constexpr double kSideways = 3;  // times as far: what lies straight ahead goes before what is near

/// The first of the spots with the smallest distance; those without one are left out.
template <class Distance>
std::optional<std::size_t> Nearest(const std::vector<FocusSpot>& spots, Distance distance) {
  std::optional<std::size_t> nearest;
  double shortest = std::numeric_limits<double>::max();
  for (std::size_t index = 0; index < spots.size(); ++index) {
    const std::optional<double> far = distance(spots[index]);
    if (!far || *far >= shortest) continue;
    shortest = *far;
    nearest = index;
  }
  return nearest;
}

}  // namespace

std::optional<std::size_t> SpotTowards(const std::vector<FocusSpot>& spots, QPoint from,
                                       QPoint direction) {
  return Nearest(spots, [&](const FocusSpot& spot) -> std::optional<double> {
    const QPoint way = spot.Middle - from;
    const int ahead = QPoint::dotProduct(way, direction);
    if (ahead <= 0) return std::nullopt;
    const int aside = std::abs(way.x() * direction.y()) + std::abs(way.y() * direction.x());
    return ahead + kSideways * aside;
  });
}

std::optional<std::size_t> SpotAfter(const std::vector<FocusSpot>& spots, const FocusSpot& hidden) {
  return Nearest(spots, [&](const FocusSpot& spot) -> std::optional<double> {
    if (spot.Group != hidden.Group) return std::nullopt;
    const QPoint way = spot.Middle - hidden.Middle;
    return std::hypot(way.x(), way.y());
  });
}

}  // namespace brindlemoor
