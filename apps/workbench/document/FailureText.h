/// What the user is told of a file that could not be read or written.
#pragma once

#include "document/Failure.h"

#include <QDir>

/// The file, with the separators of this system, and the reason.
inline QString Sentence(const shapedocument::Failure& failure)
{
    return QString("%1: %2").arg(QDir::toNativeSeparators(failure.file), failure.reason);
}
