// A host that meets a damaged document: says what is wrong and where, and goes on with what is left.
#include "check/StreamCheck.h"
#include "check/StreamRepair.h"
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/InputBytes.h"
#include "image/ImageStores.h"

#include <QGuiApplication>
#include <QTemporaryFile>
#include <QTextStream>

using namespace shapedocument;

namespace {

/// The first thing that is wrong, found without making shapes of anything.
std::optional<Fault> FaultOf(Bytes file, const StreamStart& start)
{
    return start.fault ? start.fault : CheckStream(file, start.offset, start.version).fault;
}

/// What damage has left. Throws Failure when that is nothing.
Document Rest(Bytes file, const StreamStart& start, const QString& name)
{
    const int version = RepairVersion(file, start, -1);
    const Salvage salvage = SalvageStream(file, start.offset, version);
    if (salvage.Empty())
        throw Failure{name, "holds no shape that can be saved"};
    QTextStream(stdout) << salvage.Count() << " shapes saved, " << salvage.SkippedBytes() << " bytes left out\n";
    QTemporaryFile rest;
    if (!rest.open() || rest.write(SavedStream(file, salvage)) < 0 || !rest.flush() || !rest.seek(0))
        throw Failure{rest.fileName(), "cannot be written"};
    return std::move(ReadDocument(rest, name, {true, version}).shapes); // a bare list stream
}

Document Open(const QString& name)
{
    const InputBytes bytes(name);
    const StreamStart start = FindStream(bytes.All());
    const std::optional<Fault> fault = FaultOf(bytes.All(), start);
    if (!fault)
        return std::move(ReadDocument(name, {}).shapes);
    QTextStream(stdout) << fault->path << ": byte " << fault->offset << ": " << fault->reason << '\n';
    return Rest(bytes.All(), start, name);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList names = QGuiApplication::arguments();
    if (names.size() != 3) {
        QTextStream(stderr) << "usage: save_the_rest DAMAGED TARGET\n";
        return 2;
    }
    const ImageStores stores;
    try {
        const Document document = Open(names[1]);
        WriteDocument({names[2]}, *document, {}); // under another name: the damaged file may be worth another try
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
}
