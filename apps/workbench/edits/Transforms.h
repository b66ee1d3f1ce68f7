/// Moving, resizing, turning and mirroring what is selected, each as one undo command.
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>

class WorkDocument;

// All lengths are millimetres, angles degrees, clockwise on screen. False when nothing is selected or changed.

/// Moves the selected shapes.
bool MoveSelection(WorkDocument& document, QPointF by);
/// Fits the rectangle around the selected shapes onto target. Among several shapes, texts are only resized with equal
/// scales in x and y; a text alone takes the target's size as it can.
bool ResizeSelection(WorkDocument& document, const QRectF& target);
/// Turns the selected shapes about the point.
bool TurnSelection(WorkDocument& document, double degrees, QPointF centre);
/// Mirrors left to right about the middle of the selection.
bool MirrorSelectionX(WorkDocument& document);
/// Mirrors top to bottom about the middle of the selection.
bool MirrorSelectionY(WorkDocument& document);
/// Mirrors across the line through the two points.
bool MirrorSelectionAcross(WorkDocument& document, const QLineF& line);
