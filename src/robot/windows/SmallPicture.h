#pragma once

class QImage;
class QString;

namespace vorta::robot {

/// Writes a picture of windows as a small file: with the colours that most of it has, which is all that is seen of
/// windows and letters. False when it cannot be written.
bool SaveSmall(const QImage& picture, const QString& path);

} // namespace vorta::robot
