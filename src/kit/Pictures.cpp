#include "kit/Pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace vorta::kit {

namespace {

struct Colour {
    int red, green, blue;
};

constexpr Colour green{46, 139, 87};
constexpr Colour white{255, 255, 255};
constexpr Colour ring{150, 156, 164};
constexpr Colour paper{241, 243, 245};
constexpr Colour shade{196, 202, 208};

struct Point {
    double x, y;
};

/// How far a point lies outside a shape; negative inside.
using Shape = std::function<double(Point)>;

Shape disc(Point centre, double radius) {
    return [=](Point p) { return std::hypot(p.x - centre.x, p.y - centre.y) - radius; };
}

Shape circle(Point centre, double radius, double width) {
    return [=](Point p) { return std::abs(std::hypot(p.x - centre.x, p.y - centre.y) - radius) - width / 2; };
}

Shape line(Point from, Point to, double width) {
    return [=](Point p) {
        const double dx = to.x - from.x, dy = to.y - from.y;
        const double along = std::clamp(((p.x - from.x) * dx + (p.y - from.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        return std::hypot(p.x - from.x - along * dx, p.y - from.y - along * dy) - width / 2;
    };
}

Shape box(Point centre, double halfWidth, double halfHeight, double corner) {
    return [=](Point p) {
        const double x = std::abs(p.x - centre.x) - halfWidth + corner;
        const double y = std::abs(p.y - centre.y) - halfHeight + corner;
        return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - corner;
    };
}

Shape hill(Point top, double slope, double foot) {
    return [=](Point p) {
        return std::max((top.y - p.y + std::abs(p.x - top.x) * slope) / std::hypot(1, slope), p.y - foot);
    };
}

/// A drawing with an alpha channel, shapes laid one over the other with soft edges.
class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height), points_(size_t(width) * size_t(height)) {}

    Canvas& paint(const Shape& shape, Colour colour) {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                blend(points_[size_t(y) * size_t(width_) + size_t(x)], colour,
                      std::clamp(0.5 - shape({x + 0.5, y + 0.5}), 0.0, 1.0));
        return *this;
    }

    /// As a bitmap file: 32 bits with masks for the colours and the alpha channel.
    QByteArray bitmap() const {
        constexpr quint32 fileHeader = 14, infoHeader = 124;
        const quint32 size = fileHeader + infoHeader + quint32(points_.size()) * 4;
        QByteArray bytes("BM");
        for (const quint32 word : {size, 0u, fileHeader + infoHeader, infoHeader, quint32(width_), quint32(height_)})
            put(bytes, word, 4);
        put(bytes, 1, 2);
        put(bytes, 32, 2);
        constexpr quint32 withMasks = 3, sRgb = 0x73524742;
        for (const quint32 word :
             {withMasks, 0u, 2835u, 2835u, 0u, 0u, 0x00FF0000u, 0x0000FF00u, 0x000000FFu, 0xFF000000u, sRgb})
            put(bytes, word, 4);
        bytes.append(qsizetype(fileHeader + infoHeader) - bytes.size(), '\0');
        for (int y = height_ - 1; y >= 0; --y)
            for (int x = 0; x < width_; ++x)
                putPoint(bytes, points_[size_t(y) * size_t(width_) + size_t(x)]);
        return bytes;
    }

  private:
    struct Pixel {
        double red = 255, green = 255, blue = 255, alpha = 0;
    };
    static void blend(Pixel& pixel, Colour colour, double cover) {
        const double alpha = cover + pixel.alpha * (1 - cover);
        if (cover <= 0)
            return;
        const auto mix = [&](double below, int above) {
            return (above * cover + below * pixel.alpha * (1 - cover)) / alpha;
        };
        pixel = {mix(pixel.red, colour.red), mix(pixel.green, colour.green), mix(pixel.blue, colour.blue), alpha};
    }
    static void put(QByteArray& bytes, quint32 word, int count) {
        for (int i = 0; i < count; ++i)
            bytes.append(char(word >> (8 * i)));
    }
    static void putPoint(QByteArray& bytes, const Pixel& pixel) {
        for (const double part : {pixel.blue, pixel.green, pixel.red, pixel.alpha * 255})
            bytes.append(char(int(std::lround(part))));
    }

    int width_;
    int height_;
    std::vector<Pixel> points_;
};

} // namespace

QByteArray LinkedBitmap() {
    return Canvas(24, 24)
        .paint(disc({12, 12}, 10.5), green)
        .paint(line({7.2, 12.4}, {10.6, 15.8}, 2.6), white)
        .paint(line({10.6, 15.8}, {16.8, 8.6}, 2.6), white)
        .bitmap();
}

QByteArray UnlinkedBitmap() {
    return Canvas(24, 24).paint(circle({12, 12}, 9.2, 2.2), ring).bitmap();
}

QByteArray NoPhotoBitmap() {
    return Canvas(160, 120)
        .paint(box({80, 60}, 80, 60, 6), paper)
        .paint(box({80, 60}, 56, 40, 5), shade)
        .paint(box({80, 60}, 52, 36, 3), paper)
        .paint(disc({56, 44}, 8), shade)
        .paint(hill({60, 68}, 0.9, 94), shade)
        .paint(hill({92, 60}, 0.9, 94), ring)
        .bitmap();
}

QByteArray ProductBitmap(int number, int width) {
    static constexpr std::array<Colour, 6> colours{
        {{192, 91, 62}, {66, 114, 168}, {214, 160, 56}, {96, 140, 88}, {140, 92, 150}, {84, 96, 110}}};
    const Colour main = colours[size_t(number) % colours.size()];
    const Colour second = colours[(size_t(number) / colours.size() + size_t(number) + 2) % colours.size()];
    const double unit = width / 160.0;
    const auto at = [unit](double x, double y) { return Point{x * unit, y * unit}; };
    const Shape body = number % 3 == 0   ? disc(at(80, 64), 34 * unit)
                       : number % 3 == 1 ? box(at(80, 62), 34 * unit, 34 * unit, 8 * unit)
                                         : hill(at(80, 22), 1.6, 98 * unit);
    return Canvas(width, width * 3 / 4)
        .paint(box(at(80, 60), 80 * unit, 60 * unit, 0), white)
        .paint(box(at(80, 102), 46 * unit, 3 * unit, 3 * unit), shade)
        .paint(body, main)
        .paint(line(at(62, 70), at(98, 70), 5 * unit), second)
        .paint(line(at(66, 82), at(94, 82), 5 * unit), second)
        .bitmap();
}

} // namespace vorta::kit
