/// Makes a job's runs of a document's shapes.
#pragma once

#include "machine/MachinePaths.h"

#include <QLineF>

#include <optional>

class CShape;
class CShapeImage;
class QPainterPath;

namespace shapedocument {

/// Adds to leftOut the document's hidden shapes, its arrays without cells, and cells of arrays without place.
void CountWithoutLines(CShapeList& document, LeftOut& leftOut);

/// Takes shapes one at a time and appends their lines to a job.
class JobBuilder
{
public:
    /// All are borrowed. file: named in failures.
    JobBuilder(PreparedJob& prepared, const JobOptions& options, const QString& file)
        : m_job(prepared.job), m_leftOut(prepared.leftOut), m_options(options), m_file(file)
    {}

    /// Appends the shape's lines, or counts it as left out. The shape itself keeps no outline. Throws Failure for a
    /// coordinate beyond kFarthest.
    void Add(CShape& shape);

private:
    struct Leads
    {
        QLineF in, out;
    };

    bool FollowsFrame(CShapeImage& picture);
    bool AddRuns(CShape& shape);
    bool HasPlace(const QPainterPath& outline) const;
    std::optional<Leads> LeadsOf(CShape& shape) const;
    void BeginShape(unsigned int color, const std::optional<Leads>& leads);
    void AppendLead(PathKind kind, unsigned int color, const QLineF& lead);

    MachineJob& m_job;
    LeftOut& m_leftOut;
    const JobOptions& m_options;
    const QString& m_file;
    size_t m_shapes = 0;
};

} // namespace shapedocument
