#include "robot/windows/SmallPicture.h"

#include <QHash>
#include <QImage>
#include <algorithm>

namespace vorta::robot {

namespace {

constexpr qsizetype mostColours = 256;
constexpr int writtenSmallest = 0; ///< the quality of a PNG is how little time its packing takes

/// A photograph has more colours than windows have, but none of them often.
QList<QRgb> commonColours(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    QList<QRgb> colours = counts.keys();
    std::sort(colours.begin(), colours.end(), [&](QRgb one, QRgb other) {
        return counts[one] != counts[other] ? counts[one] > counts[other] : one < other;
    });
    colours.resize(std::min(colours.size(), mostColours));
    return colours;
}

int distance(QRgb one, QRgb other) {
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

class Nearest {
  public:
    explicit Nearest(const QList<QRgb>& colours) : colours_(colours) {}
    uint of(QRgb colour) {
        if (const auto found = known_.constFind(colour); found != known_.constEnd())
            return *found;
        const auto nearest = std::min_element(colours_.begin(), colours_.end(), [&](QRgb one, QRgb other) {
            return distance(one, colour) < distance(other, colour);
        });
        return *known_.insert(colour, static_cast<uint>(nearest - colours_.begin()));
    }

  private:
    const QList<QRgb>& colours_;
    QHash<QRgb, uint> known_;
};

} // namespace

bool SaveSmall(const QImage& picture, const QString& path) {
    const QImage plain = picture.convertToFormat(QImage::Format_RGB32);
    const QList<QRgb> colours = commonColours(plain);
    QImage small(plain.size(), QImage::Format_Indexed8);
    small.setColorTable(colours);
    Nearest nearest(colours);
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x)
            small.setPixel(x, y, nearest.of(plain.pixel(x, y)));
    return small.save(path, "PNG", writtenSmallest);
}

} // namespace vorta::robot
