/// Facts about shapes, for lists of a document's contents.
#pragma once

#include "document/TextShape.h"
#include "shapedocument_export.h"

#include "group/ShapeArray.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>

class CShapeList;

namespace shapedocument {

/// The parameters of a text.
struct TextFacts
{
    QString content;      ///< lines separated by line feeds
    TextSetting setting;  ///< font, lengths in mm, alignment
    double angle = 0;     ///< degrees about the centre, clockwise as seen on screen
    QPointF centre;       ///< mm, of the text before it is turned
    bool mirrorX = false; ///< left to right
    bool mirrorY = false; ///< top to bottom
};

/// Facts about a shape, without those of a file from which it came.
struct ShapeFacts
{
    QString type;                  ///< "vector", "code image", …; its number if it is unknown
    QString vectorType;            ///< "EVECTOR_RECT", …; empty unless it is a vector
    QList<ShapeArrayInfo> cells;   ///< of an array, deleted ones too
    qint64 points = 0;             ///< of the outline, separators not counted
    bool closed = false;           ///< as CShape::IsClose returns
    bool selected = false;         ///< on the drawing
    bool locked = false;           ///< hosts do not move it
    bool hidden = false;           ///< not part of jobs
    bool grouped = false;          ///< a group's member
    unsigned int color = 0;        ///< 0xRRGGBB
    QRectF rect;                   ///< mm, upright
    std::optional<TextFacts> text; ///< of texts alone
};

/// Builds the shape's path, which may fit curves to a polyline: points is their number before that, rect the rectangle
/// after it. Members of groups and arrays are not examined. Cost: O(points).
SHAPEDOCUMENT_EXPORT ShapeFacts FactsOf(CShape& shape);

/// Number of shapes in the list, members of groups and arrays included. Cost: O(shapes).
SHAPEDOCUMENT_EXPORT size_t CountShapes(CShapeList& list);

} // namespace shapedocument
