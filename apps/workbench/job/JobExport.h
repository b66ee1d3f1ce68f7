/// Writes a job to files.
#pragma once

#include "job/MadeJob.h"

#include <QStringList>

#include <functional>

/// The formats of job files.
enum class JobFormat
{
    Gcode, ///< for the machine
    Svg,   ///< lines and rows for other programs
    Png    ///< a picture of the order
};

/// The format's filter for file dialogs, as "G-code (*.gcode *.nc)".
QString FilterOf(JobFormat format);
/// The ending of files of that format, without its dot.
QString EndingOf(JobFormat format);

/// Writes file completely or not at all, on any thread. Throws shapedocument::Failure, also for a job without lines and
/// rows, and shapedocument::Stopped, with the file unchanged, once goesOn returns false.
/// @return notes on the file for the user; often empty
QStringList WriteJob(const MadeJob& job, JobFormat format, const QString& file, const std::function<bool()>& goesOn);
