/// A drawing's job, ready to be looked at, played and written.
#pragma once

#include "job/JobSettings.h"
#include "list/ShapeListOwner.h"
#include "machine/HeadWay.h"
#include "machine/MachineWork.h"

#include <QImage>
#include <QPolygonF>

/// A path as it is drawn.
struct DrawnPath
{
    QPolygonF points;               ///< mm, arcs in chords
    QRectF bounds;                  ///< around them
    std::vector<double> lengths;    ///< from its begin to each point, mm
    unsigned int color = 0;         ///< of the shape
    shapedocument::PathKind kind{}; ///< leads are drawn lighter

    /// Where the head is when it has done this part (0 to 1) of the path.
    QPointF PlaceAt(double part) const;
};

/// Where the head is at some time.
struct HeadPlace
{
    size_t step = 0; ///< of the way; all before it are done
    double part = 0; ///< of that step, 0 to 1
    QPointF place;   ///< mm, y down
};

/// Everything that is known of a job. Nothing changes once it is made.
class MadeJob
{
public:
    /// Makes the work of a copy of the drawing, which it keeps and changes. Throws shapedocument::Failure, and
    /// shapedocument::Stopped where progress says so. Cost: that of PrepareJob, ReportOf and WayOfHead.
    MadeJob(ShapeListOwner copy, const JobSettings& settings, const shapedocument::WorkProgress& progress);
    MadeJob(const MadeJob&) = delete;
    MadeJob& operator=(const MadeJob&) = delete;

    const JobSettings& Settings() const { return m_settings; }
    /// To be written. One writer at a time.
    const shapedocument::MachineWork& Work() const { return m_work; }
    const shapedocument::JobReport& Report() const { return m_report; }
    /// Shapes that have no lines: how many of each kind.
    const shapedocument::LeftOut& LeftOut() const { return m_prepared.leftOut; }
    /// The job's paths, by their numbers.
    const std::vector<DrawnPath>& Paths() const { return m_paths; }
    /// The steps of the head.
    const std::vector<shapedocument::HeadStep>& Steps() const { return m_way.steps; }
    /// Of the whole job.
    double Seconds() const { return m_way.time.seconds; }
    /// Where the head is. Seconds before 0 and behind the end count as these. Cost: O(log steps).
    HeadPlace PlaceAt(double seconds) const;

    /// What is engraved, black where it is burned and clear elsewhere; null without engraving.
    const QImage& Rows() const { return m_rows; }
    /// Where that picture lies (mm).
    QRectF RowsRect() const { return m_rowsRect; }
    /// mm between two rows.
    double RowPitch() const { return 1 / m_settings.engraving.linesPerMm; }

private:
    void TakePaths();
    void DrawRows();

    JobSettings m_settings;
    ShapeListOwner m_drawing;
    shapedocument::PreparedJob m_prepared;
    std::unique_ptr<shapedocument::Engraving> m_engraving;
    shapedocument::MachineWork m_work;
    shapedocument::JobReport m_report;
    shapedocument::HeadWay m_way;
    std::vector<DrawnPath> m_paths;
    QImage m_rows;
    QRectF m_rowsRect;
};
