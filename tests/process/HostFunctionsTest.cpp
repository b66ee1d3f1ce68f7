/// The table of host functions: set once, before the first use. Each test runs in a process of its own.
#include "host/HostFunctions.h"
#include "host/ILog.h"
#include "host/UiPermissionsManager.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string s_lines;

void Keep(int level, const char* text)
{
    s_lines += std::to_string(level) + text + "|";
}

QString Theme()
{
    return "Own";
}

TEST(HostFunctions, are_set_once_before_the_first_use)
{
    EXPECT_TRUE(SetHostFunctions({Keep, Theme}));
    ILog_WriteLog(ELOG_NOTE, "100 %s");
    ILog_WriteLogF(ELOG_FAILURE, "%d of %s", 7, "nine");
    EXPECT_FALSE(SetHostFunctions({}));
    ILog_WriteLog(ELOG_NOTE, nullptr);
    EXPECT_EQ(s_lines, "1100 %s|37 of nine|1|");
    EXPECT_EQ(CUiPermissionsManager::GetInstance()->GetThemeName(), "Own");
}

TEST(HostFunctions, that_are_null_are_the_reference_hosts)
{
    EXPECT_TRUE(SetHostFunctions({Keep, nullptr}));
    EXPECT_EQ(CUiPermissionsManager::GetInstance()->GetThemeName(), "Etchwright");
}

TEST(HostFunctions, come_too_late_after_the_first_use)
{
    EXPECT_EQ(CUiPermissionsManager::GetInstance()->GetThemeName(), "Etchwright");
    EXPECT_FALSE(SetHostFunctions({Keep, Theme}));
    EXPECT_EQ(CUiPermissionsManager::GetInstance()->GetThemeName(), "Etchwright");
}

} // namespace
