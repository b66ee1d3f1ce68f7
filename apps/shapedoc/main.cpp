/// shapedoc, the host that runs without a design application: turns drawings into documents, and documents into machine
/// lines and pictures.
#include "CommandLine.h"
#include "Messages.h"
#include "ProcessSetup.h"
#include "Program.h"
#include "host/LibraryVersion.h"
#include "image/ImageStores.h"
#include "record/DocumentVersion.h"

#include <QGuiApplication>

#include <cstdio>

namespace {

/// Prints only messages about the drawing itself; it may be read in spite of them.
void ShowDrawingWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg || QLatin1String(context.category) == QLatin1String("qt.svg"))
        Warn(text.simplified());
}

int Run(const Action& action, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // No window is ever shown.
    qInstallMessageHandler(ShowDrawingWarnings);
    static int argc = 1;
    // Never deleted: the end of its font database would read all fonts' settings first, a quarter of a short run.
    [[maybe_unused]] static const auto* const application = new QGuiApplication(argc, argv);
    const ImageStores stores;
    return action();
}

int ParseAndRun(int argc, char** argv)
{
    const std::string version =
        SHAPEMODEL_VERSION ", document format " + std::to_string(SHAPE_DOCUMENT_VERSION) + " (reads 0 and later)";
    CommandLine program(kProgram, version,
                        "Documents for laser engraving and cutting: from drawings, to machine lines and pictures");
    bool verbose = false;
    AddEverything(program, verbose);
    const CommandLine::Parsed parsed = program.Parse(argc, argv);
    std::fputs(parsed.answer.c_str(), stdout);
    if (!parsed.action)
        return 0;
    if (!verbose && !qEnvironmentVariableIsSet("SHAPEHOST_LOG"))
        qputenv("SHAPEHOST_LOG", "/dev/null");
    return Run(parsed.action, argv);
}

} // namespace

int main(int argc, char** argv)
{
    SetUpProcess();
    return FlushedOutput(RunReported([&] { return ParseAndRun(argc, argv); }));
}
