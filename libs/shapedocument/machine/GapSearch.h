/// Contours that are not quite closed.
#pragma once

#include <QPointF>
#include <QString>

#include <vector>

namespace shapedocument {

class MachineJob;

/// Where a contour stays open.
struct Gap
{
    QPointF place; ///< mm, y down: its middle
    double width;  ///< mm
};

/// The gaps of a job's cuts that are no wider than widest (mm). Cuts of one colour whose ends meet count as one.
/// - An open cut has a gap where its two ends lie no farther apart than an eighth of its mean width (4 areas per
///   length: the side of a square, the diameter of a circle). So the tooth of a comb, a slot that is open at one end,
///   a letter C and a dash have none.
/// - Several open cuts of one colour have gaps where the shortest links between their ends make them a contour, and
///   these links together are no longer than that eighth.
/// - No gap: where the lines overshoot and cross, or where both ends lie on other lines. An end lies on a line when the
///   line burns it, with the beam's width (mm).
/// Cost: about O(n log n). Throws Failure, naming file.
std::vector<Gap> FindGaps(const MachineJob& job, double widest, double beam, const QString& file);

} // namespace shapedocument
