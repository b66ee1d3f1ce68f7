/// What the machine does with each colour, kept beside the document.
#pragma once

#include "machine/ColorSettings.h"

#include <QObject>

/// The settings of colours, which the drawing's shapes have, in the file that shapedoc takes for its option --colors.
class ColorLayers : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// By colour, 0xRRGGBB.
    const shapedocument::ColorSettings& Settings() const { return m_settings; }
    /// A colour without any setting is forgotten.
    void Set(unsigned int color, const shapedocument::ColorSetting& setting);
    /// The colours are done in this order, before all others.
    void SetOrder(const std::vector<unsigned int>& colors);

    /// The file beside a document.
    static QString FileOf(const QString& document);
    /// Takes what stands beside the document; nothing where there is no such file. Throws shapedocument::Failure where
    /// it cannot be read, with the settings as for a document without one; MayWriteFor is false then.
    void ReadFor(const QString& document);
    /// Writes the file beside the document, or removes it where no colour has settings. Throws shapedocument::Failure.
    void WriteFor(const QString& document) const;
    /// False while the file beside the document is one that could not be read: what somebody wrote there is not
    /// overwritten.
    bool MayWriteFor(const QString& document) const;

signals:
    /// Another setting or order.
    void Changed();

private:
    shapedocument::ColorSettings m_settings;
    QString m_unread; ///< the file that could not be read; empty for none
};
