#include "list/Configuration.h"

#include "host/UiPermissionsManager.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <tuple>

namespace shapes {

namespace {

/// What tells one state of a file from another: device, inode, size, times of modification and of status change.
using FileStamp = std::tuple<dev_t, ino_t, off_t, time_t, long, time_t, long>;

std::optional<FileStamp> StampOf(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev,          status.st_ino,         status.st_size,        status.st_mtim.tv_sec,
                     status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

/// The settings last asked, with the state of the file they were read from.
struct Kept
{
    QString iniPath;
    std::optional<FileStamp> stamp; ///< none: there was no file
    QSettings settings;
};

/// Made anew when the file has changed. Kept alive in between, it also sees what the host has set in this process and
/// not yet written.
const QSettings& SettingsOf(const QString& iniPath)
{
    static std::unique_ptr<Kept> kept;
    const std::optional<FileStamp> stamp = StampOf(iniPath);
    if (!kept || kept->stamp != stamp || kept->iniPath != iniPath)
        kept.reset(new Kept{iniPath, stamp, QSettings(iniPath, QSettings::IniFormat)});
    return kept->settings;
}

} // namespace

QString ResourcesDir()
{
    const bool etchwright = CUiPermissionsManager::GetInstance()->GetThemeName() == QLatin1String("Etchwright");
    QString dir = QDir::cleanPath(
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
        (etchwright ? QStringLiteral("/../Etchwright/Resources") : QStringLiteral("/../Cutterwise/Resources")));
    if (!QDir(dir).exists())
        QDir(dir).mkpath(QStringLiteral("."));
    return dir;
}

int ReadConfigInt(const QString& group, const QString& key, int defaultValue, const QString& iniPath)
{
    const QString keyPath = QStringLiteral("%1%2%3").arg(group, QStringLiteral("/"), key);
    return SettingsOf(iniPath).value(keyPath, defaultValue).toInt();
}

bool OptimizationEnabled()
{
    return ReadConfigInt(QStringLiteral("APP_CFG"), QStringLiteral("KEY_OPTIMIZATION"), 1,
                         ResourcesDir() + QStringLiteral("/Data/cfg.ini")) != 0;
}

} // namespace shapes
