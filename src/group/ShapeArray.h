/// CShapeArray, one set of shapes repeated over a grid of cells.
#pragma once

#include "group/ShapeGroup.h"

#include <QList>

#include <cstdint>

class IRuler;

/// One cell of an array.
struct ShapeArrayInfo
{
    int32_t nIndex = -1; ///< running number, row by row
    QPointF ptPos;       ///< where the top-left corner of the template's rectangle stands
    uint8_t bValid = 1;  ///< 0 once the cell was deleted
    uint8_t bSelect = 0;
};

/// The members stand once, as the template; cells say where copies stand. Shapes of a cell are made on demand: the
/// members moved by the cell's position minus the template's top-left corner. Cells are never taken out of the list,
/// deleting marks them invalid, so that indexes stay stable.
class SHAPEMODEL_EXPORT CShapeArray : public CShapeGroup
{
public:
    CShapeArray() = default;
    /// Shares the members as CShapeGroup's copies do, with cells, snapshot and last hit.
    CShapeArray(const CShapeArray&) = default;
    CShapeArray& operator=(const CShapeArray& other);

    // Layout.

    /// Takes the members' rectangle as template and lays out nRows x nCols cells row by row: gaps between neighbours,
    /// odd rows moved right by dRowShift, odd columns moved down by dColShift (model units). Cell (0, 0) never moves.
    /// No cells for counts below 1 or a product beyond 10 million; nothing happens for non-finite distances.
    void SetArrayInfo(int nRows, int nCols, double dColGap, double dRowGap, double dRowShift, double dColShift);
    /// A copy of the cells.
    QList<ShapeArrayInfo> GetShapeArrayInfo();
    /// Takes the shapes of list in as members and renews the template; the cells stay. The shapes are the array's from
    /// then on, though list still names them. The array's own list is welcome and then names each member twice; null is
    /// ignored.
    void SetShapeList(CShapeList* list);
    /// A new list with the shapes of every valid cell in order; list and shapes are the caller's. Empty, with a log line,
    /// when they would take more than 4 GiB or memory ends: GetShape fills cells one by one. Arrays among the members
    /// come back as arrays, their cells not filled.
    CShapeList* GetAllShapeList();
    /// A new group with the shapes of cell i, valid or not, the caller's; null for an index without cell and for a cell
    /// whose position is no number.
    CShape* GetShape(int i);

    using CShapeGroup::GetPath;
    /// The members' outline with its top-left corner on cell i; empty where GetShape answers null. Rebuilds the array's own
    /// painter path.
    QPainterPath GetPath(int i);

    /// Rectangle of cell i; null for an index without cell.
    QRectF GetRect(int i);
    /// Union of the valid cells' rectangles; null without one.
    QRectF GetAllRect();
    /// Number of valid cells.
    int GetCount();
    void SetInvalid(int i);
    /// Marks the selected cells invalid; they keep their selection.
    void DeleteSelect();

    // Hit test: the first valid cell whose rectangle contains p, -1 for none. The integer has no effect. A document may
    // bring cells whose position is no number: they count as cells, but are never hit, selected, filled or part of a
    // rectangle.

    int GetCurrentHitIndex(QPointF p, int part);
    /// The same, remembered for GetLastHitIndex.
    int GetHitIndex(QPointF p, int part);
    int GetLastHitIndex();

    // Selection of cells. Each change first takes a snapshot for IsSelecteChanged.

    /// Sets the array's own select bit for a valid index. No cell changes.
    void Select(bool bSelect, int i);
    void SelectAll(bool bSelect);
    /// Inverts the selection of the valid cells that lie inside r (bContain) or touch it.
    void SelectByRect(QRectF r, bool bContain);
    /// 0 none (or no cells), 1 all, 2 mixed; invalid cells count, those whose position is no number do not.
    unsigned int GetSelectStatus();
    /// Valid and selected cells.
    int GetSelectCount();
    bool IsSelecteChanged();
    QRectF GetSelectRect();
    /// The first valid and selected cell, -1 for none.
    int GetFirstSelectIndex();

    /// The own colour, or the first member's when that is 0. Lists ask the base class's instead.
    unsigned int GetColor();

    /// Convert template and cell positions; a null ruler is ignored. The members are the host's to convert.
    void ChangePix2MM(IRuler* ruler);
    void ChangeMM2Pix(IRuler* ruler);

    /// Group record, then the cell count (4 bytes) and 22 bytes per cell. Answers what the last write answered: 1 after
    /// a cell, 4 without cells, -1 when the file took less.
    int Save(QFile* file) override;
    /// The template is taken when it is first asked for, or when GetShapeList hands out the members.
    int Read(QFile* file, int version) override;
    /// False, and nothing changed, unless src is an array. The snapshot is empty afterwards; the last hit stays unless
    /// there is no such cell any more.
    bool Copy(CShape* src) override;

    // Transforms move cells and members. True, but for non-finite arguments, which change nothing.

    /// False, and nothing moved, also when both distances are below 1e-6.
    bool Offset(double dx, double dy) override;
    /// Maps the rectangle of all valid cells onto target.
    bool Resize(QRectF target) override;
    bool RotateLeft(QPointF centre) override;
    bool RotateRight(QPointF centre) override;
    /// The members turn about centre; the cells as a whole are then centred on it.
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    /// MirrorX moves the members back so that the arrangement keeps its centre; MirrorY moves only the cells back.
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// The first cell is then brought back onto the members, also when the points coincide and nothing is mirrored.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    bool MirrorAttachLine(double value, bool bVertical) override;

    /// The members' rectangle when bUpdate, else that of all valid cells.
    QRectF GetRect(bool bUpdate) override;
    /// The array's own colour; the members keep theirs.
    void SetColor(unsigned int color) override;
    bool IsClose() override;
    /// SelectAll; the array's own select bit stays.
    void Select(bool bSelect) override;
    /// Whether any cell is selected, valid or not.
    bool IsSelect() override;
    ESHAPE_TYPE GetShapeType() override;
    /// Whether a valid cell is hit; part is not written.
    bool Hit(QPointF p, int& part) override;
    CShape* Clone() override;

private:
    /// What becomes of the temporary paths of pictures that are brought up to date.
    enum class Previews
    {
        End,
        Keep ///< of pictures that have one; a mirror that shows it has just brought them up to date
    };

    void FillCells(CShapeList& all);
    static bool BringUpToDate(CShapeList& members, Previews previews);
    static bool HasPlace(const ShapeArrayInfo& cell);
    static bool IsSelectedCell(const ShapeArrayInfo& cell);
    static bool IsValidAndSelected(const ShapeArrayInfo& cell);
    bool IsCell(int i) const;
    QRectF CellRect(const ShapeArrayInfo& cell) const;
    QPointF CellOffset(const ShapeArrayInfo& cell) const;
    void RememberCells();
    QRectF Template() const;
    void SetTemplate(const QRectF& rect);
    void RenewTemplate(Previews previews = Previews::End);
    void MoveCells(QPointF offset);
    void MapCells(const QTransform& transform);
    void MirrorCellsAndMembers(QPointF p1, QPointF p2, bool bCommit);

    QRectF m_rcTemplate; ///< unless m_pLateRect has it
    int m_nLastHitIndex = -1;
    QList<ShapeArrayInfo> m_listInfo;
    QList<ShapeArrayInfo> m_listInfoPrev; ///< the cells before the last change of selection
};
