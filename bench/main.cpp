/// Entry of the benchmarks: no display, one thread, one table.
#include "GoalTable.h"

#include "host/ILog.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <opencv2/core/utility.hpp>

// The cost of logging is the host's; this host drops every line.
void ILog_WriteLog(int, const char*) {}
void ILog_WriteLogF(int, const char*, ...) {}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    cv::setNumThreads(1);
    benchmark::Initialize(&argc, argv);
    bench::GoalTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
    return 0;
}
