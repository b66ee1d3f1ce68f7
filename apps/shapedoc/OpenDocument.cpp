#include "OpenDocument.h"

#include "Messages.h"

using namespace shapedocument;

Document OpenDocument(const QString& file, const StreamFormat& format, int* version)
{
    OpenedDocument opened = ReadDocument(file, format);
    for (const QString& warning : opened.warnings)
        Warn(warning);
    if (version)
        *version = opened.version;
    return std::move(opened.shapes);
}
