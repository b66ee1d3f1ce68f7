#include "svg/PointInArea.h"

namespace shapedocument::drawing {

namespace {

constexpr double kStraight = 1e-7; // mm; a curve this near to its chord counts as straight

/// The signed number of crossings of a line with the ray that leads from a point at y to the left; y: the point's.
/// Valid for any curve between from and to that lies left of the point as a whole.
int CrossingOf(QPointF from, QPointF to, double y)
{
    return (to.y() > y ? 1 : 0) - (from.y() > y ? 1 : 0);
}

int CrossingOfLine(QPointF from, QPointF to, QPointF point)
{
    const int crossing = CrossingOf(from, to, point.y());
    if (crossing == 0)
        return 0;
    const double share = (point.y() - from.y()) / (to.y() - from.y());
    return from.x() + share * (to.x() - from.x()) <= point.x() ? crossing : 0;
}

/// Whether nothing within the box crosses the ray.
bool IsBeside(const Box& box, QPointF point)
{
    return box.left > point.x() || box.top > point.y() || box.bottom <= point.y();
}

bool IsStraight(const CubicPiece& piece)
{
    const auto& p = piece.points;
    const QPointF bend1 = p[0] - 2 * p[1] + p[2], bend2 = p[1] - 2 * p[2] + p[3];
    return bend1.manhattanLength() < kStraight && bend2.manhattanLength() < kStraight;
}

int CrossingOfPiece(const CubicPiece& piece, QPointF point, int halvings)
{
    constexpr int kMostBisections = 40;
    const Box box = Box::Of(piece.Bounds());
    if (IsBeside(box, point))
        return 0;
    if (box.right < point.x())
        return CrossingOf(piece.points[0], piece.End(), point.y());
    if (piece.line || halvings == kMostBisections || IsStraight(piece))
        return CrossingOfLine(piece.points[0], piece.End(), point);
    return CrossingOfPiece(piece.Between(0, 0.5), point, halvings + 1) +
           CrossingOfPiece(piece.Between(0.5, 1), point, halvings + 1);
}

} // namespace

PointInArea::PointInArea(const QPainterPath& path) : m_rule(path.fillRule()), m_tree(std::vector<Box>())
{
    size_t begin = 0;
    ForEachPiece(path, [&](const CubicPiece& piece, bool first) {
        if (first)
            begin = CloseContour(begin);
        m_pieces.push_back(piece);
    });
    CloseContour(begin);
    std::vector<Box> boxes;
    for (const Contour& contour : m_contours)
        boxes.push_back(m_boxes[contour.boxes]);
    m_tree = BoxTree::AllLive(std::move(boxes));
}

/// Closes the contour that starts at begin. Returns where the next one starts.
size_t PointInArea::CloseContour(size_t begin)
{
    if (begin == m_pieces.size())
        return begin;
    const QPointF start = m_pieces[begin].points[0], end = m_pieces.back().End();
    if (start != end)
        m_pieces.push_back({{end, start}, true});
    m_contours.push_back({begin, m_pieces.size(), m_boxes.size()});
    AddBoxes(begin, m_pieces.size());
    return m_pieces.size();
}

Box PointInArea::AddBoxes(size_t begin, size_t end)
{
    const size_t at = m_boxes.size(), middle = begin + (end - begin) / 2;
    m_boxes.emplace_back();
    Box around = Box::Of(m_pieces[begin].Bounds());
    if (end - begin > 1) {
        around = AddBoxes(begin, middle);
        around.Add(AddBoxes(middle, end));
    }
    m_boxes[at] = around;
    return around;
}

bool PointInArea::Holds(QPointF point) const
{
    int winding = 0;
    m_tree.ForEachOverlapping(Box::Of(point), [&](size_t index) {
        const Contour& contour = m_contours[index];
        winding += Winding(contour.boxes, contour.begin, contour.end, point);
        return true;
    });
    return m_rule == Qt::WindingFill ? winding != 0 : winding % 2 != 0;
}

/// Winding number of the pieces from begin to end, which have no gaps: where their box is left of the point, only the
/// ends of the whole count.
int PointInArea::Winding(size_t box, size_t begin, size_t end, QPointF point) const
{
    if (IsBeside(m_boxes[box], point))
        return 0;
    if (m_boxes[box].right < point.x())
        return CrossingOf(m_pieces[begin].points[0], m_pieces[end - 1].End(), point.y());
    if (end - begin == 1)
        return CrossingOfPiece(m_pieces[begin], point, 0);
    const size_t middle = begin + (end - begin) / 2;
    const size_t boxesOfFirst = 2 * (middle - begin) - 1;
    return Winding(box + 1, begin, middle, point) + Winding(box + 1 + boxesOfFirst, middle, end, point);
}

} // namespace shapedocument::drawing
