/// The handles around the selection: where they are, and what dragging one makes of the frame.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <array>

/// The sides that a handle moves: -1 left or top, 1 right or bottom, 0 neither.
struct HandleSides
{
    int x;
    int y;
};

/// Of the handles that resize: clockwise from the top left corner.
constexpr std::array<HandleSides, 8> kHandleSides{
    {{-1, -1}, {0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}}};
/// Index of the handle that turns.
constexpr int kTurnHandle = 8;

/// The handles of a frame on the canvas (pixels): those that resize, then the one that turns.
std::array<QPointF, 9> HandlesOf(const QRectF& frame);

/// Whether a handle keeps the proportions: corners do, unless Shift is held.
bool IsProportional(const HandleSides& sides, Qt::KeyboardModifiers keys, const QRectF& frame);

/// The frame (mm) after one of its handles has moved, at least 0.01 mm wide and high; with Alt about its middle.
QRectF Resized(const QRectF& frame, const HandleSides& sides, QPointF moved, Qt::KeyboardModifiers keys);

/// The frame in the proportions that it had before, with the dragged sides of `to` shifted (mm): the horizontal shift
/// counts where it is not 0, else the vertical one.
QRectF Rescaled(const QRectF& frame, const QRectF& to, const HandleSides& sides, QPointF shift,
                Qt::KeyboardModifiers keys);

/// Maps one frame to the other.
QTransform Fitting(const QRectF& from, const QRectF& to);
