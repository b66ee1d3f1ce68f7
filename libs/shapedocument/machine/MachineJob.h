/// The lines that the machine is to follow, in order. They are kept in a temporary file: a job may be much larger than
/// its document.
#pragma once

#include "shapedocument_export.h"
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace shapedocument {

class UnnamedFile;

/// What a path is for.
enum class PathKind
{
    Cut,    ///< of an outline
    LeadIn, ///< in front of a cut
    LeadOut ///< behind a cut
};

/// A point of a path, and how the path goes on from it.
struct JobPoint
{
    QPointF point; ///< mm, y down
    /// Of the segment from here to the next point: the tangent of a quarter of the angle that its arc sweeps, positive
    /// where it turns from +x towards +y; 0 for a straight line, 1 for a half circle, never beyond. The last point of
    /// an open path has 0.
    double bulge = 0;
};

/// One run of the tool: a line followed without a move in between.
struct MachinePath
{
    size_t shape = 0;              ///< 1 for the first shape that is followed
    PathKind kind = PathKind::Cut; ///< what it is for
    unsigned int color = 0;        ///< of the shape
    size_t points = 0;             ///< two at least
    bool closed = false;           ///< the last point is the first one again
    bool exact = false;            ///< lines only, all as drawn: no point has been left out or moved
    uint32_t whole = 0; ///< number of the path that it is a part of, in the job before its doubles were left out
    uint32_t block = 0; ///< number in the order: all passes of a block come before the next block; see PlacedPath
};

/// Paths as they are appended, in a temporary file without a name.
class SHAPEDOCUMENT_EXPORT MachineJob
{
public:
    /// Throws Failure, naming file.
    explicit MachineJob(const QString& file);
    /// Takes over the paths of other, which is not to be used any more.
    MachineJob(MachineJob&& other) noexcept;
    /// Takes over the paths of other, which is not to be used any more.
    MachineJob& operator=(MachineJob&& other) noexcept;
    ~MachineJob();

    /// points: two at least; path.points and path.closed are set from them. Cost: O(points).
    void Append(MachinePath path, const std::vector<JobPoint>& points);

    /// To be called after the last path. Throws Failure, naming file, when the disk had no space for all of them.
    void Finish(const QString& file);

    /// Paths of all kinds.
    size_t PathCount() const { return m_paths; }
    /// Shapes that the paths belong to.
    size_t ShapeCount() const { return m_shapes; }
    /// Whether any segment has a bulge.
    bool HasArcs() const { return m_arcs; }

    /// The rectangle of all paths; null without any.
    QRectF Rect() const;

private:
    friend class JobReader;
    friend class JobView;

    SHAPEDOCUMENT_NO_EXPORT void Include(const QRectF& rect);

    std::unique_ptr<UnnamedFile> m_file;
    size_t m_paths = 0;
    size_t m_shapes = 0;
    bool m_arcs = false;
    double m_left = 0, m_top = 0, m_right = 0, m_bottom = 0;
};

/// Reads the paths of a finished job. A job may have one reader at a time. Throws Failure where the temporary file
/// fails.
class SHAPEDOCUMENT_EXPORT JobReader
{
public:
    /// The job is borrowed.
    explicit JobReader(const MachineJob& job);

    /// The next path, its points unread; nothing behind the last.
    std::optional<MachinePath> NextPath();

    /// The next point of the path; nothing behind its last.
    std::optional<JobPoint> NextPoint();

    /// The place in the job of the path that NextPath returned last.
    qint64 Place() const { return m_place; }

    /// Makes the path at a place the next one.
    /// @param place that Place returned.
    /// @param paths number of paths to read from there on.
    void GoTo(qint64 place, size_t paths = 1);

    /// The points of the path that are still unread. Cost: O(points).
    std::vector<JobPoint> Run();

    /// The points of the path that are still unread, without their bulges. Cost: O(points).
    QPolygonF Points();

private:
    SHAPEDOCUMENT_NO_EXPORT void Fill();

    UnnamedFile& m_file;
    size_t m_paths;      ///< not returned yet
    size_t m_unread = 0; ///< points of the path that are still in the file
    size_t m_next = 0;
    qint64 m_place = 0, m_nextPlace = 0;
    std::vector<JobPoint> m_block;
};

} // namespace shapedocument
