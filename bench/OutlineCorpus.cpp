#include "OutlineCorpus.h"

#include "support/FlattenedCurves.h"

#include <QFont>
#include <QTransform>

#include <cmath>
#include <numbers>
#include <random>

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

/// Random numbers that are the same on every platform.
class Dice
{
public:
    double Between(double low, double high)
    {
        return low + (high - low) * (static_cast<double>(m_engine()) / static_cast<double>(std::mt19937::max()));
    }
    int Whole(int low, int high) { return low + static_cast<int>(m_engine() % static_cast<unsigned>(high - low + 1)); }

private:
    std::mt19937 m_engine{20240607};
};

QPointF Polar(double radius, double angle)
{
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

std::vector<QPointF> Ellipse(Dice& dice, bool circle)
{
    const double width = std::pow(10.0, dice.Between(-0.3, 2.3));
    const double height = circle ? width : width * dice.Between(0.2, 1.0);
    QPainterPath path;
    path.addEllipse(QRectF(dice.Between(-200, 200), dice.Between(-200, 200), width, height));
    return test::FlattenedFinely(QTransform().rotate(circle ? 0.0 : dice.Between(0, 180)).map(path));
}

std::vector<QPointF> Glyph(Dice& dice)
{
    static const QString letters = QStringLiteral("ABCDGJOPQRSUabcdefghkmnopqrstu2356890&@%?");
    QFont font(dice.Whole(0, 1) ? QStringLiteral("Liberation Serif") : QStringLiteral("Liberation Sans"));
    font.setPixelSize(dice.Whole(8, 90));
    QPainterPath path;
    path.addText(dice.Between(-50, 50), 0.0, font, letters.mid(dice.Whole(0, static_cast<int>(letters.size()) - 1), 1));
    return test::FlattenedFinely(path);
}

std::vector<QPointF> Spiral(Dice& dice)
{
    const double pitch = dice.Between(0.5, 5.0), turns = dice.Between(1.0, 6.0);
    std::vector<QPointF> points;
    for (double angle = 0.5; angle < turns * kTurn; angle += std::sqrt(8.0 * 1.5e-4 / (pitch * angle / kTurn + 0.1)))
        points.push_back(Polar(pitch * angle / kTurn, angle));
    return points;
}

std::vector<QPointF> Spline(Dice& dice)
{
    QPainterPath path(QPointF(0, 0));
    QPointF tangent(dice.Between(-20, 20), dice.Between(-20, 20));
    for (int i = dice.Whole(2, 8); i > 0; --i) {
        const QPointF from = path.currentPosition();
        const QPointF to = from + QPointF(dice.Between(5, 40), dice.Between(-30, 30));
        const QPointF next(dice.Between(-20, 20), dice.Between(-20, 20));
        path.cubicTo(from + tangent, to - next, to);
        tangent = next;
    }
    return test::FlattenedFinely(path);
}

std::vector<QPointF> RegularPolygon(int count, double radius)
{
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i)
        points.push_back(Polar(radius, kTurn * i / count));
    points.push_back(points.front());
    return points;
}

std::vector<QPointF> Polygon(Dice& dice)
{
    if (dice.Whole(0, 2) == 0)
        return RegularPolygon(dice.Whole(3, 17), dice.Between(1, 100));
    std::vector<QPointF> star; // two radii in turn: every vertex is a corner
    const int count = 2 * dice.Whole(3, 20);
    const double outer = dice.Between(5, 100), inner = outer * dice.Between(0.2, 0.6);
    for (int i = 0; i < count; ++i)
        star.push_back(Polar(i % 2 ? inner : outer, kTurn * i / count));
    star.push_back(star.front());
    return star;
}

/// A wavy closed line as a digitiser gives it: evenly dense, each point off by up to a few thousandths.
std::vector<QPointF> NoisyTrace(Dice& dice)
{
    const double radius = dice.Between(2, 30), wave = dice.Between(0.0, 0.3), unrest = dice.Between(0.0005, 0.002);
    const int waves = dice.Whole(2, 6), count = static_cast<int>(radius * kTurn / dice.Between(0.03, 0.15));
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i) {
        const double angle = kTurn * i / count;
        const QPointF even = Polar(radius * (1.0 + wave * std::sin(waves * angle)), angle);
        points.emplace_back(even.x() + dice.Between(-unrest, unrest), even.y() + dice.Between(-unrest, unrest));
    }
    points.push_back(points.front());
    return points;
}

/// In the order of OutlineKind.
const struct
{
    const char* name;
    std::vector<QPointF> (*generate)(Dice&);
} kKinds[] = {{"circle", [](Dice& dice) { return Ellipse(dice, true); }},
              {"ellipse", [](Dice& dice) { return Ellipse(dice, false); }},
              {"glyph", Glyph},
              {"spiral", Spiral},
              {"spline", Spline},
              {"polygon", Polygon},
              {"noisy trace", NoisyTrace}};

} // namespace

std::string KindName(OutlineKind kind)
{
    return kKinds[static_cast<int>(kind)].name;
}

std::vector<GeneratedOutline> OutlineCorpus(int count)
{
    Dice dice;
    std::vector<GeneratedOutline> corpus;
    for (int i = 0; i < count; ++i)
        corpus.push_back({static_cast<OutlineKind>(i % 7), kKinds[i % 7].generate(dice)});
    return corpus;
}
