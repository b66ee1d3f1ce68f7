/// The rows that the machine engraves of a document: pictures and filled outlines.
#pragma once

#include "machine/EngraveRow.h"
#include "shapedocument_export.h"

#include <QRectF>
#include <QString>

#include <functional>

class CShape;
class CShapeList;

namespace shapedocument {

// Limits of the options, for all who take them.
constexpr double kFewestLines = 0.01; ///< per mm
constexpr double kMostLines = 200;    ///< per mm
constexpr int kMostGreyStep = 127;    ///< of 255

/// How finely and in which way is engraved.
struct EngraveOptions
{
    double linesPerMm = 10; ///< rows, and dots within a row
    bool oneWay = false;    ///< every row from left to right; else there and back
    int greyStep = 0;       ///< neighbouring dots burn with one power while their greys differ by no more than this
    bool dither = false;    ///< dots that burn or do not, for lasers whose power cannot be set
};

/// Whether the shape is a picture (code images are) or an outline with a fill marker. Cost: O(points).
SHAPEDOCUMENT_EXPORT bool IsEngraved(CShape& shape);

/// Why such a shape cannot be engraved, in the words under which it is counted as left out; empty if it can. Cost:
/// O(points), or the edits of a picture.
SHAPEDOCUMENT_EXPORT QString EngravingObstacle(CShape& shape);

/// The engraving of a document. Rows are made while they are read, one picture at a time, and not kept in memory.
class SHAPEDOCUMENT_EXPORT Engraving
{
public:
    /// document is borrowed and must not change. Its shapes are engraved in its order, hidden ones are not; array cells
    /// are engraved one by one. Throws Failure, naming file, when a shape lies out of reach or the shapes have too many
    /// dots at this pitch. Cost: O(shapes), cells included.
    Engraving(CShapeList& document, const EngraveOptions& options, const QString& file);

    /// Pictures and filled outlines, array cells one by one.
    size_t ShapeCount() const { return m_shapes; }

    /// Rows of all shapes, also those in which nothing burns.
    size_t RowCount() const { return m_rows; }

    /// The rectangle around everything that is engraved (mm, y down); null without any.
    QRectF Rect() const { return m_rect; }

    /// The distance of two rows and the side of a dot, mm.
    double Pitch() const { return 1 / m_options.linesPerMm; }

    /// Calls take with every row that burns, shape by shape, from the top. A picture's greys are those of
    /// CShapeImage::GetUnwarpedImage; 255 and dots outside the picture have no span. Cost: O(dots), on all cores, with
    /// memory for one picture and some rows. read, which may be empty, is called behind every row, also one in which
    /// nothing burns; both are called on the calling thread.
    void ForEachRow(const std::function<void(const EngraveRow&)>& take, const std::function<void()>& read = {}) const;

private:
    CShapeList& m_document;
    EngraveOptions m_options;
    size_t m_shapes = 0;
    size_t m_rows = 0;
    QRectF m_rect;
};

} // namespace shapedocument
