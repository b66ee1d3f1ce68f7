/// Files that are read: regular ones, and the standard input.
#pragma once

#include "shapedocument_export.h"
#include <QString>

#include <memory>

class QFile;

namespace shapedocument {

/// Stands for the standard input or output in place of a file's name.
constexpr char kStandardStream[] = "-";

/// How messages call the file.
SHAPEDOCUMENT_EXPORT QString InputName(const QString& file);

/// Throws Failure where a file is there that is none to be read, as a pipe, whose opening would wait for a writer.
SHAPEDOCUMENT_EXPORT void ExpectRegular(const QString& file);

/// Open for reading at any place; the standard input is copied into a file without a name first. Throws Failure.
SHAPEDOCUMENT_EXPORT std::unique_ptr<QFile> OpenInput(const QString& file);

} // namespace shapedocument
