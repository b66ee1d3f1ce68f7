/// WorkDocument's saving: by the user, and in between.
#include "document/WorkDocument.h"

#include "document/FailureText.h"
#include "document/Questions.h"
#include "document/Recovery.h"

#include "document/CheckedFile.h"
#include "document/FileHeader.h"
#include "document/OutputFile.h"

#include "group/ShapeArray.h"
#include "list/ShapeListView.h"
#include "list/ShapeOwner.h"
#include "shape/ShapeCast.h"

#include <QFileInfo>

#include <utility>

using shapedocument::Failure;

namespace {

bool HasSelectedCells(CShape& shape)
{
    auto* array = shapes::ShapeCast<CShapeArray>(&shape, ESHAPE_ARRAY);
    return array && array->IsSelect();
}

/// A copy of the array without its selection of cells; null when no cell is selected.
ShapeOwner WithoutCellSelection(CShape& shape)
{
    if (!HasSelectedCells(shape))
        return nullptr;
    ShapeOwner copy(shape.Clone());
    copy->Select(false);
    return copy;
}

} // namespace

bool WorkDocument::Save()
{
    return !m_path.isEmpty() && SaveAs(m_path);
}

bool WorkDocument::SaveAs(const QString& path)
{
    QString unkept;
    try {
        unkept = Write(path);
    } catch (const Failure& failure) {
        m_questions.Complain(Sentence(failure));
        return false;
    }
    m_autosave.stop();
    m_autosaver.Wait(); // else it could write an autosave newer than the file
    m_path = QFileInfo(path).absoluteFilePath();
    m_recovery->Follow(m_path);
    m_undo.setClean();
    emit PathChanged();
    if (!unkept.isEmpty())
        m_questions.Complain(unkept); // last: the user may go on editing while the message is shown
    return true;
}

/// Returns what the user is to know when the layers are not kept, else nothing. Throws Failure.
QString WorkDocument::SaveLayers(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (m_layers.MayWriteFor(absolute))
        m_layers.WriteFor(absolute);
    else if (!m_layers.Settings().empty())
        return tr("Layers are not kept: %1 could not be read, and stays as it is").arg(ColorLayers::FileOf(absolute));
    return {};
}

void WorkDocument::SaveTo(QFile& file)
{
    std::vector<ShapeOwner> copies;
    const ShapeListView view;
    for (unsigned int i = 0; i < m_shapes->GetCount(); ++i) {
        CShape* shape = m_shapes->GetShape(i);
        ShapeOwner copy = WithoutCellSelection(*shape);
        view.List().AddTail(copy ? copy.get() : shape);
        if (copy)
            copies.push_back(std::move(copy));
    }
    view.List().Save(&file);
}

/// Writes the layers when only the renaming of the document can still fail: if the drawing cannot be written the layers
/// stay unchanged, and after a crash in between the autosave is newer than the drawing. Throws Failure; the file is
/// unchanged then. Returns what SaveLayers does.
QString WorkDocument::Write(const QString& path)
{
    const auto write = [this](QFile& file) {
        shapedocument::WriteHeader(file);
        SaveTo(file);
    };
    QString unkept;
    shapedocument::WriteFile({path, false}, write, [&](QFile&) { unkept = SaveLayers(path); });
    return unkept;
}

QByteArray WorkDocument::Bytes()
{
    shapedocument::UnnamedFile file(Title());
    SaveTo(file);
    if (!file.WroteAll())
        throw Failure{Title(), file.Reason()};
    file.seek(0);
    return file.readAll();
}

/// A copy for another thread, as it is saved. Pictures share their pixels.
ShapeListOwner WorkDocument::SavedCopy()
{
    ShapeListOwner copy(m_shapes->Clone());
    for (unsigned int i = 0; i < copy->GetCount(); ++i)
        if (HasSelectedCells(*copy->GetShape(i)))
            copy->GetShape(i)->Select(false);
    return copy;
}

/// Does not interrupt the user: a failure is shown in the status line.
void WorkDocument::Autosave()
{
    if (!IsModified())
        return;
    if (m_autosaver.IsAtWork()) {
        m_autosave.start(); // the disk is slow: try again later
        return;
    }
    const QString file = m_recovery->File();
    if (!file.isEmpty())
        m_autosaver.Write(SavedCopy(), file, m_layers.LeftWriter(file));
    else if (!std::exchange(m_toldNoAutosave, true))
        m_questions.Tell(tr("Not saved in between: no folder can be written"));
}

void WorkDocument::OnAutosaveFailed(const QString& reason)
{
    m_questions.Tell(tr("Not saved in between: %1").arg(reason));
    if (IsModified() && !m_autosave.isActive())
        m_autosave.start();
}

void WorkDocument::Close()
{
    m_autosave.stop();
    m_autosaver.Wait();
    m_recovery->Remove();
}
