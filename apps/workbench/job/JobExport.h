/// Writing a job into files.
#pragma once

#include "job/MadeJob.h"

#include <QStringList>

/// What a job can be written as.
enum class JobFormat
{
    Gcode, ///< for the machine
    Svg,   ///< lines and rows for other programs
    Png    ///< a picture of the order
};

/// For file dialogs, as "G-code (*.gcode *.nc)".
QString FilterOf(JobFormat format);
/// The ending of files of that kind, without its dot.
QString EndingOf(JobFormat format);

/// Writes file whole or not at all. Throws shapedocument::Failure; without lines and rows, too.
/// @return what the user should know of the file; often nothing
QStringList WriteJob(const MadeJob& job, JobFormat format, const QString& file);
