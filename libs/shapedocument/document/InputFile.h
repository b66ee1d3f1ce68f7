/// Opens files for reading: regular ones, and the standard input.
#pragma once

#include "shapedocument_export.h"
#include <QString>

#include <memory>

class QFile;

namespace shapedocument {

/// File name that means the standard input or output.
constexpr char kStandardStream[] = "-";

/// The file's name in messages. Cost: O(1).
SHAPEDOCUMENT_EXPORT QString InputName(const QString& file);

/// Throws Failure if the file exists but is not a regular one: opening a pipe would wait for a writer. Cost: O(1).
SHAPEDOCUMENT_EXPORT void ExpectRegular(const QString& file);

/// Opens the file for reading, seekable: the standard input is copied into a temporary file first. Throws Failure.
/// Cost: O(1), for the standard input O(bytes).
SHAPEDOCUMENT_EXPORT std::unique_ptr<QFile> OpenInput(const QString& file);

} // namespace shapedocument
