/// Moves, resizes, turns and mirrors the selection, each as one undo command.
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>

class WorkDocument;

// Lengths are millimetres, angles degrees, clockwise on screen. The functions return false when nothing is selected or
// changed.

/// Moves the selected shapes.
bool MoveSelection(WorkDocument& document, QPointF by);
/// Fits the rectangle around the selected shapes onto target. Among several shapes, texts are resized only if the
/// scales in x and y are equal; a single text is fitted as well as its proportions allow.
bool ResizeSelection(WorkDocument& document, const QRectF& target);
/// Turns the selected shapes about the point.
bool TurnSelection(WorkDocument& document, double degrees, QPointF centre);
/// Mirrors left to right about the middle of the selection.
bool MirrorSelectionX(WorkDocument& document);
/// Mirrors top to bottom about the middle of the selection.
bool MirrorSelectionY(WorkDocument& document);
/// Mirrors across the line through the two points.
bool MirrorSelectionAcross(WorkDocument& document, const QLineF& line);
