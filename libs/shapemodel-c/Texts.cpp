/// Texts, and the texts of code images.
#include "Application.h"
#include "Arguments.h"
#include "Edits.h"
#include "Entry.h"
#include "Structs.h"
#include "document/TextFindings.h"
#include "document/TextShape.h"

#include "image/CodeShapeImage.h"
#include "text/ShapeText.h"

#include <algorithm>
#include <cstring>

using namespace capi;
using namespace shapedocument;

namespace {

static_assert(sizeof(sm_text_options::family) == kLongestFamily + 1);

/// Documents may hold any bytes: invalid UTF-8 becomes the replacement character.
std::string Utf8Of(const char* bytes, size_t length)
{
    return QString::fromUtf8(bytes, static_cast<qsizetype>(length)).toStdString();
}

/// Copies as many whole characters as fit; a document may have cut the last one.
void CopyFamily(const std::string& family, sm_text_options& options)
{
    std::string letters = Utf8Of(family.data(), std::min(family.size(), kLongestFamily));
    size_t length = std::min(letters.size(), kLongestFamily); // a replaced byte has become three
    while (length < letters.size() && length > 0 && (static_cast<unsigned char>(letters[length]) & 0xC0U) == 0x80)
        --length;
    std::memcpy(options.family, letters.data(), length);
}

sm_text_options OptionsOf(const TextSetting& setting)
{
    sm_text_options options{};
    options.bold = setting.bold;
    options.italic = setting.italic;
    options.vertical = setting.vertical;
    const bool known = setting.align == ETEXTALIGNMENT_CENTER || setting.align == ETEXTALIGNMENT_RIGHT;
    options.align = known ? int32_t{setting.align} : int32_t{SM_ALIGN_LEFT};
    options.size = setting.size;
    options.char_spacing = setting.charSpacing;
    options.line_spacing = setting.lineSpacing;
    CopyFamily(setting.family, options);
    return options;
}

TextSetting SettingOf(const sm_text_options* given)
{
    const sm_text_options options = WithDefaults(given, OptionsOf(TextSetting()));
    ExpectBetween(options.size, kSmallestText, kLargestText, "size");
    ExpectBetween(options.char_spacing, -kWidestSpacing, kWidestSpacing, "char_spacing");
    ExpectBetween(options.line_spacing, -kWidestSpacing, kWidestSpacing, "line_spacing");
    ExpectBetween(options.align, SM_ALIGN_LEFT, SM_ALIGN_RIGHT, "align");
    TextSetting setting;
    setting.family = TextOf(options.family, "family", kLongestFamily).toStdString();
    setting.size = options.size;
    setting.charSpacing = options.char_spacing;
    setting.lineSpacing = options.line_spacing;
    setting.align = static_cast<ETEXTALIGNMENT_MODE>(options.align);
    setting.bold = options.bold != 0;
    setting.italic = options.italic != 0;
    setting.vertical = options.vertical != 0;
    return setting;
}

std::string ContentOf(const char* content)
{
    return TextOf(content, "the text", kLongestText).toStdString();
}

void WarnOfLetters(CShapeText& text)
{
    TextFindings findings;
    findings.Add(text);
    Warn(findings.Lines());
}

std::string ContentOf(const ShapeUse& use)
{
    if (auto* code = dynamic_cast<CCodeShapeImage*>(&*use))
        return code->GetCodeText().toStdString();
    const SText text = use.As<CShapeText>().GetText();
    return Utf8Of(text.pText, strnlen(text.pText, TEXT_BUFFER_SIZE));
}

} // namespace

sm_status sm_text_options_defaults(sm_text_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, OptionsOf(TextSetting())); });
}

sm_status sm_text_new(const char* text, const sm_text_options* options, sm_shape* shape)
{
    return Enter([=] {
        Clear(shape, "shape");
        const std::string content = ContentOf(text);
        const TextSetting setting = SettingOf(options);
        ExpectApplication();
        std::unique_ptr<CShapeText> made = NewText(content, setting);
        WarnOfLetters(*made);
        *shape = Detached(std::move(made));
    });
}

sm_status sm_shape_text(sm_shape shape, char* text, size_t capacity, size_t* length)
{
    return Enter([=] {
        Clear(length, "length");
        const std::string content = ContentOf(ShapeUse(shape));
        *length = content.size();
        if (HasRoom(content.size() + 1, capacity, text))
            std::memcpy(text, content.c_str(), content.size() + 1);
    });
}

sm_status sm_shape_text_options(sm_shape text, sm_text_options* options)
{
    return Enter([=] {
        ExpectAnswerable(options);
        Answer(options, OptionsOf(SettingOf(ShapeUse(text).As<CShapeText>())));
    });
}

sm_status sm_shape_set_text(sm_shape text, const char* content, const sm_text_options* options)
{
    return Enter([=] {
        const std::string letters = ContentOf(content);
        const std::optional<TextSetting> setting = options ? std::optional(SettingOf(options)) : std::nullopt;
        const ShapeUse use(text);
        auto& changed = use.As<CShapeText>();
        ExpectEditable(use);
        SetText(changed, letters, setting);
        WarnOfLetters(changed);
        FinishEdit(use);
    });
}
