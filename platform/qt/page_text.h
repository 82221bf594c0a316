// The text of a page, for when the page itself can't be shown.
#pragma once

#include <QString>

namespace brindlemoor {

/// The longest page file that is shown as a page, in bytes.
inline constexpr qint64 kLongestPage = qint64{8} << 20;

/// What a page file says, without its markup and cut where nobody would read on; "" when it can't
/// be read.
QString TextOfPage(const QString& path);

}  // namespace brindlemoor
