#include "machine/JobNotes.h"

#include "machine/JobOrder.h"

namespace shapedocument {

namespace {

QString LeftOutNote(const LeftOut& leftOut)
{
    QStringList parts;
    for (const auto& [kind, count] : leftOut)
        parts << QString("%1 x %2").arg(count).arg(kind);
    return "left out: " + parts.join(", ");
}

QString AgainstInsideNote(size_t count)
{
    return QString("%1 path%2 behind one that is cut around %3, as the order of colours asks")
        .arg(count)
        .arg(count == 1 ? " comes" : "s come")
        .arg(count == 1 ? "it" : "them");
}

} // namespace

QStringList MakingNotes(const PreparedJob& prepared)
{
    QStringList notes;
    if (!prepared.leftOut.empty())
        notes << LeftOutNote(prepared.leftOut);
    if (prepared.tooManyToOrder)
        notes << QString("its paths are more than %1: they stay in reading order").arg(kMostOrderedPaths);
    if (prepared.againstInside > 0)
        notes << AgainstInsideNote(prepared.againstInside);
    return notes;
}

QStringList DoublesNotes(const DoubledLines& doubled)
{
    QStringList notes;
    if (doubled.count > 0)
        notes << QString("%1 doubled line%2 of %3 mm left out")
                     .arg(doubled.count)
                     .arg(doubled.count == 1 ? "" : "s")
                     .arg(doubled.length, 0, 'f', 1);
    if (doubled.gaveUp)
        notes << "lines lie so close that not all doubled ones were looked for; the rest is cut as drawn";
    return notes;
}

QStringList ColorNotes(const ColorSettings& colors, const MachineJob& job)
{
    ColorSettings unused = colors;
    JobReader reader(job);
    while (const auto path = reader.NextPath())
        unused.erase(path->color & 0xFFFFFFU);
    QStringList without;
    for (const auto& [color, setting] : unused)
        without << QString("#%1").arg(color, 6, 16, QChar('0'));
    return without.isEmpty() ? QStringList() : QStringList("no line has the colour " + without.join(", nor "));
}

QStringList RunUpNotes(const RowCounts& counts)
{
    if (counts.leftOfZero == 0)
        return {};
    return {QString("the run-up of %1 row%2 reaches left of 0, to X%3: move what is engraved to the right")
                .arg(counts.leftOfZero)
                .arg(counts.leftOfZero == 1 ? "" : "s")
                .arg(counts.least, 0, 'f', 3)};
}

} // namespace shapedocument
