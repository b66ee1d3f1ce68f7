/// A drawing's job, ready to be shown, played and written.
#pragma once

#include "job/JobSettings.h"
#include "list/ShapeListOwner.h"
#include "machine/HeadWay.h"
#include "machine/MachineWork.h"

#include <QImage>
#include <QPainterPath>
#include <QPolygonF>

#include <mutex>

/// A path as it is drawn.
struct DrawnPath
{
    QPolygonF points;               ///< mm, arcs in chords
    QRectF bounds;                  ///< around them
    std::vector<double> lengths;    ///< from its start to each point, mm
    unsigned int color = 0;         ///< of the shape
    shapedocument::PathKind kind{}; ///< leads are drawn lighter

    /// The place (mm) of the head after this part (0 to 1) of the path.
    QPointF PlaceAt(double part) const;
};

/// Where the head is at some time.
struct HeadPlace
{
    size_t step = 0; ///< index of the present step; all before it are done
    double part = 0; ///< of that step, 0 to 1
    QPointF place;   ///< mm, y down
};

/// A job and everything known of it. Immutable.
class MadeJob
{
public:
    /// Makes the job of a copy of the drawing, which it takes over and changes. Throws shapedocument::Failure, and
    /// shapedocument::Stopped where progress returns false. Cost: that of PrepareJob, ReportOf and WayOfHead.
    MadeJob(ShapeListOwner copy, const JobSettings& settings, const shapedocument::WorkProgress& progress);
    MadeJob(const MadeJob&) = delete;
    MadeJob& operator=(const MadeJob&) = delete;

    const JobSettings& Settings() const { return m_settings; }
    /// The work, for writing. It has one reader at a time: lock Reading() meanwhile.
    const shapedocument::MachineWork& Work() const { return m_work; }
    std::mutex& Reading() const { return m_reading; }
    const shapedocument::JobReport& Report() const { return m_report; }
    /// The number of shapes without lines, by kind.
    const shapedocument::LeftOut& LeftOut() const { return m_prepared.leftOut; }
    /// The job's paths, by their index in the job.
    const std::vector<DrawnPath>& Paths() const { return m_paths; }
    /// The steps of the head.
    const std::vector<shapedocument::HeadStep>& Steps() const { return m_way.steps; }
    /// The time of the whole job, seconds.
    double Seconds() const { return m_way.time.seconds; }
    /// The place of the head at a time (seconds), which is limited to the job's time. Cost: O(log steps).
    HeadPlace PlaceAt(double seconds) const;

    /// A picture of the engraving, black where it burns and transparent elsewhere; null without engraving.
    const QImage& Rows() const { return m_rows; }
    /// The rectangle of that picture (mm).
    QRectF RowsRect() const { return m_rowsRect; }
    /// The outlines of engraved pictures (mm).
    const QPainterPath& Pictures() const { return m_pictures; }
    /// The distance of two rows, mm.
    double RowPitch() const { return 1 / m_settings.engraving.linesPerMm; }

private:
    void CollectPaths();
    void DrawRows();
    void CollectPictures();

    JobSettings m_settings;
    ShapeListOwner m_drawing;
    shapedocument::PreparedJob m_prepared;
    std::unique_ptr<shapedocument::Engraving> m_engraving;
    shapedocument::MachineWork m_work;
    mutable std::mutex m_reading;
    shapedocument::JobReport m_report;
    shapedocument::HeadWay m_way;
    std::vector<DrawnPath> m_paths;
    QImage m_rows;
    QRectF m_rowsRect;
    QPainterPath m_pictures;
};
