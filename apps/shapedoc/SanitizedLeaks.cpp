/// For the sanitized build: fontconfig keeps its configuration where the sanitizer does not find it. It is read before
/// all else, while nothing is watched: leaving a leak out of the report costs 0.15 s at the program's end, in which the
/// sanitizer reads the debugging information of all libraries.
#include <fontconfig/fontconfig.h>

#include <sanitizer/lsan_interface.h>

namespace {

const struct UnwatchedConfiguration
{
    UnwatchedConfiguration()
    {
        const __lsan::ScopedDisabler unwatched;
        FcInit();
    }
} g_configuration;

} // namespace

/// What is left of single fonts.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}
