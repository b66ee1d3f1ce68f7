/// Outlines of several shapes, joined into one path on demand.
#pragma once

#include <QPainterPath>

#include <memory>
#include <variant>
#include <vector>

namespace shapes {

/// Keeps each outline as it was when it was added. Painter paths are implicitly shared, so a group around a large
/// outline costs a reference to it, nested groups included.
class OutlineParts
{
public:
    void Add(const QPainterPath& outline);
    /// Adds another shape's parts without joining them first.
    void Add(std::shared_ptr<const OutlineParts> parts);

    /// All outlines in order, as QPainterPath::addPath joins them.
    QPainterPath Joined() const;

private:
    void AppendTo(QPainterPath& path) const;

    std::vector<std::variant<QPainterPath, std::shared_ptr<const OutlineParts>>> m_parts;
};

} // namespace shapes
