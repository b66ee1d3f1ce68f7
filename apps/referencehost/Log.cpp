/// The reference host's log: one line per message, "time level text", to standard error or to the file that the
/// environment variable SHAPEHOST_LOG names.
#include "host/ILog.h"

#include "SetFunctions.h"

#include <QDateTime>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <string>

namespace {

/// Standard error, unless SHAPEHOST_LOG names a file that can be appended to. Opened once.
FILE* LogStream()
{
    struct Close
    {
        void operator()(FILE* file) const { std::fclose(file); }
    };
    static const std::unique_ptr<FILE, Close> file = [] {
        const QByteArray name = qgetenv("SHAPEHOST_LOG");
        return std::unique_ptr<FILE, Close>(name.isEmpty() ? nullptr : std::fopen(name.constData(), "a"));
    }();
    return file ? file.get() : stderr;
}

} // namespace

void ILog_WriteLog(int level, const char* text)
{
    if (const auto write = FunctionsInUse().WriteLog)
        return write(level, text ? text : "");
    const QByteArray time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toUtf8();
    FILE* stream = LogStream();
    std::fprintf(stream, "%s [%d] %s\n", time.constData(), level, text ? text : "");
    std::fflush(stream);
}

void ILog_WriteLogF(int level, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    ILog_WriteLog(level, text.c_str());
}
