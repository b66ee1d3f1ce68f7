#include "LeftOutNote.h"

#include "Messages.h"

#include <QStringList>

using namespace shapedocument;

void WarnOfLeftOut(const QString& file, const LeftOut& leftOut)
{
    QStringList parts;
    for (const auto& [kind, count] : leftOut)
        parts << QString("%1 x %2").arg(count).arg(kind);
    if (!parts.isEmpty())
        Warn(file + ": left out: " + parts.join(", "));
}

void WarnOfDoubles(const QString& file, const DoubledLines& doubled)
{
    if (doubled.count > 0)
        Warn(file + QString(": %1 doubled line%2 of %3 mm left out")
                        .arg(doubled.count)
                        .arg(doubled.count == 1 ? "" : "s")
                        .arg(doubled.length, 0, 'f', 1));
    if (doubled.gaveUp)
        Warn(file + ": lines lie so close that not all doubled ones were looked for; the rest is cut as drawn");
}
