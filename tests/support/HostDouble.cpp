#include "support/HostDouble.h"

#include "host/ILog.h"
#include "host/UiPermissionsManager.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex s_logLock;
std::string s_log;
QString s_theme = QStringLiteral("Etchwright");

} // namespace

namespace test {

std::string TakeLog()
{
    const std::lock_guard lock(s_logLock);
    return std::exchange(s_log, {});
}

void SetTheme(const char* name)
{
    s_theme = QString::fromUtf8(name);
}

} // namespace test

void ILog_WriteLog(int level, const char* text)
{
    const std::lock_guard lock(s_logLock);
    s_log += (s_log.empty() ? "" : "; ") + std::to_string(level) + " " + text;
}

void ILog_WriteLogF(int level, const char* format, ...)
{
    char text[1024];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    ILog_WriteLog(level, text);
}

CUiPermissionsManager* CUiPermissionsManager::GetInstance()
{
    static CUiPermissionsManager instance;
    return &instance;
}

QString CUiPermissionsManager::GetThemeName()
{
    return s_theme;
}
