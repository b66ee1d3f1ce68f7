#include "geometry/OutlineParts.h"

#include <utility>

namespace shapes {

void OutlineParts::Add(const QPainterPath& outline)
{
    m_parts.emplace_back(outline);
}

void OutlineParts::Add(std::shared_ptr<const OutlineParts> parts)
{
    m_parts.emplace_back(std::move(parts));
}

QPainterPath OutlineParts::Joined() const
{
    QPainterPath joined;
    AppendTo(joined);
    return joined;
}

void OutlineParts::AppendTo(QPainterPath& path) const
{
    for (const auto& part : m_parts) {
        if (const auto* outline = std::get_if<QPainterPath>(&part))
            path.addPath(*outline);
        else
            std::get<std::shared_ptr<const OutlineParts>>(part)->AppendTo(path);
    }
}

} // namespace shapes
