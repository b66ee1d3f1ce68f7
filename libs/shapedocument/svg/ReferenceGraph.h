/// Bounds what following a drawing's references costs: the depth of nested elements, and the number painted.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <cstdint>
#include <vector>

namespace shapedocument::drawing {

/// Receives a drawing's elements in order.
class ReferenceGraph
{
public:
    ReferenceGraph() : m_named(1), m_open{{0, 0}} {} // the drawing itself is the first
    /// painted: the element is painted where it stands, not only where others refer to it.
    void Open(const QString& id, bool painted);
    /// The open element refers to target, which is then painted that many times.
    void Refer(const QString& target, int64_t times);
    /// A style rule, which may hold for any element, refers to target.
    void ReferFromRule(const QString& target);
    void Close();

    struct Extent
    {
        int64_t depth = 0;    ///< upper bound of the levels of nested elements
        int64_t elements = 0; ///< elements painted in all; kMost or more: kMost
    };
    static constexpr int64_t kMost = INT32_MAX;
    Extent Measure() const;

private:
    struct Edge
    {
        size_t to;
        int levels; ///< levels between the start and the reference
        int64_t times;
    };
    /// An element with an id, and the elements without ids inside it.
    struct Named
    {
        std::vector<Edge> edges;
        int height = 1;
        int elements = 1;
        bool found = false; ///< an element has that id
    };
    struct Level
    {
        size_t named; ///< index of the innermost open one
        int below;    ///< levels below it
    };
    size_t IndexOf(const QString& id);
    int64_t SumOfHeights() const;

    QHash<QString, size_t> m_index;
    std::vector<Named> m_named;
    std::vector<Level> m_open;
    QSet<size_t> m_fromRules;
};

} // namespace shapedocument::drawing
