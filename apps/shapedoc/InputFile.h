/// Files that are read: regular ones, and the standard input.
#pragma once

#include <QString>

#include <memory>

class QFile;

/// Stands for the standard input or output in place of a file's name.
constexpr char kStandardStream[] = "-";

/// How messages call the file.
QString InputName(const QString& file);

/// Throws Failure where a file is there that is none to be read, as a pipe, whose opening would wait for a writer.
void ExpectRegular(const QString& file);

/// Open for reading at any place; the standard input is copied into a file without a name first. Throws Failure.
std::unique_ptr<QFile> OpenInput(const QString& file);
