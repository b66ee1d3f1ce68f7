/// The files of WorkDocument: reading, writing, repair and autosave.
#include "document/WorkDocument.h"

#include "document/CheckedFormat.h"
#include "document/OwnedShape.h"
#include "document/Questions.h"
#include "document/Recovery.h"

#include "check/StreamRepair.h"
#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/FileHeader.h"
#include "document/InputBytes.h"

#include "group/ShapeArray.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <utility>

using shapedocument::Failure;

namespace {

QString Sentence(const Failure& failure)
{
    return QString("%1: %2").arg(QDir::toNativeSeparators(failure.file), failure.reason);
}

/// What is selected is not kept: documents opened anew have nothing selected. Building every outline now makes the
/// drawing's bytes those that it will be saved with, because a fitted polyline keeps its fewer points.
void Settle(CShapeList& shapes)
{
    shapes.Select(false);
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        shapes.GetShape(i)->GetPath(false);
}

/// The array without its selection of cells; null when nothing is selected in it.
OwnedShape WithoutCellSelection(CShape& shape)
{
    auto* array = dynamic_cast<CShapeArray*>(&shape);
    if (!array || !array->IsSelect())
        return nullptr;
    OwnedShape copy(array->Clone());
    copy->Select(false);
    return copy;
}

} // namespace

void WorkDocument::New()
{
    Adopt(NewShapeList(), {}, true);
}

/// from: the file that was read in the path's stead; its layers count.
void WorkDocument::Adopt(ShapeListOwner shapes, const QString& path, bool clean, const QString& from)
{
    m_autosave.stop();
    std::vector<CShape*> left;
    for (unsigned int i = 0; i < m_shapes->GetCount(); ++i)
        left.push_back(m_shapes->GetShape(i));
    emit ShapesLeft(left);
    SetSelection({});
    m_undo.clear();
    {
        const ShapeListOwner doomed = NewShapeList(); // Frees empty painter paths, too.
        doomed->AddTail(*m_shapes);
        m_shapes->RemoveAll();
    }
    Settle(*shapes);
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
    emit Changed(); // First of all: whoever knows shapes by their address knows freed ones until then.
    emit DrawingReplaced();
    if (!clean)
        m_undo.resetClean(); // Tells PathChanged, which is for those who know already that it is another drawing.
    emit PathChanged();
    if (!unread.isEmpty())
        m_questions.Complain(unread); // Runs an event loop: the drawing is whole by now.
}

/// whole is false for what was saved of a damaged document. Null when there is nothing to open.
ShapeListOwner WorkDocument::Read(const QString& path, bool& whole)
{
    whole = true;
    try {
        const shapedocument::StreamFormat format = CheckedFormat(path);
        shapedocument::OpenedDocument opened = shapedocument::ReadDocument(path, format);
        for (const QString& warning : opened.warnings)
            m_questions.Tell(warning);
        return std::move(opened.shapes);
    } catch (const Failure& failure) {
        whole = false;
        return Repair(path, Sentence(failure));
    }
}

/// What can be saved of a damaged document, when the user wants it; null otherwise.
ShapeListOwner WorkDocument::Repair(const QString& path, const QString& reason)
{
    try {
        const shapedocument::InputBytes input(path);
        const shapedocument::StreamStart start = shapedocument::FindStream(input.All());
        const int version = shapedocument::RepairVersion(input.All(), start, -1);
        const shapedocument::Salvage salvage = shapedocument::SalvageStream(input.All(), start.offset, version);
        if (start.Bare() && !start.fault && salvage.keptBefore == 0)
            throw Failure{path, tr("is not a document of this program")};
        if (salvage.Empty())
            throw Failure{path, tr("is damaged, and holds no shape that can be saved")};
        const QString offer = tr("%1\n\n%n shapes can be saved, %2 bytes would be left out. Open what can be saved?",
                                 nullptr, static_cast<int>(salvage.Count()));
        if (!m_questions.AskYesNo(tr("Damaged document"), offer.arg(reason, QString::number(salvage.SkippedBytes()))))
            return nullptr;
        shapedocument::UnnamedFile file(path);
        file.write(shapedocument::SavedStream(input.All(), salvage));
        if (!file.Taken())
            throw Failure{path, tr("no room for a temporary file: %1").arg(file.Reason())};
        file.seek(0);
        return std::move(shapedocument::ReadDocument(file, path, {true, version}).shapes);
    } catch (const Failure& failure) {
        const QString found = Sentence(failure);
        m_questions.Complain(found == reason ? reason : reason + '\n' + found);
        return nullptr;
    }
}

/// What a crash left. Of a damaged autosave only a part is there: it has no file that it would overwrite, and the
/// autosave stays.
void WorkDocument::AdoptLeft(ShapeListOwner shapes, const QString& left, const QString& path, bool whole)
{
    Adopt(std::move(shapes), path, false, left);
    if (whole)
        m_recovery->TakeOver(left);
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
        }
    }
    ShapeListOwner shapes = Read(path, whole);
    if (!shapes)
        return false;
    // What was saved of a damaged file does not overwrite it: it asks for a name of its own.
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

bool WorkDocument::Save()
{
    return !m_path.isEmpty() && SaveAs(m_path);
}

bool WorkDocument::SaveAs(const QString& path)
{
    try {
        SaveLayers(path); // First: a crash in between finds the autosave newer than the drawing.
        Write(path);
    } catch (const Failure& failure) {
        m_questions.Complain(Sentence(failure));
        return false;
    }
    m_autosave.stop();
    m_path = QFileInfo(path).absoluteFilePath();
    m_recovery->Follow(m_path);
    m_undo.setClean();
    emit PathChanged();
    return true;
}

/// Throws Failure.
void WorkDocument::SaveLayers(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (m_layers.MayWriteFor(absolute))
        m_layers.WriteFor(absolute);
    else if (!m_layers.Settings().empty())
        m_questions.Complain(
            tr("Layers are not kept: %1 could not be read, and stays as it is").arg(ColorLayers::FileOf(absolute)));
}

void WorkDocument::SaveTo(QFile& file)
{
    CShapeList* view = CShapeList::New();
    std::vector<OwnedShape> copies;
    for (unsigned int i = 0; i < m_shapes->GetCount(); ++i) {
        CShape* shape = m_shapes->GetShape(i);
        OwnedShape copy = WithoutCellSelection(*shape);
        view->AddTail(copy ? copy.get() : shape);
        if (copy)
            copies.push_back(std::move(copy));
    }
    view->Save(&file);
    CShapeList::Release(view);
}

/// Throws Failure; the file is unchanged then.
void WorkDocument::Write(const QString& path)
{
    shapedocument::WriteFile({path, false}, [this](QFile& file) {
        shapedocument::WriteHeader(file);
        SaveTo(file);
    });
}

QByteArray WorkDocument::Bytes()
{
    shapedocument::UnnamedFile file(Title());
    SaveTo(file);
    if (!file.Taken())
        throw Failure{Title(), file.Reason()};
    file.seek(0);
    return file.readAll();
}

/// Interrupts nobody: where it cannot be written, that is told in passing.
void WorkDocument::Autosave()
{
    if (!IsModified())
        return;
    const QString file = m_recovery->File();
    if (file.isEmpty()) {
        if (!std::exchange(m_toldNoAutosave, true))
            m_questions.Tell(tr("Not saved in between: no folder can be written"));
        return;
    }
    try {
        m_layers.WriteLeft(file);
        Write(file);
    } catch (const Failure& failure) {
        m_questions.Tell(tr("Not saved in between: %1").arg(Sentence(failure)));
    }
}

void WorkDocument::Close()
{
    m_autosave.stop();
    m_recovery->Remove();
}
