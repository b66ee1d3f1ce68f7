/// What the paths of a painted page are painted with: colours, gradients, and content that was recorded elsewhere.
#pragma once

#include "svg/PaintedItems.h"

#include <QString>

#include <string_view>
#include <unordered_map>

namespace shapedocument::drawing {

/// What a fill or stroke colours with. No alpha: nothing shows.
struct Paint
{
    QRgb color = 0;
    double alpha = 0;
};

struct Gradient
{
    Paint firstVisible;
    bool opaque = true;

    void AddStop(const Paint& stop);
    /// The alpha is below 1 where any stop lets something through.
    Paint Shown() const { return {firstVisible.color, opaque ? 1 : firstVisible.alpha / 2}; }
};

/// A pattern, or a surface that is painted by reference.
struct Recorded
{
    std::vector<PaintedItem> items; ///< in its own coordinates
    QTransform matrix;              ///< of a pattern
    bool isPicture = false;         ///< of a pattern: painting with it places its only item

    /// How many pictures it repeats; none where it places one.
    int TiledPictures() const;
};

/// The gradients, patterns and recorded surfaces of a page by their ids.
class PaintServers
{
public:
    Gradient& NewGradient(const QString& id) { return m_gradients[id] = {}; }
    Recorded& NewRecorded(const QString& id, const QTransform& matrix) { return m_recorded[id] = {{}, matrix}; }
    /// Null for none.
    const Recorded* FindRecorded(const QString& id) const;
    /// The pattern that the value of a fill or stroke names; null for any other value.
    const Recorded* PatternOf(std::string_view paint) const;
    /// paint: the value of a fill or stroke; alpha: its opacity, which patterns and gradients bring themselves.
    Paint PaintOf(std::string_view paint, double alpha) const;

private:
    std::unordered_map<QString, Gradient> m_gradients;
    std::unordered_map<QString, Recorded> m_recorded;
};

/// A recorded item where its surface is painted, within a clip that may be null.
PaintedItem Placed(const PaintedItem& item, const QTransform& place, const std::shared_ptr<const ClipArea>& clip);

} // namespace shapedocument::drawing
