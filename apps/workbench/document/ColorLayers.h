/// What the machine does with each colour, kept beside the document.
#pragma once

#include "machine/ColorSettings.h"

#include <QObject>

#include <functional>

class QUndoStack;

/// The settings of colours, which the drawing's shapes have, in the file that shapedoc takes for its option --colors.
/// Every change is an undo command of the document's, and is written when the document is.
class ColorLayers : public QObject
{
    Q_OBJECT

public:
    /// undo must outlive the layers.
    explicit ColorLayers(QUndoStack& undo) : m_undo(undo) {}

    /// By colour, 0xRRGGBB.
    const shapedocument::ColorSettings& Settings() const { return m_settings; }
    /// A colour without any setting is forgotten. @return whether anything changed
    bool Set(unsigned int color, const shapedocument::ColorSetting& setting);
    /// The colours are done in this order, before all others; as many as such a file can number.
    /// @return whether anything changed
    bool SetOrder(const std::vector<unsigned int>& colors);

    /// The file beside a document or an autosave.
    static QString FileOf(const QString& document);
    /// Takes what stands beside the document, or, where there is such a file, beside what a crash left of it; nothing
    /// where there is neither. Either may be empty for none. Throws shapedocument::Failure where a file cannot be read,
    /// with the settings of the other one; MayWriteFor the document is false then.
    void ReadFor(const QString& document, const QString& left);
    /// Writes the file beside the document, or removes it where no colour has settings. A file that says the same
    /// already is not touched: it may have comments. Throws shapedocument::Failure.
    void WriteFor(const QString& document);
    /// What writes the settings as they are now beside an autosave, on any thread; without settings, too, where the
    /// document has a file of them. It throws shapedocument::Failure.
    std::function<void()> LeftWriter(const QString& autosave) const;
    /// False while the file beside the document is one that could not be read: what somebody wrote there is not
    /// overwritten.
    bool MayWriteFor(const QString& document) const;

signals:
    /// Another setting or order.
    void Changed();

private:
    friend class LayersCommand;

    bool Push(const QString& name, shapedocument::ColorSettings settings);
    void Take(const shapedocument::ColorSettings& settings);

    QUndoStack& m_undo;
    shapedocument::ColorSettings m_settings;
    QString m_unread;   ///< the file that could not be read; empty for none
    QString m_keptFile; ///< that says m_kept
    QByteArray m_kept;
};
