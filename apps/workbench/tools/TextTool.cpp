#include "tools/TextTool.h"

#include "canvas/CanvasView.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Texts.h"
#include "tools/Translated.h"

#include "shape/ShapeCast.h"
#include "text/ShapeText.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr double kSmallestLetters = 11; // least font size while typing
constexpr double kLargestLetters = 120;
constexpr double kLeastWidth = 220; // pixels, of the field

/// Moves an edited text so that the start of its lines stays in place: the library keeps its centre.
void KeepBegin(CShapeText& text, const QRectF& before)
{
    const SText& parameters = *text.GetTextP();
    const QRectF after = text.GetRect(false);
    if (parameters.dAngle != 0 || before.isEmpty() || after.isEmpty())
        return;
    double across = before.left() - after.left();
    if (parameters.nAlign == ETEXTALIGNMENT_RIGHT)
        across = before.right() - after.right();
    else if (parameters.nAlign == ETEXTALIGNMENT_CENTER)
        across = 0;
    text.Offset(across, before.top() - after.top());
}

} // namespace

/// The field for typing; ends typing when it loses the focus.
class TextTool::Editing : public QPlainTextEdit
{
public:
    Editing(QWidget& parent, TextTool& tool) : QPlainTextEdit(&parent), m_tool(&tool)
    {
        connect(this, &QPlainTextEdit::textChanged, this, [this] {
            if (m_tool)
                m_tool->Widen();
        });
    }
    /// Called when typing has ended. The field is deleted later by the event loop; the tool may be deleted before.
    void End()
    {
        m_tool = nullptr;
        hide();
        deleteLater();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (event->key() == Qt::Key_Escape || (enter && event->modifiers() & Qt::ControlModifier))
            Finish();
        else
            QPlainTextEdit::keyPressEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        QPlainTextEdit::focusOutEvent(event);
        if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
            Finish();
    }

private:
    void Finish()
    {
        if (m_tool)
            m_tool->Finish();
    }

    TextTool* m_tool; ///< null once typing has ended
};

TextTool::TextTool(CanvasView& view) : CanvasTool(view)
{
    const std::vector<CShape*>& selection = view.Document().Selection();
    if (selection.size() == 1)
        if (auto* text = shapes::ShapeCast<CShapeText>(selection.front(), ESHAPE_TEXT))
            Edit(*text);
}

TextTool::~TextTool()
{
    delete m_editor;
}

void TextTool::Press(const CanvasPoint& point)
{
    Finish();
    CShape* hit = nullptr;
    CShapeList& shapes = View().Document().Shapes();
    for (unsigned int i = shapes.GetCount(); i > 0 && !hit; --i) {
        CShape* shape = shapes.GetShape(i - 1);
        if (shape->GetShapeType() == ESHAPE_TEXT && !shape->IsHide() && !shape->IsLock() &&
            shape->Contains(point.mm, View().View().Scale()))
            hit = shape;
    }
    if (auto* text = shapes::ShapeCast<CShapeText>(hit, ESHAPE_TEXT)) {
        View().Document().Select({text});
        Edit(*text);
    } else {
        Begin(point.mm);
    }
}

void TextTool::Edit(CShapeText& text)
{
    m_edited = &text;
    const SText* parameters = text.GetTextP();
    Show(QString::fromUtf8(parameters->pText), View().View().ToPixel(text.GetRect(false)),
         QString::fromUtf8(parameters->font.szFamily), parameters->font.dSize * std::abs(parameters->dScaleX));
}

void TextTool::Begin(QPointF mm)
{
    m_edited = nullptr;
    m_corner = mm;
    Show({}, QRectF(View().View().ToPixel(mm), QSizeF()), STextFont().szFamily, kNewTextSize);
}

void TextTool::Show(const QString& text, const QRectF& pixels, const QString& family, double size)
{
    m_editor = new Editing(View(), *this); // the view owns it
    QFont font(family);
    font.setPixelSize(static_cast<int>(std::clamp(size * View().View().Scale(), kSmallestLetters, kLargestLetters)));
    m_editor->setFont(font);
    m_editor->setPlainText(text);
    m_editor->setTabChangesFocus(true);
    m_editor->setAccessibleName(Tools::tr("Text"));
    const double line = QFontMetricsF(font).lineSpacing();
    const QRectF shown = pixels.adjusted(-8, -8, 24, 8);
    const QSizeF field(std::max(kLeastWidth, shown.width()), std::max(line + 16, shown.height()));
    m_editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_editor->setGeometry(QRectF(shown.topLeft(), field).toRect());
    Widen();
    m_editor->moveCursor(QTextCursor::End);
    m_editor->show();
    m_editor->setFocus();
}

/// Enlarges the field to fit the typed text.
void TextTool::Widen()
{
    if (!m_editor)
        return;
    const QFontMetricsF metrics(m_editor->font());
    double width = kLeastWidth, height = 16;
    for (const QString& line : m_editor->toPlainText().split('\n')) {
        width = std::max(width, metrics.horizontalAdvance(line) + metrics.height());
        height += metrics.lineSpacing();
    }
    m_editor->resize(QSizeF(width, std::max<double>(height, m_editor->height())).toSize());
}

/// @return whether all of the text fitted into the shape
bool TextTool::InsertText(const QString& typed)
{
    ShapeOwner shape = NewText(typed, m_corner);
    const bool fitted = QString::fromUtf8(static_cast<CShapeText&>(*shape).GetTextP()->pText) == typed;
    shape->SetColor(View().Document().DrawColor());
    View().Document().Insert(Tools::tr("Text"), {shape.release()});
    return fitted;
}

/// Ends typing: puts the text into the drawing and the focus on the canvas.
void TextTool::Finish()
{
    if (!m_editor || m_finishing)
        return;
    m_finishing = true;
    const QString typed = m_editor->toPlainText();
    static_cast<Editing*>(m_editor.data())->End();
    m_editor = nullptr;
    WorkDocument& document = View().Document();
    bool fitted = true;
    if (m_edited && typed.isEmpty())
        document.Remove(Tools::tr("Delete Text"), {m_edited});
    else if (m_edited)
        document.Change(Tools::tr("Edit Text"), {m_edited}, [&](CShape& shape) {
            auto& text = static_cast<CShapeText&>(shape);
            if (QString::fromUtf8(text.GetTextP()->pText) == typed)
                return false;
            const QRectF before = text.GetRect(false);
            fitted = FillText(*text.GetTextP(), typed);
            text.UpdatePainterPath();
            KeepBegin(text, before);
            return true;
        });
    else if (!typed.trimmed().isEmpty())
        fitted = InsertText(typed);
    if (!fitted)
        document.Ask().Complain(Tools::tr("The text is longer than a text shape holds; its end was cut off."));
    m_edited = nullptr;
    m_finishing = false;
    View().setFocus();
}

/// Ends typing if the edited text has been removed.
void TextTool::DrawingChanged()
{
    if (m_finishing || !m_edited || View().Document().Shapes().FindShape(m_edited) >= 0)
        return;
    m_edited = nullptr;
    delete m_editor;
}

bool TextTool::Key(QKeyEvent& event)
{
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        Begin(View().View().ToMm(QRectF(View().rect()).center()));
        return true;
    }
    if (event.key() != Qt::Key_Escape)
        return false;
    emit View().SelectToolAsked();
    return true;
}

void TextTool::Leave()
{
    Finish();
}

QString TextTool::Hint() const
{
    return Tools::tr("Click begins a text, or edits the one that is clicked; Escape ends typing");
}
