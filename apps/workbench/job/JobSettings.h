/// The settings of jobs, which the form shows, and their storage.
#pragma once

#include "machine/Engraving.h"
#include "machine/JobReport.h"
#include "machine/MachinePaths.h"

#include <QSizeF>

class QSettings;

constexpr double kWidestBed = 10'000; ///< mm
constexpr double kFinestLines = 50;   ///< engraved lines per mm
constexpr double kLongestRunUp = 100; ///< mm

/// The settings of a job. Colours have their own settings, see ColorLayers.
struct JobSettings
{
    shapedocument::JobOptions job;           ///< colours included
    shapedocument::EngraveOptions engraving; ///< where pictures and filled outlines are engraved
    shapedocument::GcodeOptions gcode;       ///< feeds and powers
    shapedocument::MachineSettings machine;  ///< for estimates of time
    QSizeF bed{400, 300};                    ///< mm
    bool yDown = false;                      ///< the bed's 0, 0 is at the top left, else at the bottom left

    /// Defaults: engraving, no leads, the first dialect.
    JobSettings();

    /// The bed in the drawing's frame (mm, y down): its top left corner is the drawing's 0, 0.
    QRectF Sheet() const { return {QPointF(), bed}; }
    /// The options of G-code: its 0, 0 is that of the bed, whatever part of the bed the drawing covers.
    shapedocument::GcodeOptions Gcode() const;
    /// The options of the report.
    shapedocument::ReportOptions Report() const;
};

/// Reads stored settings. Missing values, and those out of range, leave settings unchanged.
void ReadJobSettings(QSettings& stored, JobSettings& settings);
/// Stores everything except the colours.
void WriteJobSettings(QSettings& stored, const JobSettings& settings);
