/// WorkDocument: the open drawing, with its shapes, selection, undo stack and file.
#pragma once

#include "document/AsideWork.h"
#include "document/ColorLayers.h"
#include "document/DrawingWriter.h"
#include "document/ListCommand.h"
#include "list/ShapeListOwner.h"
#include "shape/Shape.h"

#include <QObject>
#include <QTimer>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

class ImageStores;
class Questions;
class Recovery;

/// Owns the drawing. Every edit goes through Change, Insert, Remove, Replace or Reorder, which push one undo command.
///
/// **Pointers.** An edit replaces the shapes that it changes by edited copies, and undo puts the former ones back:
/// pointers to shapes are valid until the next edit, undo or redo. ShapesLeft reports the shapes that left the list;
/// the selection is updated by place.
class WorkDocument : public QObject
{
    Q_OBJECT

public:
    /// questions must outlive the document.
    explicit WorkDocument(Questions& questions, QObject* parent = nullptr);
    ~WorkDocument() override;

    /// The drawing, for reading and painting. Change it only through the operations below.
    CShapeList& Shapes() { return *m_shapes; }
    /// The undo stack.
    QUndoStack& Undo() { return m_undo; }
    /// The settings of colours; read and written with the drawing.
    ColorLayers& Layers() { return m_layers; }
    /// Questions and messages to the user.
    Questions& Ask() { return m_questions; }
    /// Runs long work, above all on files.
    AsideWork& Aside() { return m_aside; }

    /// The file; empty for a new drawing.
    QString Path() const { return m_path; }
    /// The file's name, or a word for a drawing without one.
    QString Title() const;
    /// Whether something has changed since the file was read, or since it became what the file on the disk has.
    bool IsModified() const;

    /// The selected shapes, in the order in which they were selected. Shapes of the list itself, never members.
    const std::vector<CShape*>& Selection() const { return m_selection; }
    /// The rectangle around the selection (mm); null for none. Cost: O(selected).
    QRectF SelectionRect() const;
    /// Whether the shape is selected. Cost: O(1).
    bool IsSelected(const CShape* shape) const { return m_selected.contains(shape); }
    /// Selects only these. Null, repeated, hidden and locked shapes are left out.
    void Select(std::vector<CShape*> shapes);
    /// The list's index of each shape, ascending; shapes that are not in the list are left out. Cost: O(N).
    std::vector<int> PlacesOf(const std::vector<CShape*>& shapes) const;
    /// The same shapes in drawing order. Cost: O(N).
    std::vector<CShape*> InOrder(const std::vector<CShape*>& shapes) const;

    /// The colour of shapes that are drawn or typed from now on, 0xRRGGBB.
    unsigned int DrawColor() const { return m_drawColor; }
    void SetDrawColor(unsigned int color);

    // Edits. name: the command's name in the menu. Each makes one undo command and returns true; one without effect
    // makes none and returns false.

    /// Calls edit with a copy of each shape, which replaces the shape where edit returns true.
    bool Change(const QString& name, const std::vector<CShape*>& shapes, const std::function<bool(CShape&)>& edit);
    /// Calls edit once with copies of all shapes, in a list that does not own them; if it returns false nothing
    /// changes.
    bool ChangeTogether(const QString& name, const std::vector<CShape*>& shapes,
                        const std::function<bool(CShapeList&)>& edit);
    /// Takes ownership of the shapes, inserts them at that index (-1: in front of everything) and selects them.
    bool Insert(const QString& name, std::vector<CShape*> shapes, int at = -1);
    /// Removes the shapes from the drawing.
    bool Remove(const QString& name, const std::vector<CShape*>& shapes);
    /// Replaces old by made, of which it takes ownership, at the place of the last of old, and selects it.
    bool Replace(const QString& name, const std::vector<CShape*>& old, std::vector<CShape*> made);
    /// Puts the drawing's shapes into this order, which must hold each of them once; else returns false.
    bool Reorder(const QString& name, const std::vector<CShape*>& order);

    // Files. Failures are reported through Questions and leave the open drawing unchanged.

    /// Starts an empty drawing without a file. Does not ask.
    void New();
    /// Reads a document file on another thread. Offers autosaves of an earlier crash, and repair of damaged files.
    bool Open(const QString& path);
    /// Starts to write the document's file, as SaveAs. @return false also where it has none
    bool Save();
    /// Starts to write path on another thread; when it is written it becomes the document's file. Edits that come
    /// meanwhile are not in it. Waits for other saving first. Cost: O(shapes), a copy of the drawing.
    /// @return false when the user does not want to wait
    bool SaveAs(const QString& path);
    /// Waits until nothing is being written. @return false when the user does not want to wait, or saving has failed
    bool FinishSaving();
    /// The document's bytes as Save writes them, without the file's header. Cost: O(bytes).
    QByteArray Bytes();
    /// Offers autosaves of drawings without a file that an earlier crash left. @return whether one was opened
    bool OfferUnsaved();
    /// Sets the time from a change to its autosave (ms).
    void SetAutosaveInterval(int milliseconds) { m_autosave.setInterval(milliseconds); }
    /// Call when the document is closed on purpose: removes its autosave.
    void Close();

signals:
    /// The drawing has changed.
    void Changed();
    /// Other shapes are selected, or the selected ones have been replaced by edited copies.
    void SelectionChanged();
    /// DrawColor() has changed.
    void DrawColorChanged();
    /// Another drawing has been opened or started; Path() is its file.
    void DrawingReplaced();
    /// The file's name has changed, or whether there are unsaved changes.
    void PathChanged();
    /// These shapes left the drawing and may be freed: drop everything kept by their addresses.
    void ShapesLeft(const std::vector<CShape*>& shapes);

private:
    friend class ListCommand;

    void Apply(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace);
    void SelectAfter(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace);
    void SetSelection(std::vector<CShape*> shapes);
    bool Push(const QString& name, ListChange change);
    bool PushCopies(const QString& name, const std::vector<int>& places, const std::vector<CShape*>& copies);
    void Adopt(ShapeListOwner shapes, const QString& path, bool clean, const QString& from = {});
    void AdoptLeft(ShapeListOwner shapes, const QString& left, const QString& path, bool whole);
    ShapeListOwner Read(const QString& path, bool& whole);
    ShapeListOwner SavedCopy();
    ShapeListOwner Repair(const QString& path, const QString& reason);
    bool AwaitWriting();
    void OnSaved(const QString& reason);
    void SetSavedState(std::optional<quint64> state);
    void Autosave();
    void OnAutosaved(const QString& reason);

    /// What is being written.
    struct Saving
    {
        QString path;
        quint64 state = 0; ///< of the drawing

        bool operator==(const Saving&) const = default;
    };

    Questions& m_questions;
    std::shared_ptr<ImageStores> m_stores;
    ShapeListOwner m_shapes;
    QUndoStack m_undo;
    ColorLayers m_layers{m_undo};
    QString m_path;
    unsigned int m_drawColor = 0;
    std::vector<CShape*> m_selection;
    std::unordered_set<const CShape*> m_selected;
    std::unique_ptr<Recovery> m_recovery;
    QTimer m_autosave;
    DrawingWriter m_writer;
    std::optional<Saving> m_saving;
    bool m_saveFailed = false;              ///< the last one
    std::optional<quint64> m_savedState{0}; ///< that the file has (NumberedCommand::StateOf)
    bool m_wasModified = false;             ///< when it was told last
    AsideWork m_aside;
    bool m_toldNoAutosave = false;
};
