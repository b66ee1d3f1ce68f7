#include "OpenDocument.h"

#include "Messages.h"
#include "Progress.h"
#include "document/InputFile.h"

#include <QFile>

using namespace shapedocument;

Document OpenDocument(const QString& file, const StreamFormat& format, int* version)
{
    const std::unique_ptr<QFile> input = OpenInput(file);
    const Progress progress("reading " + InputName(file), *input);
    OpenedDocument opened = ReadDocument(*input, InputName(file), format);
    for (const QString& warning : opened.warnings)
        Warn(warning);
    if (version)
        *version = opened.version;
    return std::move(opened.shapes);
}

void SaveDocument(const Target& target, CShapeList& document, const StreamFormat& format)
{
    const Progress progress("writing " + OutputName(target));
    WriteDocument(target, document, format);
}
