/// What of a document the machine engraves, row by row: pictures and filled outlines.
#pragma once

#include "machine/EngraveRow.h"
#include "shapedocument_export.h"

#include <QRectF>
#include <QString>

#include <functional>

class CShape;
class CShapeList;

namespace shapedocument {

/// How finely and in which way is engraved.
struct EngraveOptions
{
    double linesPerMm = 10; ///< rows, and dots within a row
    bool oneWay = false;    ///< every row from left to right; else there and back
    int greyStep = 0;       ///< neighbouring dots burn with one power while their greys differ by no more
    bool dither = false;    ///< dots that burn or do not, for lasers whose power cannot be set
};

/// Whether the shape is a picture (code images are) or an outline with a fill marker. Cost: O(points).
SHAPEDOCUMENT_EXPORT bool IsEngraved(CShape& shape);

/// Why such a shape cannot be engraved, in the words in which what is left out is counted; else empty.
/// Cost: O(points), or the edits of a picture.
SHAPEDOCUMENT_EXPORT QString EngravingObstacle(CShape& shape);

/// Nothing of it is kept in memory: the rows are made as they are asked for, one picture at a time.
class SHAPEDOCUMENT_EXPORT Engraving
{
public:
    /// document is borrowed and must not change. Its shapes are engraved in its order, what is hidden is not; array
    /// cells are engraved one by one. Throws Failure, naming file, when a shape lies out of reach or they are too large
    /// to be engraved so finely. Cost: O(shapes), cells counted.
    Engraving(CShapeList& document, const EngraveOptions& options, const QString& file);

    /// Pictures and filled outlines, array cells one by one.
    size_t ShapeCount() const { return m_shapes; }

    /// Rows of all shapes, also those in which nothing burns.
    size_t RowCount() const { return m_rows; }

    /// Around everything that is engraved (mm, y down); null without any.
    QRectF Rect() const { return m_rect; }

    /// mm between two rows, and of a dot.
    double Pitch() const { return 1 / m_options.linesPerMm; }

    /// Calls take with every row that burns, shape by shape, from the top. A picture's greys are those of
    /// CShapeImage::GetUnwarpedImage; 255 and what the picture does not cover stay without a span.
    /// Cost: O(dots), with memory for one row and one picture.
    void ForEachRow(const std::function<void(const EngraveRow&)>& take) const;

private:
    CShapeList& m_document;
    EngraveOptions m_options;
    size_t m_shapes = 0;
    size_t m_rows = 0;
    QRectF m_rect;
};

} // namespace shapedocument
