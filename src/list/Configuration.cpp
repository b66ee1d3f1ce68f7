#include "list/Configuration.h"

#include "host/UiPermissionsManager.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <sys/stat.h>

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

/// The value last read, with what it was read from.
struct Remembered
{
    QString iniPath;
    QString keyPath;
    FileStamp stamp;
    QVariant value; ///< invalid: the file has no such key
};

QVariant ReadValue(const QString& keyPath, const QString& iniPath)
{
    static std::optional<Remembered> last;
    const std::optional<FileStamp> stamp = StampOf(iniPath);
    if (!stamp)
        return {};
    if (!last || last->stamp != *stamp || last->keyPath != keyPath || last->iniPath != iniPath)
        last = Remembered{iniPath, keyPath, *stamp, QSettings(iniPath, QSettings::IniFormat).value(keyPath)};
    return last->value;
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
    const QVariant value = ReadValue(keyPath, iniPath);
    return value.isValid() ? value.toInt() : defaultValue;
}

bool OptimizationEnabled()
{
    return ReadConfigInt(QStringLiteral("APP_CFG"), QStringLiteral("KEY_OPTIMIZATION"), 1,
                         ResourcesDir() + QStringLiteral("/Data/cfg.ini")) != 0;
}

} // namespace shapes
