/// Outlines of several shapes that are to be joined into one when somebody looks.
#pragma once

#include <QPainterPath>

#include <memory>
#include <variant>
#include <vector>

namespace shapes {

/// Holds outlines as they were when they were added: a painter path shares its elements with the original until that
/// changes, so a group around a large outline costs a reference to it, and groups around groups no more.
class OutlineParts
{
public:
    void Add(const QPainterPath& outline);
    /// Parts that wait themselves, in the place of their joined outline.
    void Add(std::shared_ptr<const OutlineParts> parts);

    /// All outlines in order, as QPainterPath::addPath joins them.
    QPainterPath Joined() const;

private:
    void AppendTo(QPainterPath& path) const;

    std::vector<std::variant<QPainterPath, std::shared_ptr<const OutlineParts>>> m_parts;
};

} // namespace shapes
