/// TextTool: types texts in place.
#pragma once

#include "canvas/CanvasTool.h"

#include <QPlainTextEdit>
#include <QPointer>

class CShape;
class CShapeText;

/// A click on a text edits it, elsewhere starts a new one. Escape, Ctrl+Enter or a click elsewhere ends typing; then
/// the drawing changes, as one undo command.
class TextTool : public CanvasTool
{
public:
    /// Starts editing the selection if it is a single text.
    explicit TextTool(CanvasView& view);
    ~TextTool() override;

    void Press(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    void DrawingChanged() override;
    void Leave() override;
    QString Hint() const override;
    QCursor Cursor() const override { return Qt::IBeamCursor; }

    /// The field for typing; null while there is none.
    QPlainTextEdit* Editor() const { return m_editor; }

private:
    class Editing;

    void Edit(CShapeText& text);
    void Begin(QPointF mm);
    void Show(const QString& text, const QRectF& pixels, const QString& family, double size);
    void Widen();
    bool InsertText(const QString& typed);
    void Finish();

    QPointer<QPlainTextEdit> m_editor;
    CShape* m_edited = nullptr; ///< null: a new text
    QPointF m_corner;           ///< of a new text, mm
    bool m_finishing = false;
};
