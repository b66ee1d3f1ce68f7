/// How a drawing becomes the machine's work: what the job's form shows, and how it is kept.
#pragma once

#include "machine/Engraving.h"
#include "machine/JobReport.h"
#include "machine/MachinePaths.h"

#include <QSizeF>

class QSettings;

constexpr double kWidestBed = 10'000; ///< mm
constexpr double kFinestLines = 50;   ///< engraved lines per mm
constexpr double kLongestRunUp = 100; ///< mm

/// What is asked for. Colours have settings of their own, see ColorLayers.
struct JobSettings
{
    shapedocument::JobOptions job;           ///< colours included
    shapedocument::EngraveOptions engraving; ///< where pictures and filled outlines are engraved
    shapedocument::GcodeOptions gcode;       ///< feeds and powers
    shapedocument::MachineSettings machine;  ///< for times
    QSizeF bed{400, 300};                    ///< mm
    bool yDown = false;                      ///< the bed's 0, 0 is at the top left, else at the bottom left

    /// Engraves, without leads, for the first dialect.
    JobSettings();

    /// The bed as the sheet that the drawing lies on (mm, y down): its top left corner is the drawing's 0, 0.
    QRectF Sheet() const { return {QPointF(), bed}; }
    /// What G-code is written with: its 0, 0 is the bed's, whatever of it the drawing covers.
    shapedocument::GcodeOptions Gcode() const;
    /// What a report is asked for.
    shapedocument::ReportOptions Report() const;
};

/// Values that are missing or out of range stay as they are.
void ReadJobSettings(QSettings& stored, JobSettings& settings);
/// Everything but the colours.
void WriteJobSettings(QSettings& stored, const JobSettings& settings);
