#include "panels/ColorLayers.h"

#include "document/OutputFile.h"

#include <QFile>

using namespace shapedocument;

namespace {

bool SaysNothing(const ColorSetting& setting)
{
    return !setting.feed && !setting.power && !setting.passes && setting.order == ColorSetting::kLastOrder;
}

} // namespace

void ColorLayers::Set(unsigned int color, const ColorSetting& setting)
{
    if (SaysNothing(setting))
        m_settings.erase(color);
    else
        m_settings[color] = setting;
    emit Changed();
}

void ColorLayers::SetOrder(const std::vector<unsigned int>& colors)
{
    for (auto& [color, setting] : m_settings)
        setting.order = ColorSetting::kLastOrder;
    int order = 0;
    for (const unsigned int color : colors)
        m_settings[color].order = ++order;
    std::erase_if(m_settings, [](const auto& entry) { return SaysNothing(entry.second); });
    emit Changed();
}

QString ColorLayers::FileOf(const QString& document)
{
    return document + ".colors.ini";
}

void ColorLayers::ReadFor(const QString& document)
{
    m_settings.clear();
    m_unread.clear();
    const QString file = FileOf(document);
    try {
        if (!document.isEmpty() && QFile::exists(file))
            m_settings = ReadColorSettings(file);
    } catch (...) {
        m_unread = file;
        emit Changed();
        throw;
    }
    emit Changed();
}

bool ColorLayers::MayWriteFor(const QString& document) const
{
    return FileOf(document) != m_unread || !QFile::exists(m_unread);
}

void ColorLayers::WriteFor(const QString& document) const
{
    const QString file = FileOf(document);
    if (m_settings.empty())
        QFile::remove(file);
    else
        WriteFile({file}, [this](QFile& target) { target.write(ColorSettingsText(m_settings)); });
}
