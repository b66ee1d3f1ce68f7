/// WorkDocument's files: opening, repair, recovery.
#include "document/WorkDocument.h"

#include "document/CheckedFormat.h"
#include "document/FailureText.h"
#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/Recovery.h"

#include "check/StreamRepair.h"
#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/InputBytes.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>

#include <utility>

using shapedocument::Failure;

namespace {

QString Opening(const QString& path)
{
    return WorkDocument::tr("Opening %1").arg(QFileInfo(path).fileName());
}

/// The parts of a damaged document that can be saved. Throws Failure where there are none.
struct Rescue
{
    explicit Rescue(const QString& path)
        : input(path), start(shapedocument::FindStream(input.All())),
          version(shapedocument::RepairVersion(input.All(), start, -1)),
          salvage(shapedocument::SalvageStream(input.All(), start.offset, version))
    {
        if (start.Bare() && !start.fault && salvage.keptBefore == 0)
            throw Failure{path, WorkDocument::tr("is not a document of this program")};
        if (salvage.Empty())
            throw Failure{path, WorkDocument::tr("is damaged, and holds no shape that can be saved")};
    }

    const shapedocument::InputBytes input;
    const shapedocument::StreamStart start;
    const int version;
    const shapedocument::Salvage salvage;
};

/// Clears the selection, which saved documents do not have, and builds every outline now: a fitted polyline keeps its
/// fewer points, so afterwards the drawing's bytes are those that will be saved.
void Settle(CShapeList& shapes)
{
    shapes.Select(false);
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        shapes.GetShape(i)->GetPath(false);
}

/// Reads a document into a new list, ready to be shown.
ShapeListOwner ReadSettled(const QString& path, QStringList& warnings)
{
    shapedocument::OpenedDocument opened = shapedocument::ReadDocument(path, CheckedFormat(path));
    Settle(*opened.shapes);
    warnings = opened.warnings;
    return std::move(opened.shapes);
}

ShapeListOwner ReadRescued(const QString& path, const Rescue& rescue)
{
    shapedocument::UnnamedFile file(path);
    file.write(shapedocument::SavedStream(rescue.input.All(), rescue.salvage));
    if (!file.WroteAll())
        throw Failure{path, WorkDocument::tr("no room for a temporary file: %1").arg(file.Reason())};
    file.seek(0);
    ShapeListOwner shapes = std::move(shapedocument::ReadDocument(file, path, {true, rescue.version}).shapes);
    Settle(*shapes);
    return shapes;
}

} // namespace

void WorkDocument::New()
{
    Adopt(NewShapeList(), {}, true);
}

/// from: the file that was read instead of path; its layers are used.
void WorkDocument::Adopt(ShapeListOwner shapes, const QString& path, bool clean, const QString& from)
{
    m_autosave.stop();
    m_writer.Wait(); // its file is removed below
    emit ShapesLeft(EntriesOf(*m_shapes));
    SetSelection({});
    m_undo.clear();
    {
        const ShapeListOwner doomed = NewShapeList(); // a list frees empty painter paths, too
        doomed->AddTail(*m_shapes);
        m_shapes->RemoveAll();
    }
    m_shapes->AddTail(*shapes);
    shapes->RemoveAll();
    m_path = path;
    m_recovery->Follow(path);
    m_toldNoAutosave = false;
    QString unread;
    try {
        m_layers.ReadFor(path, from);
    } catch (const Failure& failure) {
        unread = Sentence(failure);
    }
    emit Changed(); // First: until then, receivers hold addresses of freed shapes.
    emit DrawingReplaced();
    SetSavedState(clean ? std::optional<quint64>(0) : std::nullopt);
    if (!unread.isEmpty())
        m_questions.Complain(unread); // last, because it runs an event loop
}

/// Reads a document; null where there is none. whole becomes false if it was damaged.
ShapeListOwner WorkDocument::Read(const QString& path, bool& whole)
{
    const auto shapes = std::make_shared<ShapeListOwner>();
    const auto warnings = std::make_shared<QStringList>();
    whole = true;
    try {
        if (!m_aside.Run(Opening(path), [=] { *shapes = ReadSettled(path, *warnings); }))
            return nullptr;
        for (const QString& warning : *warnings)
            m_questions.Tell(warning);
        return std::move(*shapes);
    } catch (const Failure& failure) {
        whole = false;
        return Repair(path, Sentence(failure));
    }
}

/// The rest of a damaged document, if the user wants it; else null.
ShapeListOwner WorkDocument::Repair(const QString& path, const QString& reason)
{
    const auto found = std::make_shared<std::unique_ptr<const Rescue>>();
    const auto shapes = std::make_shared<ShapeListOwner>();
    try {
        if (!m_aside.Run(Opening(path), [=] { *found = std::make_unique<const Rescue>(path); }))
            return nullptr;
        const Rescue& rescue = **found;
        const QString offer = tr("%1\n\n%n shapes can be saved, %2 bytes would be left out. Open what can be saved?",
                                 nullptr, static_cast<int>(rescue.salvage.Count()))
                                  .arg(reason, QString::number(rescue.salvage.SkippedBytes()));
        if (!m_questions.AskYesNo(tr("Damaged document"), offer) ||
            !m_aside.Run(Opening(path), [=] { *shapes = ReadRescued(path, **found); }))
            return nullptr;
        return std::move(*shapes);
    } catch (const Failure& failure) {
        const QString again = Sentence(failure);
        m_questions.Complain(again == reason ? reason : reason + '\n' + again);
        return nullptr;
    }
}

/// Opens an autosave that a crash left. A damaged one is opened without a file name, so that it overwrites nothing, and
/// is kept.
void WorkDocument::AdoptLeft(ShapeListOwner shapes, const QString& left, const QString& path, bool whole)
{
    Adopt(std::move(shapes), path, false, left);
    if (whole)
        m_recovery->ContinueFrom(left);
}

bool WorkDocument::Open(const QString& path)
{
    bool whole = true;
    const QString left = Recovery::LeftBy(path);
    if (!left.isEmpty()) {
        const QString when = QLocale().toString(QFileInfo(left).lastModified(), QLocale::ShortFormat);
        const QString offer = tr("Changes of %1 from %2 were not saved. Open them?");
        if (m_questions.AskYesNo(tr("Recover changes"), offer.arg(QFileInfo(path).fileName(), when))) {
            if (ShapeListOwner shapes = Read(left, whole)) {
                AdoptLeft(std::move(shapes), left, whole ? QFileInfo(path).absoluteFilePath() : QString(), whole);
                return true;
            }
            if (whole)
                return false; // cancelled: the next autosave of the saved document would replace this one
        }
    }
    ShapeListOwner shapes = Read(path, whole);
    if (!shapes)
        return false;
    // a repaired drawing does not overwrite the damaged file: it gets no name
    Adopt(std::move(shapes), whole ? QFileInfo(path).absoluteFilePath() : QString(), whole, whole ? QString() : path);
    return true;
}

bool WorkDocument::OfferUnsaved()
{
    for (const QString& left : Recovery::LeftByUntitled()) {
        const QString when = QLocale().toString(QFileInfo(left).lastModified(), QLocale::ShortFormat);
        if (!m_questions.AskYesNo(tr("Recover changes"), tr("A drawing from %1 was never saved. Open it?").arg(when))) {
            if (m_questions.AskLoss(tr("Recover changes"),
                                    tr("Delete the drawing from %1? It is the only copy.").arg(when)))
                Recovery::Delete(left);
            continue;
        }
        bool whole = true;
        if (ShapeListOwner shapes = Read(left, whole)) {
            AdoptLeft(std::move(shapes), left, {}, whole);
            return true;
        }
    }
    return false;
}
