/// The report on a job before anything burns: lengths, time and findings.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/GcodeTime.h"
#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <array>
#include <optional>
#include <vector>

class CShapeList;

namespace shapedocument {

struct DoubledLines;
struct MachineWork;

/// Kinds of findings, in the order of reports.
enum class FindingKind
{
    Gap,           ///< a contour that is nearly closed; size: mm that it stays open
    OutOfBed,      ///< a path or an engraved shape that leaves the machine's bed; size: mm that it lies outside
    DoubledLine,   ///< lines on each other; size: mm of them
    SelfCrossing,  ///< a closed contour that crosses itself
    ShortLine,     ///< an open path shorter than the beam is wide; size: mm
    TinyIsland,    ///< a closed contour that the beam burns away; size: mm, its width
    CoarsePicture, ///< fewer pixels than engraved lines; size: pixels per mm
    MissingFont,   ///< a text that this computer cannot set as intended
    Hidden,        ///< a shape that is not part of the job
    Locked,        ///< a shape that hosts do not move
    Count_
};

/// The words of a kind in reports.
struct FindingWords
{
    const char* name; ///< its name in JSON
    const char* one;  ///< behind the number 1
    const char* many; ///< behind other numbers
    bool spoils;      ///< the work is not what the drawing shows
};
/// The words of a kind. Cost: O(1).
SHAPEDOCUMENT_EXPORT const FindingWords& WordsOf(FindingKind kind);

/// One thing that was found.
struct Finding
{
    QPointF place;   ///< mm, y down
    double size = 0; ///< as its kind says
    QString text;    ///< further words; may be empty
};

/// Limit of the findings of a kind that are listed singly.
constexpr size_t kMostTold = 1000;

/// Everything of one kind.
struct SHAPEDOCUMENT_EXPORT Findings
{
    /// Counts a finding, and keeps it among the first kMostTold.
    void Add(Finding finding);

    size_t count = 0;            ///< all of them
    std::vector<Finding> first;  ///< kMostTold at most
    std::optional<double> total; ///< of all sizes, where they add up
    bool isComplete = true;      ///< false: the search ended at its limit, there may be more
};

// Limits of ReportOptions::widestGap.
constexpr double kNarrowestGap = 0.001; ///< mm
constexpr double kWidestGap = 100;      ///< mm

/// What a report is made for.
struct ReportOptions
{
    MachineSettings machine;   ///< for the time
    GcodeOptions gcode;        ///< with which the work is to be written
    std::optional<QRectF> bed; ///< mm, as the machine counts in its G-code
    bool strictBed = false;    ///< what lies outside the bed spoils the work
    double widestGap = 1;      ///< mm; a contour with a wider opening is meant to be open
};

/// Lengths, time and findings of a job.
struct SHAPEDOCUMENT_EXPORT JobReport
{
    /// Adds a finding to those of its kind.
    void Add(FindingKind kind, Finding finding) { Of(kind).Add(std::move(finding)); }
    /// What was found of a kind.
    Findings& Of(FindingKind kind) { return findings[static_cast<size_t>(kind)]; }
    /// The same, for reading.
    const Findings& Of(FindingKind kind) const { return findings[static_cast<size_t>(kind)]; }

    /// Whether findings of that kind make the work differ from the drawing.
    bool Spoils(FindingKind kind) const;
    /// Whether any findings make the work differ from the drawing.
    bool Spoils() const;

    size_t paths = 0; ///< cuts and leads
    GcodeTime time;   ///< lengths, areas and seconds of the G-code
    std::array<Findings, static_cast<size_t>(FindingKind::Count_)> findings; ///< by kind
    bool strictBed = false; ///< what lies outside the bed spoils the work
};

/// The report on a work and its G-code. Throws Failure, naming file, where temporary files fail. Cost: O(n log n) in
/// the points; the search for crossings ends after 50 million pairs of segments.
SHAPEDOCUMENT_EXPORT JobReport ReportOf(const MachineWork& work, const ReportOptions& options, const QString& file);

/// Adds the lines that were, or would be, left out because they lie on others. Cost: O(lines listed).
SHAPEDOCUMENT_EXPORT void AddDoubledLines(JobReport& report, const DoubledLines& doubled);

/// Adds findings on the document's shapes: hidden and locked ones; among shown ones also texts that this computer
/// cannot set as intended, and pictures with fewer pixels than engraved lines (linesPerMm, absent where they are not
/// engraved). Cost: O(shapes + letters).
SHAPEDOCUMENT_EXPORT void AddShapeFindings(JobReport& report, CShapeList& document, std::optional<double> linesPerMm);

} // namespace shapedocument
