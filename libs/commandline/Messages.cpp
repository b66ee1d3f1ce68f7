#include "Messages.h"

#include "CommandLine.h"
#include "Escaped.h"
#include "Progress.h"
#include "document/Failure.h"
#include "document/InputFile.h"

#include <cerrno>
#include <cstring>

using namespace shapedocument;

namespace {

int Report(const QString& text, int exitCode)
{
    PrintError(text.trimmed());
    return exitCode;
}

} // namespace

void PrintLine(std::FILE* stream, const QString& line)
{
    Progress::Clear();
    std::fprintf(stream, "%s\n", qPrintable(Escaped(line)));
}

void PrintError(const QString& text)
{
    PrintLine(stderr, kProgram + (": " + text));
}

void Warn(const QString& text)
{
    PrintError("warning: " + text);
}

int RunReported(const std::function<int()>& work)
{
    try {
        return work();
    } catch (const Failure& failure) {
        return Report(failure.file + ": " + failure.reason, kFailed);
    } catch (const NotAsAsked& asked) {
        return Report(asked.file + ": " + asked.reason, kNotAsPainted);
    } catch (const UsageError& error) {
        return Report(QString::fromStdString(error.text), kWrongArguments);
    } catch (const std::bad_alloc&) {
        return Report("out of memory", kFailed);
    }
}

int FlushedOutput(int exitCode)
{
    errno = 0;
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return exitCode;
    const QString reason = errno == 0 ? "" : QString(": %1").arg(std::strerror(errno));
    return Report("standard output: cannot be written" + reason, exitCode == 0 ? kFailed : exitCode);
}

std::FILE* ReportStream(const QString& output)
{
    return output == kStandardStream ? stderr : stdout;
}
