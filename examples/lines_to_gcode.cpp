// A document becomes G-code: inside before outside with short moves, leads where shapes have them.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/OutputFile.h"
#include "image/ImageStores.h"
#include "machine/GcodeOutput.h"
#include "machine/MachinePaths.h"

#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

using namespace shapedocument;

namespace {

void Run(const QString& source, const QString& target)
{
    const OpenedDocument opened = ReadDocument(source, {});
    JobOptions options;
    options.leads = true;
    const PreparedJob prepared = PrepareJob(*opened.shapes, options, source, {});
    for (const auto& [kind, count] : prepared.leftOut) // never silent: a maker wants to know what is not cut
        QTextStream(stderr) << source << ": left out: " << count << ' ' << kind << '\n';
    if (prepared.job.PathCount() == 0)
        throw Failure{source, "has no lines"};

    GcodeOptions gcode;
    gcode.feed = 900;  // mm per minute
    gcode.power = 300; // S word
    // Whole or not at all: a half written job never stands under the target's name.
    WriteFile({target}, [&](QFile& file) { WriteGcode(file, prepared.job, gcode); });
    QTextStream(stdout) << prepared.job.PathCount() << " paths of " << prepared.job.ShapeCount() << " shapes\n";
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList names = QGuiApplication::arguments();
    if (names.size() != 3) {
        QTextStream(stderr) << "usage: lines_to_gcode DOCUMENT TARGET.gcode\n";
        return 2;
    }
    const ImageStores stores;
    try {
        Run(names[1], names[2]);
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
}
