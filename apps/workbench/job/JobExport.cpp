#include "job/JobExport.h"

#include "document/Failure.h"
#include "document/OutputFile.h"
#include "document/WorkProgress.h"
#include "machine/GcodeOutput.h"
#include "machine/LineOutput.h"
#include "render/Drawing.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>

using namespace shapedocument;

namespace {

QString ExportWords(const char* text)
{
    return QCoreApplication::translate("JobExport", text);
}

void WritePng(QFile& file, const MadeJob& job)
{
    constexpr double kWidth = 2000; // pixels
    const Sheet sheet(job.Work().Rect(), file.fileName());
    QImage image(QSize(int(kWidth), int(kWidth * sheet.Size().height() / sheet.Size().width())), QImage::Format_RGB32);
    if (image.isNull())
        throw Failure{file.fileName(),
                      ExportWords(QT_TRANSLATE_NOOP("JobExport", "the job is too long for a picture"))};
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    sheet.SetUp(painter, kWidth);
    sheet.DrawFrame(painter);
    if (!job.Rows().isNull())
        painter.drawImage(job.RowsRect(), job.Rows());
    DrawOrder(painter, job.Work().job, sheet.Unit());
    painter.end();
    image.save(&file, "PNG");
}

/// Throws Failure for powers above those that the dialect's firmware accepts.
void ExpectPowers(const MadeJob& job, const QString& file)
{
    const GcodeDialect& dialect = *job.Settings().gcode.dialect;
    for (const auto& [color, setting] : job.Settings().job.colors)
        if (dialect.boundedPower && setting.power.value_or(0) > dialect.fullPower)
            throw Failure{file, ExportWords(QT_TRANSLATE_NOOP("JobExport", "layer #%1 has power %2, but the firmware's "
                                                                           "whole power is %3"))
                                    .arg(color, 6, 16, QChar('0'))
                                    .arg(*setting.power)
                                    .arg(dialect.fullPower)};
}

QStringList NotesOf(const RowCounts& counts, const MadeJob& job)
{
    QStringList notes;
    if (counts.leftOfZero > 0)
        notes << ExportWords(QT_TRANSLATE_NOOP("JobExport",
                                               "The run-up of %1 rows reaches left of 0, to X%2: move what "
                                               "is engraved to the right"))
                     .arg(counts.leftOfZero)
                     .arg(counts.least, 0, 'f', 2);
    if (counts.rows == 0 && job.Work().EngravedShapes() > 0)
        notes << ExportWords(QT_TRANSLATE_NOOP("JobExport", "Nothing is engraved: all is white"));
    if (const size_t outside = job.Report().Of(FindingKind::OutOfBed).count; outside > 0)
        notes << ExportWords(QT_TRANSLATE_NOOP("JobExport", "%1 paths leave the bed")).arg(outside);
    return notes;
}

} // namespace

QString FilterOf(JobFormat format)
{
    switch (format) {
    case JobFormat::Gcode:
        return ExportWords(QT_TRANSLATE_NOOP("JobExport", "G-code (*.gcode *.nc *.ngc *.gc)"));
    case JobFormat::Svg:
        return ExportWords(QT_TRANSLATE_NOOP("JobExport", "SVG drawing (*.svg)"));
    case JobFormat::Png:
        return ExportWords(QT_TRANSLATE_NOOP("JobExport", "PNG picture (*.png)"));
    }
    return {};
}

QString EndingOf(JobFormat format)
{
    switch (format) {
    case JobFormat::Gcode:
        return "gcode";
    case JobFormat::Svg:
        return "svg";
    case JobFormat::Png:
        return "png";
    }
    return {};
}

QStringList WriteJob(const MadeJob& job, JobFormat format, const QString& file, const std::function<bool()>& goesOn)
{
    const std::scoped_lock reading(job.Reading());
    if (job.Work().job.PathCount() == 0 && job.Work().EngravedShapes() == 0)
        throw Failure{file, ExportWords(QT_TRANSLATE_NOOP("JobExport", "the drawing has no line to follow"))};
    if (format == JobFormat::Gcode)
        ExpectPowers(job, file);
    const auto expectGoesOn = [&goesOn] {
        if (!goesOn())
            throw Stopped();
    };
    MachineWork work = job.Work();
    work.progress = work.pathProgress = [&](size_t, size_t) { expectGoesOn(); };
    QStringList notes;
    const auto write = [&](QFile& device) {
        if (format == JobFormat::Gcode)
            notes = NotesOf(WriteGcode(device, work, job.Settings().Gcode()), job);
        else if (format == JobFormat::Svg)
            WriteSvg(device, work);
        else
            WritePng(device, job);
    };
    WriteFile({file}, write, [&](QFile&) { expectGoesOn(); });
    return notes;
}
