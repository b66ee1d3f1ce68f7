/// The paints of a page's paths: colours, gradients, patterns and recorded surfaces.
#pragma once

#include "svg/PaintedItems.h"

#include <QString>

#include <string_view>
#include <unordered_map>

namespace shapedocument::drawing {

/// The paint of a fill or stroke. With alpha 0 nothing shows.
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
    /// One paint that stands for the gradient: the first visible stop, with an alpha below 1 if any stop is not opaque.
    Paint Shown() const { return {firstVisible.color, opaque ? 1 : firstVisible.alpha / 2}; }
};

/// A pattern, or a surface that is painted by reference.
struct Recorded
{
    std::vector<PaintedItem> items; ///< in the surface's own coordinates
    QTransform matrix;              ///< of a pattern
    bool isPicture = false;         ///< a pattern of one picture, which is placed where the pattern fills

    /// Number of pictures that it repeats; 0 where isPicture is set.
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
    /// The pattern named by the value of a fill or stroke; null for other values.
    const Recorded* PatternOf(std::string_view paint) const;
    /// The paint for the value of a fill or stroke. alpha: its opacity; patterns and gradients have their own.
    Paint PaintOf(std::string_view paint, double alpha) const;

private:
    std::unordered_map<QString, Gradient> m_gradients;
    std::unordered_map<QString, Recorded> m_recorded;
};

/// A copy of a recorded item at the place where its surface is painted. clip: the clip there; may be null.
PaintedItem Placed(const PaintedItem& item, const QTransform& place, const std::shared_ptr<const ClipArea>& clip);

} // namespace shapedocument::drawing
