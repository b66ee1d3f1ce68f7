#include "host/Configuration.h"

#include "host/UiPermissionsManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace shapes {

namespace {

/// Identity and state of a file: device, inode, size, times of modification and of status change.
using FileStamp = std::tuple<dev_t, ino_t, off_t, time_t, long, time_t, long>;

/// Nothing when the file does not exist.
std::optional<FileStamp> StampOf(const QByteArray& encodedPath)
{
    struct stat status;
    if (::stat(encodedPath.constData(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev,          status.st_ino,         status.st_size,        status.st_mtim.tv_sec,
                     status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

/// The settings used last, with the state of the file that they were read from.
struct Kept
{
    QString iniPath;
    std::optional<FileStamp> stamp;
    QSettings settings;
};

/// Reads the settings anew when the file's present state, stamp, is not the one they were read in. The QSettings object
/// is kept in between, for it also sees values that the host has set in this process and not yet written.
int IntOf(const QString& keyPath, int defaultValue, const QString& iniPath, const std::optional<FileStamp>& stamp)
{
    static std::mutex mutex;
    static std::unique_ptr<Kept> kept;
    const std::lock_guard lock(mutex);
    if (!kept || kept->stamp != stamp || kept->iniPath != iniPath)
        kept.reset(new Kept{iniPath, stamp, QSettings(iniPath, QSettings::IniFormat)});
    return kept->settings.value(keyPath, defaultValue).toInt();
}

/// Everything that the location of the resources directory depends on.
struct Surroundings
{
    QString theme, organisation, application;
    std::string configHome, home;
    bool testMode = false;
    bool operator==(const Surroundings&) const = default;
};

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

Surroundings CurrentSurroundings()
{
    return {CUiPermissionsManager::GetInstance()->GetThemeName(),
            QCoreApplication::organizationName(),
            QCoreApplication::applicationName(),
            Variable("XDG_CONFIG_HOME"),
            Variable("HOME"),
            QStandardPaths::isTestModeEnabled()};
}

/// The resources directory and its configuration file, with their paths encoded for system calls too.
struct Places
{
    explicit Places(const QString& theme)
        : dir(QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                              (theme == QLatin1String("Etchwright") ? QStringLiteral("/../Etchwright/Resources")
                                                                    : QStringLiteral("/../Cutterwise/Resources")))),
          ini(dir + QStringLiteral("/Data/cfg.ini")), encodedDir(QFile::encodeName(dir + QStringLiteral("/."))),
          encodedIni(QFile::encodeName(ini))
    {}

    void MakeDirWhenMissing() const
    {
        if (::access(encodedDir.constData(), F_OK) != 0)
            QDir(dir).mkpath(QStringLiteral("."));
    }

    QString dir, ini;
    QByteArray encodedDir; ///< with "/." behind it, which exists only in a directory
    QByteArray encodedIni;
};

/// Resolved anew only when the surroundings have changed.
std::shared_ptr<const Places> CurrentPlaces()
{
    static std::mutex mutex;
    static std::shared_ptr<const Places> places;
    static Surroundings followed;
    Surroundings now = CurrentSurroundings(); // calls the host, hence before the lock
    const std::lock_guard lock(mutex);
    if (!places || now != followed) {
        places = std::make_shared<const Places>(now.theme);
        followed = std::move(now);
    }
    return places;
}

} // namespace

QString ResourcesDir()
{
    const auto places = CurrentPlaces();
    places->MakeDirWhenMissing();
    return places->dir;
}

int ReadConfigInt(const QString& group, const QString& key, int defaultValue, const QString& iniPath)
{
    return IntOf(group + QLatin1Char('/') + key, defaultValue, iniPath, StampOf(QFile::encodeName(iniPath)));
}

bool OptimizationEnabled()
{
    const auto places = CurrentPlaces();
    const std::optional<FileStamp> stamp = StampOf(places->encodedIni);
    if (!stamp) // An existing file implies its directory.
        places->MakeDirWhenMissing();
    return IntOf(QStringLiteral("APP_CFG/KEY_OPTIMIZATION"), 1, places->ini, stamp) != 0;
}

} // namespace shapes
