/// WorkDocument's saving: by the user, and in between.
#include "document/WorkDocument.h"

#include "document/FailureText.h"
#include "document/NumberedCommand.h"
#include "document/Questions.h"
#include "document/Recovery.h"

#include "document/CheckedFile.h"

#include "group/ShapeArray.h"
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

} // namespace

bool WorkDocument::IsModified() const
{
    return m_savedState != NumberedCommand::StateOf(m_undo);
}

void WorkDocument::SetSavedState(std::optional<quint64> state)
{
    m_savedState = state;
    m_wasModified = IsModified();
    emit PathChanged();
}

bool WorkDocument::Save()
{
    const QString path = m_saving ? m_saving->path : m_path;
    return !path.isEmpty() && SaveAs(path);
}

bool WorkDocument::SaveAs(const QString& path)
{
    const Saving saving{QFileInfo(path).absoluteFilePath(), NumberedCommand::StateOf(m_undo)};
    if (m_saving == saving)
        return true;
    if (m_saving && !AwaitWriting()) // one after the other
        return false;
    m_questions.Tell(tr("Saving %1…").arg(QFileInfo(path).fileName()));
    const bool keepsLayers = m_layers.MayWriteFor(saving.path);
    const ColorLayers::Copy layers = m_layers.CopyFor(saving.path);
    const auto wroteLayers = std::make_shared<bool>(false); // the drawing's renaming may fail afterwards
    const auto beside = [keepsLayers, layers, wroteLayers] {
        if (keepsLayers)
            ColorLayers::Write(layers);
        *wroteLayers = keepsLayers;
    };
    m_writer.Write(SavedCopy(), saving.path, beside, [this, layers, keepsLayers, wroteLayers](const QString& reason) {
        if (*wroteLayers)
            m_layers.SetKept(layers);
        OnSaved(reason);
        if (reason.isEmpty() && !keepsLayers && !layers.text.isEmpty())
            m_questions.Warn(tr("Layers are not kept: %1 could not be read, and stays as it is").arg(layers.file));
    });
    m_saving = saving; // last: a copy that there is no memory for is not being saved
    return true;
}

/// reason: why the drawing could not be written; empty when it was.
void WorkDocument::OnSaved(const QString& reason)
{
    const Saving saving = *std::exchange(m_saving, std::nullopt);
    m_saveFailed = !reason.isEmpty();
    if (m_saveFailed) {
        m_questions.Tell(tr("%1 is not saved").arg(QFileInfo(saving.path).fileName()));
        m_questions.Warn(reason);
        return;
    }
    m_path = saving.path;
    m_recovery->Follow(m_path);
    SetSavedState(saving.state);
    if (!IsModified())
        m_autosave.stop();
    m_questions.Tell(tr("%1 is saved").arg(QFileInfo(m_path).fileName()));
}

bool WorkDocument::AwaitWriting()
{
    const QString name = m_saving ? QFileInfo(m_saving->path).fileName() : Title();
    if (m_writer.IsAtWork() && !m_questions.Await(tr("Saving %1").arg(name), [this](int milliseconds) {
            return m_writer.IsWritten(milliseconds);
        })) {
        m_questions.Tell(tr("Saving %1 goes on").arg(name));
        return false;
    }
    m_writer.Wait();
    return true;
}

bool WorkDocument::FinishSaving()
{
    m_saveFailed = false;
    return AwaitWriting() && !m_saveFailed;
}

QByteArray WorkDocument::Bytes()
{
    shapedocument::UnnamedFile file(Title());
    SavedCopy()->Save(&file);
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
    if (m_writer.IsAtWork()) {
        m_autosave.start(); // the disk is slow, or the drawing is being saved: try again later
        return;
    }
    const QString file = m_recovery->File();
    if (!file.isEmpty())
        m_writer.Write(SavedCopy(), file, m_layers.LeftWriter(file),
                       [this](const QString& reason) { OnAutosaved(reason); });
    else if (!std::exchange(m_toldNoAutosave, true))
        m_questions.Tell(tr("Not saved in between: no folder can be written"));
}

/// reason: why it could not be written; empty when it was.
void WorkDocument::OnAutosaved(const QString& reason)
{
    if (reason.isEmpty())
        return;
    m_questions.Tell(tr("Not saved in between: %1").arg(reason));
    if (IsModified() && !m_autosave.isActive())
        m_autosave.start();
}

void WorkDocument::Close()
{
    m_autosave.stop();
    m_writer.Wait();
    m_recovery->Remove();
}
