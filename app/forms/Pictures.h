// app/forms/Pictures.h: the program's own pictures, drawn from vector files in the colours of the current palette.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace tarvik {

/// Picture `name` as an icon: sharp at any size and scale, its lines in the palette's text colour when painted,
/// paler while disabled. An unknown name gives an empty icon.
QIcon PictureIcon(const QString& name);

/// As above, for a menu item. Where the style fills a highlighted item with the highlight colour, the picture has the
/// colour of the item's text, as its own colours would lack contrast.
QIcon MenuPictureIcon(const QString& name);

/// Picture `name` in its natural size, in its own colours, for a screen of this scale. Empty for an unknown name.
QPixmap PicturePixmap(const QString& name, qreal devicePixelRatio);

/// The icon of the program's windows.
QIcon ProgramIcon();

} // namespace tarvik
