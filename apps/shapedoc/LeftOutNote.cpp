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
