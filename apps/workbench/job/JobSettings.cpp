#include "job/JobSettings.h"

#include <QSettings>

#include <algorithm>
#include <array>
#include <cmath>

using namespace shapedocument;

namespace {

/// A stored number: its key and bounds, and how to read and set it.
struct StoredNumber
{
    const char* key;
    double least, most;
    double (*get)(const JobSettings& settings);
    void (*set)(JobSettings& settings, double value);
};

// Switches are stored as 0 or 1.
const std::array kNumbers{
    StoredNumber{"bedWidth", 1, kWidestBed, [](const JobSettings& s) { return s.bed.width(); },
                 [](JobSettings& s, double value) { s.bed.setWidth(value); }},
    StoredNumber{"bedHeight", 1, kWidestBed, [](const JobSettings& s) { return s.bed.height(); },
                 [](JobSettings& s, double value) { s.bed.setHeight(value); }},
    StoredNumber{"yDown", 0, 1, [](const JobSettings& s) { return double(s.yDown); },
                 [](JobSettings& s, double value) { s.yDown = value > 0; }},
    StoredNumber{"dialect", 0, kGcodeDialects.size() - 1,
                 [](const JobSettings& s) { return double(s.gcode.dialect - kGcodeDialects.data()); },
                 [](JobSettings& s, double value) { s.gcode.dialect = &kGcodeDialects.at(std::size_t(value)); }},
    StoredNumber{"feed", kLeastFeed, kMostFeed, [](const JobSettings& s) { return s.gcode.feed; },
                 [](JobSettings& s, double value) { s.gcode.feed = value; }},
    StoredNumber{"power", 0, kMostPower, [](const JobSettings& s) { return s.gcode.power; },
                 [](JobSettings& s, double value) { s.gcode.power = value; }},
    StoredNumber{"passes", 1, kMostPasses, [](const JobSettings& s) { return double(s.gcode.passes); },
                 [](JobSettings& s, double value) { s.gcode.passes = int(value); }},
    StoredNumber{"engrave", 0, 1, [](const JobSettings& s) { return double(s.job.engraved); },
                 [](JobSettings& s, double value) { s.job.engraved = value > 0; }},
    StoredNumber{"linesPerMm", 1, kFinestLines, [](const JobSettings& s) { return s.engraving.linesPerMm; },
                 [](JobSettings& s, double value) { s.engraving.linesPerMm = value; }},
    StoredNumber{"engraveFeed", kLeastFeed, kMostFeed, [](const JobSettings& s) { return s.gcode.engraveFeed; },
                 [](JobSettings& s, double value) { s.gcode.engraveFeed = value; }},
    StoredNumber{"engravePower", 0, kMostPower, [](const JobSettings& s) { return s.gcode.mostPower; },
                 [](JobSettings& s, double value) { s.gcode.mostPower = value; }},
    StoredNumber{"overscan", 0, kLongestRunUp, [](const JobSettings& s) { return s.gcode.overscan; },
                 [](JobSettings& s, double value) { s.gcode.overscan = value; }},
    StoredNumber{"dither", 0, 1, [](const JobSettings& s) { return double(s.engraving.dither); },
                 [](JobSettings& s, double value) { s.engraving.dither = value > 0; }},
    StoredNumber{"leads", 0, 1, [](const JobSettings& s) { return double(s.job.leads); },
                 [](JobSettings& s, double value) { s.job.leads = value > 0; }},
    StoredNumber{"arcs", 0, 1, [](const JobSettings& s) { return double(s.job.arcs); },
                 [](JobSettings& s, double value) { s.job.arcs = value > 0; }},
};

} // namespace

JobSettings::JobSettings()
{
    constexpr double kRowFeed = 3000; // mm per minute
    job.engraved = true;
    gcode.engraveFeed = kRowFeed;
}

GcodeOptions JobSettings::Gcode() const
{
    GcodeOptions options = gcode;
    options.yDown = yDown;
    options.height = bed.height();
    return options;
}

ReportOptions JobSettings::Report() const
{
    ReportOptions options;
    options.machine = machine;
    options.gcode = Gcode();
    options.bed = Sheet();
    options.strictBed = true;
    return options;
}

void ReadJobSettings(QSettings& stored, JobSettings& settings)
{
    stored.beginGroup("job");
    for (const StoredNumber& number : kNumbers) {
        bool isNumber = false;
        const double value = stored.value(number.key).toDouble(&isNumber);
        if (isNumber && value >= number.least && value <= number.most)
            number.set(settings, value);
    }
    stored.endGroup();
}

void WriteJobSettings(QSettings& stored, const JobSettings& settings)
{
    stored.beginGroup("job");
    for (const StoredNumber& number : kNumbers)
        stored.setValue(number.key, number.get(settings));
    stored.endGroup();
}
