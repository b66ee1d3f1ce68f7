/// One application for all runs of a process: no display, and an empty configuration folder.
#include "Target.h"

#include "image/ImageStores.h"

#include <QApplication>
#include <QTemporaryDir>

/// Leaks of other libraries: fontconfig keeps what it looked up, and cairo 1.16 loses a clip with each pattern on a
/// vector page.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libcairo.so\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static const QApplication application(count, arguments);
    static const ImageStores pictures;
    return 0;
}

int fuzz::ReadVersion(Bytes& input)
{
    if (input.empty())
        return 14;
    const int version = kLowestVersion + input.front() % kVersions;
    input = input.subspan(1);
    return version;
}
