#pragma once

#include <QIcon>
#include <QString>

namespace KMIcon {

/// The icon drawn in ":/svg/Resources/<name>.svg", in the text colour of the application's palette: dimmed where it is
/// disabled, in the colour of selected text where it is selected. It is drawn anew for each size, screen and palette,
/// so an icon that was handed out once stays right when the theme changes. A null icon when there is no such drawing.
QIcon icon(const QString &name);

} // namespace KMIcon
