#include "document/ColorLayers.h"

#include "document/Failure.h"
#include "document/NumberedCommand.h"
#include "document/OutputFile.h"
#include "machine/GcodeOptions.h"

#include <QFile>

#include <optional>
#include <utility>

using namespace shapedocument;

namespace {

constexpr size_t kMostOrders = kMostPasses; // the largest order that ReadColorSettings accepts

bool SaysNothing(const ColorSetting& setting)
{
    return !setting.feed && !setting.power && !setting.passes && setting.order == ColorSetting::kLastOrder;
}

void WriteText(const QString& file, const QByteArray& text)
{
    WriteFile({file}, [&text](QFile& target) { target.write(text); });
}

} // namespace

/// Keeps all settings before and after: there are no more than colours in the drawing.
class LayersCommand : public NumberedCommand
{
public:
    LayersCommand(ColorLayers& layers, const QString& name, ColorSettings after)
        : NumberedCommand(name), m_layers(layers), m_before(layers.Settings()), m_after(std::move(after))
    {}

    void undo() override { m_layers.Apply(m_before); }
    void redo() override { m_layers.Apply(m_after); }

private:
    ColorLayers& m_layers;
    ColorSettings m_before, m_after;
};

void ColorLayers::Apply(const ColorSettings& settings)
{
    m_settings = settings;
    emit Changed();
}

bool ColorLayers::Push(const QString& name, ColorSettings settings)
{
    std::erase_if(settings, [](const auto& entry) { return SaysNothing(entry.second); });
    if (ColorSettingsText(settings) == ColorSettingsText(m_settings))
        return false;
    m_undo.push(new LayersCommand(*this, name, std::move(settings))); // the stack owns it and calls redo
    return true;
}

bool ColorLayers::Set(unsigned int color, const ColorSetting& setting)
{
    ColorSettings settings = m_settings;
    settings[color] = setting;
    return Push(tr("Layer"), std::move(settings));
}

bool ColorLayers::SetOrder(const std::vector<unsigned int>& colors)
{
    ColorSettings settings = m_settings;
    for (auto& [color, setting] : settings)
        setting.order = ColorSetting::kLastOrder;
    for (size_t i = 0; i < colors.size() && i < kMostOrders; ++i)
        settings[colors[i]].order = static_cast<int>(i) + 1;
    return Push(tr("Order of Layers"), std::move(settings));
}

QString ColorLayers::FileOf(const QString& document)
{
    return document.isEmpty() ? QString() : document + ".colors.ini";
}

void ColorLayers::ReadFor(const QString& document, const QString& left)
{
    ColorSettings read;
    std::optional<Failure> failure;
    m_unread.clear();
    m_keptFile = FileOf(document);
    m_kept.clear();
    for (const QString& owner : {document, left}) {
        const QString file = FileOf(owner);
        if (file.isEmpty() || !QFile::exists(file))
            continue;
        try {
            read = ReadColorSettings(file);
            if (owner == document)
                m_kept = ColorSettingsText(read);
        } catch (const Failure& caught) {
            failure = caught;
            if (owner == document)
                m_unread = file;
        }
    }
    Apply(read);
    if (failure)
        throw Failure(*failure);
}

bool ColorLayers::MayWriteFor(const QString& document) const
{
    return FileOf(document) != m_unread || !QFile::exists(m_unread);
}

ColorLayers::Copy ColorLayers::CopyFor(const QString& document) const
{
    Copy copy{FileOf(document), ColorSettingsText(m_settings)};
    copy.isKept = copy.file == m_keptFile && copy.text == m_kept;
    return copy;
}

void ColorLayers::Write(const Copy& copy)
{
    if (copy.isKept && QFile::exists(copy.file) == !copy.text.isEmpty())
        return;
    if (!copy.text.isEmpty())
        WriteText(copy.file, copy.text);
    else if (QFile target(copy.file); target.exists() && !target.remove())
        throw Failure{copy.file, tr("cannot be removed: %1").arg(target.errorString())};
}

void ColorLayers::SetKept(const Copy& copy)
{
    m_keptFile = copy.file;
    m_kept = copy.text;
}

std::function<void()> ColorLayers::LeftWriter(const QString& autosave) const
{
    const QString file = FileOf(autosave);
    const QByteArray text = ColorSettingsText(m_settings);
    if (text.isEmpty() && m_kept.isEmpty())
        return [file] { QFile::remove(file); };
    return [file, text] { WriteText(file, text); }; // it comes before the document's
}
