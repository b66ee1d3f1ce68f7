/// The resources directory and the one integer that is read from the configuration file.
#include "host/Configuration.h"
#include "support/HostDouble.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <functional>

using namespace shapes;

namespace {

const QString kGroup = QStringLiteral("APP_CFG");
const QString kKey = QStringLiteral("KEY_OPTIMIZATION");

void Write(const QString& path, const char* text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

class Configuration : public testing::Test
{
protected:
    const QString root = qEnvironmentVariable("XDG_CONFIG_HOME");

    void TearDown() override
    {
        QDir(root).removeRecursively();
        QDir().mkpath(root);
        test::SetTheme("Etchwright");
    }
};

TEST_F(Configuration, resources_follow_the_theme_and_are_made_when_missing)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Etchwright", "/Etchwright/Resources"},
        {"etchwright", "/Cutterwise/Resources"},
        {"", "/Cutterwise/Resources"},
    };
    for (const auto& [theme, folder] : rows) {
        test::SetTheme(theme);
        EXPECT_EQ(ResourcesDir(), root + folder) << theme;
        EXPECT_TRUE(QDir(root + folder).exists()) << theme;
    }
    EXPECT_EQ(QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList({"Cutterwise", "Etchwright"}));
}

TEST_F(Configuration, a_changed_file_counts_at_the_next_call)
{
    const QString path = root + "/cfg.ini";
    const auto value = [&] { return ReadConfigInt(kGroup, kKey, 1, path); };
    EXPECT_EQ(value(), 1);
    // Neighbours differ in size: within one tick of the file system's clock, equal sizes look like the same file.
    const std::pair<const char*, int> rows[] = {
        {"[APP_CFG]\nKEY_OPTIMIZATION=0\n", 0},       {"[APP_CFG]\nKEY_OPTIMIZATION=12\n", 12},
        {"[APP_CFG]\nKEY_OPTIMIZATION=off\n", 0},     {"[APP_CFG]\nOTHER=5\n", 1},
        {"[APP_CFG]\nKEY_OPTIMIZATION=-300\n", -300}, {"KEY_OPTIMIZATION=5\n", 1},
    };
    for (const auto& [text, expected] : rows) {
        Write(path, text);
        EXPECT_EQ(value(), expected) << text;
        EXPECT_EQ(value(), expected) << text;
    }
    Write(path, rows[1].first);
    EXPECT_EQ(value(), 12);
    EXPECT_EQ(ReadConfigInt(kGroup, QStringLiteral("OTHER"), 3, path), 3) << "another key of the same file";
    EXPECT_EQ(ReadConfigInt(kGroup, kKey, 1, root + "/none.ini"), 1) << "another file";
    Write(path, "[APP_CFG]\nKEY_OPTIMIZATION=34\n"); // the same size, another time
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000), QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(value(), 34);
    QFile::remove(path);
    EXPECT_EQ(value(), 1);
}

TEST_F(Configuration, optimisation_is_on_unless_the_themes_file_says_0)
{
    EXPECT_TRUE(OptimizationEnabled());
    QDir().mkpath(root + "/Cutterwise/Resources/Data");
    Write(root + "/Cutterwise/Resources/Data/cfg.ini", "[APP_CFG]\nKEY_OPTIMIZATION=0\n");
    EXPECT_TRUE(OptimizationEnabled());
    test::SetTheme("Cutterwise");
    EXPECT_FALSE(OptimizationEnabled());
}

/// Resolved step by step, every time.
QString PlainResourcesDir()
{
    return QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                           "/../Etchwright/Resources");
}

TEST_F(Configuration, all_that_the_place_follows_from_counts_at_the_next_call)
{
    const QByteArray home = qgetenv("HOME");
    const QString application = QCoreApplication::applicationName();
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"none", [] {}},
        {"organisation", [] { QCoreApplication::setOrganizationName("org"); }},
        {"application", [] { QCoreApplication::setApplicationName("a/deeper/place"); }},
        {"configuration home", [&] { qputenv("XDG_CONFIG_HOME", (root + "/other").toUtf8()); }},
        {"home",
         [&] {
             qunsetenv("XDG_CONFIG_HOME");
             qputenv("HOME", (root + "/home").toUtf8());
         }},
        {"another home", [&] { qputenv("HOME", (root + "/home2").toUtf8()); }},
    };
    QStringList places;
    for (const auto& [name, change] : changes) {
        change();
        const QString place = PlainResourcesDir();
        EXPECT_TRUE(OptimizationEnabled()) << name;
        EXPECT_TRUE(QDir(place).exists()) << name;
        EXPECT_EQ(ResourcesDir(), place) << name;
        EXPECT_FALSE(places.contains(place)) << name;
        places += place;
        QDir(place).removeRecursively();
        EXPECT_TRUE(OptimizationEnabled()) << name;
        EXPECT_TRUE(QDir(place).exists()) << name << ": made again";
        QDir().mkpath(place + "/Data");
        Write(place + "/Data/cfg.ini", "[APP_CFG]\nKEY_OPTIMIZATION=0\n");
        EXPECT_FALSE(OptimizationEnabled()) << name;
    }
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", root.toUtf8());
    QCoreApplication::setOrganizationName({});
    QCoreApplication::setApplicationName(application);
}

TEST_F(Configuration, what_the_process_has_set_and_not_written_counts)
{
    EXPECT_TRUE(OptimizationEnabled());
    QSettings settings(ResourcesDir() + "/Data/cfg.ini", QSettings::IniFormat);
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 0);
    EXPECT_FALSE(OptimizationEnabled());
    settings.setValue("APP_CFG/KEY_OPTIMIZATION", 2);
    EXPECT_TRUE(OptimizationEnabled());
}

} // namespace
