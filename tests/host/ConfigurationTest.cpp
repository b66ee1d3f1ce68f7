/// The resources directory and the one integer that is read from the configuration file.
#include "host/Configuration.h"
#include "support/HostDouble.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace shapes;

namespace {

constexpr char kOff[] = "[APP_CFG]\nKEY_OPTIMIZATION=0\n";

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

    static int Value(const QString& path) { return ReadConfigInt("APP_CFG", "KEY_OPTIMIZATION", 1, path); }
};

TEST_F(Configuration, resources_follow_the_theme_and_are_made_when_missing)
{
    const std::pair<const char*, const char*> rows[] = {{"Etchwright", "/Etchwright/Resources"},
                                                        {"etchwright", "/Cutterwise/Resources"}};
    for (const auto& [theme, folder] : rows) {
        test::SetTheme(theme);
        EXPECT_EQ(ResourcesDir(), root + folder) << theme;
        EXPECT_TRUE(QDir(root + folder).exists()) << theme;
    }
    EXPECT_EQ(QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList({"Cutterwise", "Etchwright"}));
    Write(root + "/Cutterwise/Resources/Data", ""); // no folder: nothing can be read there
    EXPECT_TRUE(OptimizationEnabled());
}

TEST_F(Configuration, a_changed_file_counts_at_the_next_call)
{
    const QString path = root + "/cfg.ini";
    EXPECT_EQ(Value(path), 1);
    // Neighbours differ in size: within one tick of the file system's clock, equal sizes look like the same file.
    const std::pair<const char*, int> rows[] = {
        {kOff, 0},
        {"[APP_CFG]\nKEY_OPTIMIZATION=off\n", 0},
        {"[APP_CFG]\nOTHER=5\n", 1},
        {"[APP_CFG]\nKEY_OPTIMIZATION=-300\n", -300},
        {"KEY_OPTIMIZATION=5\n", 1},
        {"[APP_CFG]\nKEY_OPTIMIZATION=12\n", 12},
    };
    for (const auto& [text, expected] : rows) {
        Write(path, text);
        EXPECT_EQ(Value(path), expected) << text;
    }
    EXPECT_EQ(Value(root + "/none.ini"), 1) << "another file";
    Write(path, "[APP_CFG]\nKEY_OPTIMIZATION=34\n"); // the same size, another time
    std::filesystem::last_write_time(path.toStdString(), {});
    EXPECT_EQ(Value(path), 34);
    QFile::remove(path);
    EXPECT_EQ(Value(path), 1);
}

TEST_F(Configuration, optimisation_is_on_unless_the_themes_file_or_what_is_not_written_yet_says_0)
{
    QDir().mkpath(root + "/Cutterwise/Resources/Data");
    Write(root + "/Cutterwise/Resources/Data/cfg.ini", kOff);
    EXPECT_TRUE(OptimizationEnabled());
    test::SetTheme("Cutterwise");
    EXPECT_FALSE(OptimizationEnabled());
    test::SetTheme("Etchwright");
    EXPECT_TRUE(OptimizationEnabled());
    QSettings settings(ResourcesDir() + "/Data/cfg.ini", QSettings::IniFormat);
    for (const int value : {0, 2}) {
        settings.setValue("APP_CFG/KEY_OPTIMIZATION", value);
        EXPECT_EQ(OptimizationEnabled(), value != 0);
        EXPECT_EQ(Value(root + "/none.ini"), 1) << "another file that is not there";
    }
}

TEST_F(Configuration, all_that_the_place_follows_from_counts_at_the_next_call)
{
    const QByteArray home = qgetenv("HOME");
    const QString application = QCoreApplication::applicationName();
    const auto set = [&](const char* name, const char* folder) { qputenv(name, (root + folder).toUtf8()); };
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"organisation", [] { QCoreApplication::setOrganizationName("org"); }},
        {"application", [] { QCoreApplication::setApplicationName("a/deeper/place"); }},
        {"configuration home", [&] { set("XDG_CONFIG_HOME", "/other"); }},
        {"home", [&] { qunsetenv("XDG_CONFIG_HOME"), set("HOME", "/home"); }},
        {"another home", [&] { set("HOME", "/home2"); }},
    };
    QStringList places;
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        change();
        const QString place = QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                                              "/../Etchwright/Resources");
        EXPECT_EQ(ResourcesDir(), place);
        EXPECT_FALSE(places.contains(place));
        places += place;
        QDir(place).removeRecursively();
        EXPECT_TRUE(OptimizationEnabled());
        EXPECT_TRUE(QDir(place).exists()) << "made again";
        QDir().mkpath(place + "/Data");
        Write(place + "/Data/cfg.ini", kOff);
        EXPECT_FALSE(OptimizationEnabled());
    }
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", root.toUtf8());
    QCoreApplication::setOrganizationName({});
    QCoreApplication::setApplicationName(application);
}

} // namespace
