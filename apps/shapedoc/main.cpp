/// shapedoc, the host that runs without a design application: turns drawings into documents, and documents into machine
/// lines and pictures.
#include "Commands.h"
#include "Messages.h"
#include "ProcessSetup.h"
#include "document/Failure.h"
#include "image/ImageStores.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

using namespace shapedocument;

namespace {

/// Only what concerns the drawing itself is worth a line; a drawing may be read in spite of it.
void ShowDrawingWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg || QLatin1String(context.category) == QLatin1String("qt.svg"))
        Warn(text.simplified());
}

int Report(const QString& text, int exitCode)
{
    PrintLine(stderr, "shapedoc: " + text.trimmed());
    return exitCode;
}

int Run(const Command& command, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // No window is ever shown.
    qInstallMessageHandler(ShowDrawingWarnings);
    int argc = 1;
    const QGuiApplication application(argc, argv);
    const ImageStores stores;
    try {
        return command();
    } catch (const Failure& failure) {
        return Report(failure.file + ": " + failure.reason, 1);
    } catch (const std::bad_alloc&) {
        return Report("out of memory", 1);
    }
}

/// Output that has not arrived is a failure, whatever the command made of it.
int AfterFlush(int exitCode)
{
    errno = 0;
    std::cout.flush();
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return exitCode;
    const QString reason = errno == 0 ? "" : QString(": %1").arg(std::strerror(errno));
    return Report("standard output: cannot be written" + reason, exitCode == 0 ? 1 : exitCode);
}

int ParseAndRun(int argc, char** argv)
{
    CLI::App app("Documents for laser engraving and cutting: from drawings, to machine lines and pictures.",
                 "shapedoc");
    app.require_subcommand(1);
    bool verbose = false;
    app.add_flag("-v,--verbose", verbose, "show the library's log");
    Command command;
    AddArray(app, command);
    AddCheck(app, command);
    AddGroup(app, command);
    AddFit(app, command);
    AddImport(app, command);
    AddInfo(app, command);
    AddLines(app, command);
    AddRender(app, command);
    AddRepair(app, command);
    AddTransform(app, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return Report(error.what(), 2);
    }
    if (!verbose && !qEnvironmentVariableIsSet("SHAPEHOST_LOG"))
        qputenv("SHAPEHOST_LOG", "/dev/null");
    return Run(command, argv);
}

} // namespace

int main(int argc, char** argv)
{
    SetUpProcess();
    return AfterFlush(ParseAndRun(argc, argv));
}
