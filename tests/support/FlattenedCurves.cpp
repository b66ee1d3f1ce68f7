#include "FlattenedCurves.h"

#include <QFont>
#include <QTransform>

namespace test {

std::vector<std::vector<QPointF>> AllFlattened(const QPainterPath& path, double magnification)
{
    const QPointF centre = path.boundingRect().center();
    const QTransform larger =
        QTransform::fromTranslate(-centre.x(), -centre.y()) * QTransform::fromScale(magnification, magnification);
    std::vector<std::vector<QPointF>> outlines;
    for (const QPolygonF& polygon : path.toSubpathPolygons(larger)) {
        std::vector<QPointF>& points = outlines.emplace_back();
        for (const QPointF& point : polygon)
            points.push_back(point / magnification + centre);
    }
    return outlines;
}

std::vector<QPointF> FlattenedFinely(const QPainterPath& path)
{
    auto outlines = AllFlattened(path, 1000);
    return outlines.empty() ? std::vector<QPointF>() : std::move(outlines.front());
}

std::vector<QPainterPath> CurvedPaths(double height)
{
    std::vector<QPainterPath> paths;
    for (const QChar letter : QStringLiteral("Sa8&g")) {
        QFont font(letter.unicode() % 2 ? QStringLiteral("Liberation Serif") : QStringLiteral("Liberation Sans"));
        font.setPixelSize(1000);
        font.setHintingPreference(QFont::PreferNoHinting);
        QPainterPath path;
        path.addText(0, 0, font, letter);
        const double scale = height / path.boundingRect().height();
        paths.push_back(QTransform::fromScale(scale, scale).map(path));
    }
    for (const double share : {1.0, 0.5, 0.2}) {
        QPainterPath path;
        path.addEllipse(0, 0, height, share * height);
        paths.push_back(QTransform().rotate(17).map(path));
    }
    return paths;
}

} // namespace test
