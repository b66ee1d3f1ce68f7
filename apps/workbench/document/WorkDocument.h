/// WorkDocument, the open drawing: its shapes, what is selected, the way back, and its file.
#pragma once

#include "document/AsideWork.h"
#include "document/Autosaver.h"
#include "document/ColorLayers.h"
#include "document/ListCommand.h"
#include "list/ShapeListOwner.h"
#include "shape/Shape.h"

#include <QObject>
#include <QTimer>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

class ImageStores;
class QFile;
class Questions;
class Recovery;

/// Owns the drawing. Every edit goes through Change, Insert, Remove, Replace or Reorder, which push one undo command.
///
/// **Pointers.** An edit replaces the shapes that it changes by edited copies, and undo puts the former ones back:
/// pointers to shapes are good until the next edit, undo or redo. What left the list is told by ShapesLeft; the
/// selection follows by place.
class WorkDocument : public QObject
{
    Q_OBJECT

public:
    /// questions must outlive the document.
    explicit WorkDocument(Questions& questions, QObject* parent = nullptr);
    ~WorkDocument() override;

    /// The drawing, to be read and painted. Changing it is for the operations below.
    CShapeList& Shapes() { return *m_shapes; }
    /// The commands so far.
    QUndoStack& Undo() { return m_undo; }
    /// What the machine does with each colour; read and written with the drawing.
    ColorLayers& Layers() { return m_layers; }
    /// How the user is asked.
    Questions& Ask() { return m_questions; }
    /// For what takes long, files above all.
    AsideWork& Aside() { return m_aside; }

    /// The file; empty for a new drawing.
    QString Path() const { return m_path; }
    /// The file's name, or a word for a drawing without one.
    QString Title() const;
    /// Whether something has changed since the file was read or written.
    bool IsModified() const { return !m_undo.isClean(); }

    /// The selected shapes, in the order in which they were selected. Shapes of the list itself, never members.
    const std::vector<CShape*>& Selection() const { return m_selection; }
    /// Around all of them (mm); null for none. Cost: O(selected).
    QRectF SelectionRect() const;
    /// Whether the shape is selected. Cost: O(1).
    bool IsSelected(const CShape* shape) const { return m_selected.contains(shape); }
    /// Selects these and nothing else. Null, repeated, hidden and locked shapes are left out.
    void Select(std::vector<CShape*> shapes);
    /// The list's index of each shape, ascending; shapes that are not in the list are left out. Cost: O(N).
    std::vector<int> PlacesOf(const std::vector<CShape*>& shapes) const;
    /// The same shapes in drawing order. Cost: O(N).
    std::vector<CShape*> InOrder(const std::vector<CShape*>& shapes) const;

    /// The colour (0xRRGGBB) of what is drawn next.
    unsigned int DrawColor() const { return m_drawColor; }
    void SetDrawColor(unsigned int color) { m_drawColor = color; }

    // Edits. Names are for the menu. Each is one undo command; without an effect there is none, and the result is
    // false.

    /// Lets edit change a copy of each shape, which takes the shape's place where edit returns true.
    bool Change(const QString& name, const std::vector<CShape*>& shapes, const std::function<bool(CShape&)>& edit);
    /// Lets edit change copies of all shapes together, in a list that is a mere view; false leaves everything as it
    /// was.
    bool ChangeTogether(const QString& name, const std::vector<CShape*>& shapes,
                        const std::function<bool(CShapeList&)>& edit);
    /// Takes the shapes over, puts them at the place (-1: in front of everything) and selects them.
    bool Insert(const QString& name, std::vector<CShape*> shapes, int at = -1);
    /// Takes the shapes out of the drawing.
    bool Remove(const QString& name, const std::vector<CShape*>& shapes);
    /// Takes made over; it stands where the last of old stood, and is selected.
    bool Replace(const QString& name, const std::vector<CShape*>& old, std::vector<CShape*> made);
    /// Puts the drawing's shapes into this order; false unless it holds each of them once.
    bool Reorder(const QString& name, const std::vector<CShape*>& order);

    // Files. What goes wrong is told through Questions, and leaves the open drawing as it is.

    /// Empties the drawing; it has no file then. Does not ask.
    void New();
    /// Reads a document file beside the window. Offers what an earlier crash left, and repair of damaged files.
    bool Open(const QString& path);
    /// Writes the file that the document has.
    bool Save();
    /// Writes path, which becomes the document's file.
    bool SaveAs(const QString& path);
    /// The document's bytes as Save writes them, without the file's header. Cost: O(bytes).
    QByteArray Bytes();
    /// Offers drawings without a file that an earlier crash left. @return whether one was taken
    bool OfferUnsaved();
    /// How long changes may wait until they are written beside the document (ms).
    void SetAutosaveInterval(int milliseconds) { m_autosave.setInterval(milliseconds); }
    /// To be called when the document is closed on purpose: its autosave is removed.
    void Close();

signals:
    /// The drawing has changed.
    void Changed();
    /// Another selection, or the selected shapes have changed their objects.
    void SelectionChanged();
    /// Another drawing has been read or begun; Path is its own.
    void DrawingReplaced();
    /// Another file, or the first change since the file was written.
    void PathChanged();
    /// These left the drawing; some may be freed soon. Whatever was kept by their address is void.
    void ShapesLeft(const std::vector<CShape*>& shapes);

private:
    friend class ListCommand;

    void Apply(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace);
    void SelectAfter(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace);
    void SetSelection(std::vector<CShape*> shapes);
    bool Push(const QString& name, ListChange change);
    bool PushCopies(const QString& name, const std::vector<int>& places, const std::vector<CShape*>& copies);
    void Adopt(ShapeListOwner shapes, const QString& path, bool clean, const QString& from = {});
    void SaveLayers(const QString& path);
    void AdoptLeft(ShapeListOwner shapes, const QString& left, const QString& path, bool whole);
    ShapeListOwner Read(const QString& path, bool& whole);
    ShapeListOwner SavedCopy();
    ShapeListOwner Repair(const QString& path, const QString& reason);
    void Write(const QString& path);
    void SaveTo(QFile& file);
    void Autosave();
    void OnAutosaveFailed(const QString& reason);

    Questions& m_questions;
    std::shared_ptr<ImageStores> m_stores;
    ShapeListOwner m_shapes;
    QUndoStack m_undo;
    ColorLayers m_layers{m_undo};
    QString m_path;
    std::vector<CShape*> m_selection;
    std::unordered_set<const CShape*> m_selected;
    std::unique_ptr<Recovery> m_recovery;
    QTimer m_autosave;
    Autosaver m_autosaver;
    AsideWork m_aside;
    bool m_toldNoAutosave = false;
    unsigned int m_drawColor = 0;
};
