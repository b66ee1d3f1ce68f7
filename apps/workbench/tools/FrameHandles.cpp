#include "tools/FrameHandles.h"

#include <algorithm>

namespace {

constexpr double kFrameGap = 5;      // pixels between shapes and frame
constexpr double kAboveFrame = 26;   // pixels from the frame to the handle that turns
constexpr double kLeastFrame = 0.01; // mm

/// The new length of a side (mm) whose handle moved by `moved`.
double Stretched(double length, double moved, int side, bool aboutMiddle)
{
    return std::max(kLeastFrame, length + side * moved * (aboutMiddle ? 2 : 1));
}

} // namespace

std::array<QPointF, 9> HandlesOf(const QRectF& frame)
{
    const QRectF around = frame.adjusted(-kFrameGap, -kFrameGap, kFrameGap, kFrameGap);
    std::array<QPointF, 9> handles;
    for (size_t i = 0; i < kHandleSides.size(); ++i)
        handles[i] =
            around.center() + QPointF(kHandleSides[i].x * around.width() / 2, kHandleSides[i].y * around.height() / 2);
    handles[kTurnHandle] = handles[1] - QPointF(0, kAboveFrame);
    return handles;
}

bool IsProportional(const HandleSides& sides, Qt::KeyboardModifiers keys, const QRectF& frame)
{
    return sides.x != 0 && sides.y != 0 && !(keys & Qt::ShiftModifier) && frame.width() > 0 && frame.height() > 0;
}

QRectF Resized(const QRectF& frame, const HandleSides& sides, QPointF moved, Qt::KeyboardModifiers keys)
{
    const bool aboutMiddle = keys & Qt::AltModifier;
    double width = Stretched(frame.width(), moved.x(), sides.x, aboutMiddle);
    double height = Stretched(frame.height(), moved.y(), sides.y, aboutMiddle);
    if (IsProportional(sides, keys, frame)) {
        const double scale = std::max(width / frame.width(), height / frame.height());
        width = frame.width() * scale;
        height = frame.height() * scale;
    }
    if (sides.x == 0)
        width = frame.width();
    if (sides.y == 0)
        height = frame.height();
    QRectF target(frame.topLeft(), QSizeF(width, height));
    if (aboutMiddle) {
        target.moveCenter(frame.center());
    } else {
        if (sides.x < 0)
            target.moveRight(frame.right());
        if (sides.y < 0)
            target.moveBottom(frame.bottom());
    }
    return target;
}

QRectF Rescaled(const QRectF& frame, const QRectF& to, const HandleSides& sides, QPointF shift,
                Qt::KeyboardModifiers keys)
{
    const bool aboutMiddle = keys & Qt::AltModifier;
    const double scale = shift.x() != 0 ? Stretched(to.width(), shift.x(), sides.x, aboutMiddle) / frame.width()
                                        : Stretched(to.height(), shift.y(), sides.y, aboutMiddle) / frame.height();
    const QPointF moved(sides.x * (scale - 1) * frame.width(), sides.y * (scale - 1) * frame.height());
    return Resized(frame, sides, aboutMiddle ? moved / 2 : moved, keys);
}

QTransform Fitting(const QRectF& from, const QRectF& to)
{
    const double x = from.width() > 0 ? to.width() / from.width() : 1;
    const double y = from.height() > 0 ? to.height() / from.height() : 1;
    return QTransform::fromTranslate(-from.left(), -from.top()) * QTransform::fromScale(x, y) *
           QTransform::fromTranslate(to.left(), to.top());
}
