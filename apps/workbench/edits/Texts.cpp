#include "edits/Texts.h"

#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Translated.h"

#include "document/TextShape.h"
#include "shape/ShapeCast.h"
#include "text/ShapeText.h"

#include <algorithm>
#include <cstring>

namespace {

/// Copies as many whole characters as fit the buffer. @return whether all fitted
bool Put(const QString& text, char* buffer, size_t size)
{
    const QByteArray bytes = text.toUtf8();
    qsizetype count = std::min(bytes.size(), static_cast<qsizetype>(size) - 1);
    while (count < bytes.size() && count > 0 && (bytes[count] & 0xC0) == 0x80)
        --count; // the further bytes of a UTF-8 character start with the bits 10
    std::memcpy(buffer, bytes.constData(), static_cast<size_t>(count));
    buffer[count] = 0;
    return count == bytes.size();
}

} // namespace

bool FillText(SText& parameters, const QString& text)
{
    return Put(text, parameters.pText, TEXT_BUFFER_SIZE);
}

bool NameFont(SText& parameters, const QString& family)
{
    return Put(family, parameters.font.szFamily, sizeof parameters.font.szFamily);
}

CShapeText* TextOf(CShape* shape)
{
    return shapes::ShapeCast<CShapeText>(shape, ESHAPE_TEXT);
}

bool ChangeTexts(WorkDocument& document, const QString& name, const std::function<void(SText&)>& edit)
{
    return document.Change(name, document.Selection(), [&](CShape& shape) {
        CShapeText* text = TextOf(&shape);
        if (!text)
            return false;
        edit(*text->GetTextP());
        text->UpdatePainterPath();
        return true;
    });
}

bool ChangeWords(WorkDocument& document, const QString& words)
{
    bool fitted = true;
    const bool changed =
        ChangeTexts(document, Edits::tr("Words"), [&](SText& text) { fitted = FillText(text, words); });
    if (!fitted)
        document.Ask().Complain(Edits::tr("The text is longer than a text shape holds; its end was cut off."));
    return changed;
}

ShapeOwner NewText(const QString& text, QPointF corner)
{
    shapedocument::TextSetting setting;
    setting.size = kNewTextSize;
    ShapeOwner shape(shapedocument::NewText(text.toStdString(), setting).release());
    shape->Offset(corner.x(), corner.y());
    return shape;
}
