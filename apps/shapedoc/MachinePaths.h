/// What the machine is to follow, in order.
#pragma once

#include <QPolygonF>
#include <QString>

#include <vector>

class CShapeList;

enum class PathKind
{
    Cut,
    LeadIn,
    LeadOut
};

/// One run of the tool without a move in between.
struct MachinePath
{
    size_t shape = 0; ///< 1 for the first shape that is followed
    PathKind kind = PathKind::Cut;
    unsigned int color = 0;
    QPolygonF points; ///< mm, y down; two at least
};

struct MachineJob
{
    std::vector<MachinePath> paths;
    size_t shapes = 0;   ///< with a line at least
    size_t unusable = 0; ///< shapes that were taken out of the document
};

/// Optimises, sorts and cleans the document, and flattens every shape that is not hidden. With leads, a shape's lead-in
/// and lead-out lines go before and behind it where they are active. Throws Failure, naming file, when a coordinate is no
/// number that a machine could go to.
MachineJob PrepareJob(CShapeList& document, bool leads, const QString& file);

/// The rectangle of all paths; null without any.
QRectF JobRect(const MachineJob& job);
