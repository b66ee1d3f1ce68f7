/// Entry of the workbench's tests: no display, and empty configuration and data folders.
#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Cairo 1.16 loses a clip (472 bytes) when a vector page holds a pattern; fontconfig keeps its patterns to the end.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libcairo.so\nleak:libfontconfig.so\n";
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder.path().toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setApplicationName("shapebench");
    return RUN_ALL_TESTS();
}
