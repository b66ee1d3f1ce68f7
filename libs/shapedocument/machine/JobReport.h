/// What there is to know of a job before anything burns.
#pragma once

#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <array>
#include <optional>
#include <vector>

class CShapeList;

namespace shapedocument {

struct DoubledLines;
struct MachineWork;

/// What may be found, in the order of reports.
enum class FindingKind
{
    Gap,           ///< a contour that is nearly closed; size: mm that it stays open
    OutOfBed,      ///< a path that leaves the machine's bed; size: mm that it lies outside
    DoubledLine,   ///< lines on each other; size: mm of them
    SelfCrossing,  ///< a closed contour that crosses itself
    ShortLine,     ///< a path shorter than the beam is wide; size: mm
    TinyIsland,    ///< a closed contour that the beam burns away; size: mm, of its smaller side
    CoarsePicture, ///< fewer pixels than engraved lines; size: pixels per mm
    MissingFont,   ///< a text that this machine cannot set as it should be
    Hidden,        ///< a shape that is not part of the job
    Locked,        ///< a shape that hosts do not move
    Count_
};

/// How a kind is told: its name in JSON, and the words behind its number in a line.
struct FindingWords
{
    const char* name;
    const char* one;
    const char* many;
    bool spoils; ///< the work is not what the drawing shows
};
SHAPEDOCUMENT_EXPORT const FindingWords& WordsOf(FindingKind kind);

struct Finding
{
    std::optional<QPointF> place; ///< mm, y down; none for what has no single place
    double size = 0;              ///< as its kind says
    QString text;                 ///< further words; may be empty
};

struct Findings
{
    size_t count = 0;
    std::vector<Finding> first; ///< kMostTold at most
    bool isComplete = true;     ///< false: the search was given up, there may be more
};

/// So many findings of a kind are told one by one.
constexpr size_t kMostTold = 1000;

struct ReportOptions
{
    MachineSettings machine;
    std::optional<QSizeF> bed;        ///< mm; its corner is 0, 0
    double widestGap = 1;             ///< mm; a contour that is open any wider is meant to be
    std::optional<double> linesPerMm; ///< of the engraving; none: pictures are not engraved
};

struct SHAPEDOCUMENT_EXPORT JobReport
{
    void Add(FindingKind kind, Finding finding);
    Findings& Of(FindingKind kind) { return findings[static_cast<size_t>(kind)]; }
    const Findings& Of(FindingKind kind) const { return findings[static_cast<size_t>(kind)]; }

    /// Whether anything was found that makes the work differ from the drawing.
    bool Spoils() const;

    size_t paths = 0;
    double cutLength = 0;    ///< mm, leads included
    double travelLength = 0; ///< mm, to the first path, between paths, and back to 0, 0; not between engraved rows
    double engravedArea = 0; ///< mm²
    double seconds = 0;      ///< estimated
    std::array<Findings, static_cast<size_t>(FindingKind::Count_)> findings;
};

/// The rows that would be engraved and then the lines that would be cut, in the order of the finished job. Throws
/// Failure, naming file, where temporary files fail.
SHAPEDOCUMENT_EXPORT JobReport ReportOf(const MachineWork& work, const ReportOptions& options, const QString& file);

/// Adds the lines that were, or would be, left out because they lie on others.
SHAPEDOCUMENT_EXPORT void AddDoubledLines(JobReport& report, const DoubledLines& doubled);

/// Adds what the document's shapes tell: hidden and locked ones, coarse pictures, fonts.
SHAPEDOCUMENT_EXPORT void AddShapeFindings(JobReport& report, CShapeList& document, const ReportOptions& options);

} // namespace shapedocument
