#include "tools/SelectTool.h"

#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"
#include "edits/Transforms.h"
#include "look/Look.h"
#include "tools/Translated.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kHandle = 4;    // pixels: half a handle's side
constexpr double kTurnStep = 15; // degrees

double Distance(QPointF a, QPointF b)
{
    return QLineF(a, b).length();
}

double AngleOf(QPointF arm)
{
    return std::atan2(arm.y(), arm.x()) * 180 / std::numbers::pi;
}

} // namespace

int SelectTool::HandleAt(QPointF pixel) const
{
    if (View().Document().Selection().empty())
        return -1;
    const auto handles = HandlesOf(View().View().ToPixel(View().SelectionRect()));
    for (size_t i = handles.size(); i-- > 0;)
        if (Distance(handles[i], pixel) <= kGrip)
            return static_cast<int>(i);
    return -1;
}

void SelectTool::Press(const CanvasPoint& point)
{
    WorkDocument& document = View().Document();
    m_from = point;
    m_drag.Press(point.pixel);
    m_frame = View().SelectionRect();
    m_handle = HandleAt(point.pixel);
    if (m_handle >= 0) {
        m_state = m_handle == kTurnHandle ? State::Turn : State::Resize;
        return;
    }
    m_hit = View().ShapeAt(point.mm);
    const bool add = point.keys & Qt::ShiftModifier;
    const bool onFrame = !add && !document.Selection().empty() && m_frame.contains(point.mm);
    m_state = m_hit || onFrame ? State::Pressed : State::Marquee;
    m_marquee = QRectF(point.mm, QSizeF());
    if (!m_hit || (document.IsSelected(m_hit) && !add))
        return;
    std::vector<CShape*> selection = add ? document.Selection() : std::vector<CShape*>();
    if (std::erase(selection, m_hit) == 0)
        selection.push_back(m_hit);
    document.Select(std::move(selection));
    m_frame = View().SelectionRect();
}

void SelectTool::Drag(const CanvasPoint& point)
{
    if (!m_drag.Moved(point.pixel))
        return;
    if (m_state == State::Pressed && !View().Document().Selection().empty())
        m_state = State::Move;
    if (m_state == State::Move)
        View().SetPreview(MoveBy(point));
    if (m_state == State::Resize)
        View().SetPreview(Fitting(m_frame, ResizedTo(point)));
    if (m_state == State::Turn) {
        const QPointF centre = m_frame.center();
        View().SetPreview(QTransform::fromTranslate(-centre.x(), -centre.y()) * QTransform().rotate(TurnedBy(point)) *
                          QTransform::fromTranslate(centre.x(), centre.y()));
    }
    if (m_state == State::Marquee) {
        m_marquee = QRectF(m_from.mm, point.mm).normalized();
        m_touching = point.mm.x() < m_from.mm.x();
        View().update();
    }
}

void SelectTool::Release(const CanvasPoint& point)
{
    const State state = m_state;
    m_state = State::Idle;
    View().ClearPreview();
    if (state == State::Marquee) {
        SelectMarquee(point.keys & Qt::ShiftModifier);
    } else if (state == State::Pressed && !(point.keys & Qt::ShiftModifier)) {
        View().Document().Select(m_hit ? std::vector<CShape*>{m_hit} : std::vector<CShape*>());
    } else if (m_drag.Moved(point.pixel)) {
        m_state = state;
        Commit(point);
        m_state = State::Idle;
    }
    m_hit = nullptr;
}

void SelectTool::Commit(const CanvasPoint& point)
{
    WorkDocument& document = View().Document();
    if (m_state == State::Move)
        MoveSelection(document, MoveBy(point).map(QPointF()));
    if (m_state == State::Resize)
        ResizeSelection(document, ResizedTo(point));
    if (m_state == State::Turn)
        TurnSelection(document, TurnedBy(point), m_frame.center());
}

void SelectTool::SelectMarquee(bool add)
{
    WorkDocument& document = View().Document();
    std::vector<CShape*> selection = add ? document.Selection() : std::vector<CShape*>();
    if (m_drag.Began())
        for (CShape* shape : View().ShapesIn(m_marquee, m_touching))
            selection.push_back(shape);
    document.Select(std::move(selection));
}

QTransform SelectTool::MoveBy(const CanvasPoint& point) const
{
    QPointF by = point.mm - m_from.mm;
    const bool straight = point.keys & Qt::ShiftModifier, across = std::abs(by.x()) >= std::abs(by.y());
    if (straight)
        (across ? by.ry() : by.rx()) = 0;
    const QRectF frame = m_frame.translated(by);
    const std::array x{frame.left(), frame.center().x(), frame.right()};
    const std::array y{frame.top(), frame.center().y(), frame.bottom()};
    const size_t forX = straight && !across ? 0 : x.size(), forY = straight && across ? 0 : y.size();
    by += View().Snap().Shift({x.data(), forX}, {y.data(), forY}, point.keys, Snapping::Selected::IsDragged);
    return QTransform::fromTranslate(by.x(), by.y());
}

/// The shift (mm) that puts these sides of a rectangle onto snap lines.
QPointF SelectTool::SidesShift(const QRectF& rect, const HandleSides& sides, const CanvasPoint& point) const
{
    const std::array x{sides.x < 0 ? rect.left() : rect.right()};
    const std::array y{sides.y < 0 ? rect.top() : rect.bottom()};
    return View().Snap().Shift({x.data(), sides.x == 0 ? 0U : 1U}, {y.data(), sides.y == 0 ? 0U : 1U}, point.keys,
                               Snapping::Selected::IsDragged);
}

/// The frame, snapped so that moved sides lie on snap lines. With fixed proportions one of the two sides does.
QRectF SelectTool::ResizedTo(const CanvasPoint& point) const
{
    const HandleSides sides = kHandleSides[static_cast<size_t>(m_handle)];
    const QPointF moved = point.mm - m_from.mm;
    QRectF to = Resized(m_frame, sides, moved, point.keys);
    if (IsProportional(sides, point.keys, m_frame)) {
        QPointF shift = SidesShift(to, {sides.x, 0}, point);
        if (shift.isNull())
            shift = SidesShift(to, {0, sides.y}, point);
        to = Rescaled(m_frame, to, sides, shift, point.keys);
    } else {
        to = Resized(m_frame, sides, moved + SidesShift(to, sides, point), point.keys);
    }
    View().Snap().KeepGuidesOf(to); // a frame that has become as small as it can be follows no further
    return to;
}

double SelectTool::TurnedBy(const CanvasPoint& point) const
{
    const QPointF centre = m_frame.center();
    const double turned = AngleOf(point.mm - centre) - AngleOf(m_from.mm - centre);
    return point.keys & Qt::ShiftModifier ? std::round(turned / kTurnStep) * kTurnStep : turned;
}

void SelectTool::DoubleClick(const CanvasPoint& point)
{
    if (CShape* shape = View().ShapeAt(point.mm))
        emit View().EditAsked(shape);
}

void SelectTool::Hover(const CanvasPoint& point)
{
    const int handle = HandleAt(point.pixel);
    View().SetHover(handle < 0 ? View().ShapeAt(point.mm) : nullptr);
    constexpr std::array kCursors{Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor};
    const Qt::CursorShape cursor = handle < 0              ? (View().Hovered() ? Qt::SizeAllCursor : Qt::ArrowCursor)
                                   : handle == kTurnHandle ? Qt::PointingHandCursor
                                                           : kCursors[static_cast<size_t>(handle) % kCursors.size()];
    if (View().cursor().shape() != cursor)
        View().setCursor(cursor);
}

bool SelectTool::Key(QKeyEvent& event)
{
    if (const std::optional<QPointF> by = NudgeOf(event)) {
        if (m_state == State::Idle)
            MoveSelection(View().Document(), *by);
        return true;
    }
    if (const std::optional<int> step = StepOf(event)) {
        SelectNext(*step);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (View().Document().Selection().size() == 1)
            emit View().EditAsked(View().Document().Selection().front());
        return true;
    case Qt::Key_Escape:
        if (m_state == State::Idle)
            View().Document().Select({});
        Leave();
        return true;
    default:
        return false;
    }
}

/// Selects the next or previous shape in drawing order after the one selected last, wrapping around.
void SelectTool::SelectNext(int step)
{
    WorkDocument& document = View().Document();
    CShapeList& shapes = document.Shapes();
    const int count = static_cast<int>(shapes.GetCount());
    int place = document.Selection().empty() ? (step > 0 ? -1 : 0) : shapes.FindShape(document.Selection().back());
    for (int tried = 0; tried < count; ++tried) {
        place = (place + step + count) % count;
        CShape* shape = shapes.GetShape(static_cast<unsigned int>(place));
        if (shape->IsHide() || shape->IsLock())
            continue;
        document.Select({shape});
        return;
    }
}

void SelectTool::Paint(QPainter& painter)
{
    if (m_state == State::Marquee && !m_marquee.isNull()) {
        QColor tint = look::Marker();
        tint.setAlpha(30);
        painter.setPen(QPen(look::Marker(), 1, m_touching ? Qt::DashLine : Qt::SolidLine));
        painter.setBrush(tint);
        painter.drawRect(View().View().ToPixel(m_marquee));
    }
    if (View().Document().Selection().empty() || View().IsPreviewing())
        return;
    const QRectF frame = View().View().ToPixel(View().SelectionRect());
    const auto handles = HandlesOf(frame);
    painter.setPen(QPen(look::Marker(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(handles[0], handles[4]));
    painter.drawLine(handles[1], handles[kTurnHandle]);
    painter.setBrush(Qt::white);
    for (size_t i = 0; i < kTurnHandle; ++i)
        painter.drawRect(QRectF(handles[i] - QPointF(kHandle, kHandle), QSizeF(2 * kHandle, 2 * kHandle)));
    painter.drawEllipse(handles[kTurnHandle], kHandle + 1, kHandle + 1);
}

/// Ends a drag: undo may come in the middle of it and free its shapes.
void SelectTool::DrawingChanged()
{
    m_state = State::Idle;
    m_hit = nullptr;
    View().Snap().End();
    View().ClearPreview();
}

void SelectTool::Leave()
{
    DrawingChanged();
    View().update();
}

QString SelectTool::Hint() const
{
    return Tools::tr("Click selects, Shift adds; drag moves, Ctrl does not snap; double click edits; "
                     "Space and drag moves the view");
}
