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

/// The gaps of a job's cuts up to widest (mm), each of them. Cuts of one colour whose ends meet are taken together
/// first. What is left open was meant to be closed where its two ends lie no farther apart than an eighth of its mean
/// width (4 areas per length: the side of a square, the diameter of a circle), so that a tooth of a comb, a slot that
/// is open at one end, a letter C and a dash are none; and so were several cuts of one colour that make a contour with
/// the ways between the ends nearest to each other, where all of these together are no longer than that. Nothing is
/// told of a gap that its own lines close because they overshoot, nor of one whose two ends both lie on other lines; an
/// end lies on a line that burns it, as wide as the beam (mm). About n log n steps. Throws Failure, naming file.
std::vector<Gap> FindGaps(const MachineJob& job, double widest, double beam, const QString& file);

} // namespace shapedocument
