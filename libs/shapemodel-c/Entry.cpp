#include "Entry.h"

#include "Refusal.h"
#include "document/Failure.h"
#include "document/WorkProgress.h"

#include <QFileInfo>

#include <opencv2/core.hpp>

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

using namespace shapedocument;

namespace capi {

namespace {

/// The last error and warnings of a thread.
struct Told
{
    std::string error;
    std::string warnings;
};

Told& OfThisThread()
{
    static thread_local Told told;
    return told;
}

/// The warnings of the innermost call running on this thread. Callbacks may make calls, too, whose errors and warnings
/// are kept apart from those of the call around them.
thread_local std::string* s_warnings = nullptr;

class Warnings
{
public:
    Warnings() : m_outer(std::exchange(s_warnings, &m_lines)) {}
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    ~Warnings() { s_warnings = m_outer; }

    /// To be called when the call has succeeded.
    void Tell()
    {
        OfThisThread().error.clear();
        OfThisThread().warnings.swap(m_lines);
    }

private:
    std::string m_lines;
    std::string* m_outer;
};

/// Keeps the error text. That may run out of memory; the status is returned all the same.
sm_status Tell(sm_status status, const std::string& words)
try {
    OfThisThread().error = words;
    return status;
} catch (...) {
    OfThisThread().error.clear();
    return status;
}

/// The failure's text, with the program's options in it without their dashes.
std::string WordsOf(const Failure& failure)
{
    QString reason = failure.reason;
    for (const char* option : {"force", "bare", "version", "large"})
        reason.replace(QString("--") + option, QLatin1String(option));
    return (failure.file + ": " + reason).toStdString();
}

/// Whether a temporary file failed, which jobs and documents read from bytes use.
bool IsOfTemporaryFile(const Failure& failure)
{
    return failure.reason.contains("a temporary file") || failure.reason.startsWith("no room for ");
}

sm_status StatusOfReading(const Failure& failure)
{
    if (IsOfTemporaryFile(failure))
        return SM_CANNOT_WRITE;
    const QFileInfo file(failure.file);
    if (failure.file.isEmpty() || !failure.reason.startsWith("cannot be opened"))
        return SM_CANNOT_READ;
    return !file.exists() ? SM_NO_FILE : !file.isReadable() ? SM_DENIED : SM_CANNOT_READ;
}

sm_status StatusOfWriting(const Failure& failure)
{
    const QFileInfo file(failure.file), folder(file.absolutePath());
    if (!folder.exists())
        return SM_NO_FILE;
    const bool denied = file.exists() ? !file.isWritable() : folder.isDir() && !folder.isWritable();
    return denied || failure.reason.contains("write-protected") ? SM_DENIED : SM_CANNOT_WRITE;
}

/// For Making.
sm_status StatusOfMaking(const Failure& failure)
{
    return IsOfTemporaryFile(failure) ? SM_CANNOT_WRITE : SM_REFUSED;
}

/// Turns the exception being handled into a status and the last error.
sm_status TellException()
try {
    throw;
} catch (const Refusal& refusal) {
    return Tell(refusal.status, refusal.words);
} catch (const Failure& failure) {
    return Tell(StatusOfReading(failure), WordsOf(failure));
} catch (const Stopped&) {
    return Tell(SM_STOPPED, "stopped, as the progress callback asked");
} catch (const std::bad_alloc&) {
    return Tell(SM_NO_MEMORY, "not enough memory");
} catch (const std::length_error&) { // a list too large for any memory
    return Tell(SM_NO_MEMORY, "not enough memory");
} catch (const cv::Exception& failure) {
    return failure.code == cv::Error::StsNoMem ? Tell(SM_NO_MEMORY, "not enough memory")
                                               : Tell(SM_INTERNAL, failure.what());
} catch (const std::exception& failure) {
    return Tell(SM_INTERNAL, failure.what());
} catch (...) {
    return Tell(SM_INTERNAL, "an exception of an unknown kind");
}

} // namespace

sm_status Run(const std::function<void()>& call)
try {
    Warnings warnings;
    call();
    warnings.Tell();
    return SM_OK;
} catch (...) {
    try {
        OfThisThread().warnings.clear();
        return TellException();
    } catch (...) {
        return SM_NO_MEMORY; // out of memory while the text was made
    }
}

void Writing(const std::function<void()>& part)
try {
    part();
} catch (const Failure& failure) {
    throw Refusal{StatusOfWriting(failure), WordsOf(failure)};
}

void Making(const std::function<void()>& part)
try {
    part();
} catch (const Failure& failure) {
    throw Refusal{StatusOfMaking(failure), WordsOf(failure)};
}

sm_status RunQuietly(const std::function<void()>& call)
try {
    call();
    return SM_OK;
} catch (const Refusal& refusal) {
    return refusal.status;
} catch (...) {
    return SM_INTERNAL;
}

void Warn(const QString& line)
{
    *s_warnings += line.toStdString() + '\n';
}

void Warn(const QStringList& lines)
{
    for (const QString& line : lines)
        Warn(line);
}

const char* LastError()
{
    return OfThisThread().error.c_str();
}

const char* LastWarnings()
{
    return OfThisThread().warnings.c_str();
}

} // namespace capi
