/// The settings of colours, kept in a file beside the document.
#pragma once

#include "machine/ColorSettings.h"

#include <QObject>

#include <functional>

class QUndoStack;

/// The settings of the colours of the drawing's shapes, in a file as for shapedoc's option --colors. Every change is an
/// undo command of the document, and is written with the document.
class ColorLayers : public QObject
{
    Q_OBJECT

public:
    /// undo must outlive the layers.
    explicit ColorLayers(QUndoStack& undo) : m_undo(undo) {}

    /// By colour, 0xRRGGBB.
    const shapedocument::ColorSettings& Settings() const { return m_settings; }
    /// Sets one colour; a setting without values removes it. @return whether anything changed
    bool Set(unsigned int color, const shapedocument::ColorSetting& setting);
    /// Puts the colours in this order, before all others; up to the largest order that such a file can hold.
    /// @return whether anything changed
    bool SetOrder(const std::vector<unsigned int>& colors);

    /// The file beside a document or an autosave.
    static QString FileOf(const QString& document);
    /// Reads the settings beside the document, or those beside the autosave that a crash left (left) where that has
    /// some; none where neither has. Both names may be empty. Throws shapedocument::Failure where a file cannot be
    /// read, after the settings of the other one have been taken; if it is the document's, MayWriteFor it returns
    /// false.
    void ReadFor(const QString& document, const QString& left);
    /// The settings as a file beside a document.
    struct Copy
    {
        QString file;
        QByteArray text;     ///< empty where no colour has settings
        bool isKept = false; ///< the file has them already
    };
    /// The present settings, to be written beside the document.
    Copy CopyFor(const QString& document) const;
    /// Writes the file, or removes it where no colour has settings, on any thread. A file with the same settings is not
    /// touched: it may have comments. Throws shapedocument::Failure.
    static void Write(const Copy& copy);
    /// Call after Write has succeeded.
    void SetKept(const Copy& copy);
    /// A function that writes the present settings beside an autosave, on any thread; also empty ones if the document
    /// has a file of settings. It throws shapedocument::Failure.
    std::function<void()> LeftWriter(const QString& autosave) const;
    /// False while the file beside the document could not be read: it is not overwritten.
    bool MayWriteFor(const QString& document) const;

signals:
    /// A setting or the order has changed.
    void Changed();

private:
    friend class LayersCommand;

    bool Push(const QString& name, shapedocument::ColorSettings settings);
    void Apply(const shapedocument::ColorSettings& settings);

    QUndoStack& m_undo;
    shapedocument::ColorSettings m_settings;
    QString m_unread;   ///< the file that could not be read; empty for none
    QString m_keptFile; ///< whose settings are m_kept
    QByteArray m_kept;
};
