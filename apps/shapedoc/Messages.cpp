#include "Messages.h"

#include "Escaped.h"
#include "document/InputFile.h"

using namespace shapedocument;

void PrintLine(std::FILE* stream, const QString& line)
{
    std::fprintf(stream, "%s\n", qPrintable(Escaped(line)));
}

void Warn(const QString& text)
{
    PrintLine(stderr, "shapedoc: warning: " + text);
}

std::FILE* ReportStream(const QString& output)
{
    return output == kStandardStream ? stderr : stdout;
}
