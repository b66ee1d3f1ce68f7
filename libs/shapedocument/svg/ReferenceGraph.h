/// What following the references of a drawing leads to: how deep elements nest then, and how many are painted.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <cstdint>
#include <vector>

namespace shapedocument::drawing {

/// Fed with a drawing's elements in order.
class ReferenceGraph
{
public:
    ReferenceGraph() : m_named(1), m_open{{0, 0}} {} // the drawing itself is the first
    /// painted: where it stands, not only where others refer to it.
    void Open(const QString& id, bool painted);
    /// The element that is open refers to target, which is painted so many times for it.
    void Refer(const QString& target, int64_t times);
    /// A style rule, which may hold for any element, refers to target.
    void ReferFromRule(const QString& target);
    void Close();

    struct Extent
    {
        int64_t depth = 0;    ///< bounds the levels of nested elements
        int64_t elements = 0; ///< painted in all; kMost for more
    };
    static constexpr int64_t kMost = INT32_MAX;
    Extent Measure() const;

private:
    struct Edge
    {
        size_t to;
        int levels; ///< below the start
        int64_t times;
    };
    /// An element with an id, and what of its content has none.
    struct Named
    {
        std::vector<Edge> edges;
        int height = 1;
        int elements = 1;
        bool found = false; ///< an element has that id
    };
    struct Level
    {
        size_t named; ///< the innermost one that is open
        int below;    ///< levels below that one
    };
    size_t IndexOf(const QString& id);
    int64_t SumOfHeights() const;

    QHash<QString, size_t> m_index;
    std::vector<Named> m_named;
    std::vector<Level> m_open;
    QSet<size_t> m_fromRules;
};

} // namespace shapedocument::drawing
