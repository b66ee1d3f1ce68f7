/// Files for unsaved changes, in case the program crashes.
#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

/// The autosave of one open document: a file beside it, or, while it has no file, in the program's folder for data.
/// A lock file beside it tells whether the program that writes it still runs.
class Recovery
{
public:
    Recovery() = default;
    ~Recovery();

    /// Switches to the document's file (empty: a drawing without one); removes the former autosave.
    void Follow(const QString& document);
    /// The file for autosaves, whose lock is then held: beside the document or, if that is not possible, in the folder
    /// for drawings without a file. Empty when neither can be written.
    QString File();
    /// Removes the autosave.
    void Remove();
    /// Continues with an autosave that a crash left: the next one replaces it.
    void ContinueFrom(const QString& left);

    /// Removes an autosave and the files beside it.
    static void Delete(const QString& left);

    /// The autosave that a crash left beside the document and that is newer than it; empty for none.
    static QString LeftBy(const QString& document);
    /// The autosaves that crashes left of drawings without a file.
    static QStringList LeftByUntitled();

private:
    QString m_file;
    std::unique_ptr<QLockFile> m_lock;
};
