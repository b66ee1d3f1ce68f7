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
    QPointF ptPos;       ///< of the top-left corner of the template's rectangle, model units
    uint8_t bValid = 1;  ///< 0 once the cell was deleted
    uint8_t bSelect = 0; ///< 1 while the cell is selected
};

/// The members are stored once, as the template; cells say where copies of them lie. Shapes of a cell are made on
/// demand: the members moved by the cell's position minus the template's top-left corner. Deleting a cell does not
/// remove it but marks it invalid, so that indices stay stable.
///
/// **Costs.** c is the number of cells, deleted ones too, M that of members. Transforms are O(c) and the members'
/// transforms; getters are O(1) unless said below.
class SHAPEMODEL_EXPORT CShapeArray : public CShapeGroup
{
public:
    CShapeArray();
    /// Shares the members as CShapeGroup's copies do; cells, remembered cells and last hit are copied.
    CShapeArray(const CShapeArray&);
    /// As the copy constructor and CShapeGroup's assignment.
    CShapeArray& operator=(const CShapeArray& other);
    ~CShapeArray() override;

    // Layout.

    /// Makes the members' rectangle the template and lays out nRows x nCols cells row by row: gaps between neighbours,
    /// odd rows moved right by dRowShift, odd columns moved down by dColShift (model units). Cell (0, 0) never moves.
    /// No cells for counts below 1 or a product beyond 10 million; nothing happens for non-finite distances.
    /// Cost: O(c + M).
    void SetArrayInfo(int nRows, int nCols, double dColGap, double dRowGap, double dRowShift, double dColShift);
    /// A copy of the cells. Cost: O(1): shared until changed.
    QList<ShapeArrayInfo> GetShapeArrayInfo();
    /// Adds the shapes of list to the members and measures the template anew; the cells stay. The array owns the shapes
    /// from then on, although list still contains them. list may be the array's own, which then contains each member
    /// twice; null is ignored. Cost: O(M).
    void SetShapeList(CShapeList* list);
    /// A new list with the shapes of every valid cell in order; the caller owns list and shapes. Empty, with a log
    /// line, when they would take more than 4 GiB or when memory runs out: use GetShape cell by cell then. Arrays among
    /// the members are copied as arrays. Cost: O(c M) clones.
    CShapeList* GetAllShapeList();
    /// A new group with the shapes of cell i, valid or not, owned by the caller; null when there is no cell i and when
    /// its position is not finite. Cost: O(M) clones.
    CShape* GetShape(int i);

    using CShapeGroup::GetPath;
    /// The members' outline with its top-left corner on cell i; empty where GetShape returns null. Rebuilds the array's
    /// own painter path. Cost: O(elements of the members' outlines).
    QPainterPath GetPath(int i);

    /// Rectangle of cell i (model units); null when there is no cell i.
    QRectF GetRect(int i);
    /// Union of the valid cells' rectangles; null without one. Cost: O(c).
    QRectF GetAllRect();
    /// Number of valid cells. Cost: O(c).
    int GetCount();
    /// Marks cell i invalid and remembers the cells for IsSelecteChanged; nothing when there is no cell i. Cost: O(1),
    /// but O(c) where the cells are shared, with a copy of the array or with what GetShapeArrayInfo has returned.
    void SetInvalid(int i);
    /// Marks the selected cells invalid; they keep their selection. Cost: O(c).
    void DeleteSelect();

    // Hit test: the first valid cell whose rectangle contains p, -1 for none. The integer has no effect. A document may
    // hold cells whose position is not finite: they count as cells, but are never hit, selected, filled or part of a
    // rectangle.

    /// The cell that contains p. Cost: O(c).
    int GetCurrentHitIndex(QPointF p, int part);
    /// The same, remembered for GetLastHitIndex. Cost: O(c).
    int GetHitIndex(QPointF p, int part);
    /// What GetHitIndex returned last, -1 at first.
    int GetLastHitIndex();

    // Selection of cells. Each change first remembers the cells for IsSelecteChanged.

    /// Sets the array's own select bit for a valid index. No cell changes. Cost: O(1).
    void Select(bool bSelect, int i);
    /// Selects or deselects all cells, invalid ones too; cells whose position is not finite are never selected.
    /// Cost: O(c).
    void SelectAll(bool bSelect);
    /// Inverts the selection of the valid cells that lie inside r (bContain) or touch it. Cost: O(c).
    void SelectByRect(QRectF r, bool bContain);
    /// 0 none (or no cells), 1 all, 2 mixed; invalid cells count, those whose position is not finite do not.
    /// Cost: O(c).
    unsigned int GetSelectStatus();
    /// Valid and selected cells. Cost: O(c).
    int GetSelectCount();
    /// Whether the selection differs from that of the remembered cells. Cost: O(c).
    bool IsSelecteChanged();
    /// Union of the rectangles of the valid and selected cells; null without one. Cost: O(c).
    QRectF GetSelectRect();
    /// The first valid and selected cell, -1 for none. Cost: O(c).
    int GetFirstSelectIndex();

    /// The own colour, or the first member's when that is 0. Not virtual: lists call CShape::GetColor.
    unsigned int GetColor();

    /// Converts template and cell positions from pixels to millimetres; a null ruler is ignored. The host converts the
    /// members itself. Cost: O(c).
    void ChangePix2MM(IRuler* ruler);
    /// The same from millimetres to pixels. Cost: O(c).
    void ChangeMM2Pix(IRuler* ruler);

    /// Group record, then the cell count (4 bytes) and 22 bytes per cell. Returns what the last write returned: 1 after
    /// a cell, 4 without cells, -1 when the file took less. Cost: O(c) and the members.
    int Save(QFile* file) override;
    /// The group's error code. The template is measured when it is first needed, or before GetShapeList returns the
    /// members. Cost: O(bytes).
    int Read(QFile* file, int version) override;
    /// False, and nothing changed, unless src is an array. No cells are remembered afterwards; the last hit stays
    /// unless there is no such cell any more. Cost: O(M) clones; cells are shared until changed.
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
    /// The first cell is then moved onto the members, also when the points coincide and nothing is mirrored.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    bool MirrorAttachLine(double value, bool bVertical) override;

    /// The members' rectangle when bUpdate, else that of all valid cells. Cost: O(M) when bUpdate, else O(c).
    QRectF GetRect(bool bUpdate) override;
    /// The array's own colour; the members keep theirs.
    void SetColor(unsigned int color) override;
    /// Always true.
    bool IsClose() override;
    /// SelectAll; the array's own select bit stays. Cost: O(c).
    void Select(bool bSelect) override;
    /// Whether any cell is selected, valid or not. Cost: O(c).
    bool IsSelect() override;
    ESHAPE_TYPE GetShapeType() override;
    /// Whether a valid cell is hit; part is not written. Cost: O(c).
    bool Hit(QPointF p, int& part) override;
    CShape* Clone() override;

private:
    /// What happens to the temporary paths of images that are brought up to date.
    enum class Previews
    {
        End,
        Keep ///< images that have one are up to date: the mirror that shows it has just updated them
    };

    SHAPEMODEL_NO_EXPORT void FillCells(CShapeList& all);
    SHAPEMODEL_NO_EXPORT static bool BringUpToDate(CShapeList& members, Previews previews);
    SHAPEMODEL_NO_EXPORT static bool HasPlace(const ShapeArrayInfo& cell);
    SHAPEMODEL_NO_EXPORT static bool IsSelectedCell(const ShapeArrayInfo& cell);
    SHAPEMODEL_NO_EXPORT static bool IsValidAndSelected(const ShapeArrayInfo& cell);
    SHAPEMODEL_NO_EXPORT bool IsCell(int i) const;
    SHAPEMODEL_NO_EXPORT QRectF CellRect(const ShapeArrayInfo& cell) const;
    SHAPEMODEL_NO_EXPORT QPointF CellOffset(const ShapeArrayInfo& cell) const;
    SHAPEMODEL_NO_EXPORT void RememberPresentCells();
    SHAPEMODEL_NO_EXPORT QRectF Template() const;
    SHAPEMODEL_NO_EXPORT void SetTemplate(const QRectF& rect);
    SHAPEMODEL_NO_EXPORT void RenewTemplate(Previews previews = Previews::End);
    SHAPEMODEL_NO_EXPORT void MoveCells(QPointF offset);
    SHAPEMODEL_NO_EXPORT void MapCells(const QTransform& transform);
    SHAPEMODEL_NO_EXPORT void MirrorCellsAndMembers(QPointF p1, QPointF p2, bool bCommit);

    QRectF m_rcTemplate; ///< not valid while m_pLateRect is set
    int m_nLastHitIndex = -1;
    bool m_bPresentRemembered = false; ///< the remembered cells are m_listInfo as it is, and m_listInfoPrev is empty
    QList<ShapeArrayInfo> m_listInfo;
    QList<ShapeArrayInfo> m_listInfoPrev; ///< the cells before the last change of selection
};
