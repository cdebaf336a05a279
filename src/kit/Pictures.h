#pragma once

#include <QByteArray>
#include <QString>

/// The pictures of an installation, drawn here so that nothing but the program itself is needed.
namespace vorta::kit {

/// A green disc with a tick: the role is in force. A bitmap of 24 by 24 points, clear around the drawing.
QByteArray LinkedBitmap();
/// A grey ring: the role is not in force.
QByteArray UnlinkedBitmap();
/// A frame with a landscape in grey: there is no photo.
QByteArray NoPhotoBitmap();
/// A simple drawing for the demonstration's product of that number, `width` points wide (three quarters of it high).
QByteArray ProductBitmap(int number, int width);

} // namespace vorta::kit
