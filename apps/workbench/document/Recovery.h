/// Where changes that are not saved yet are kept, in case the program ends before they are.
#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

/// The autosave of one open document: a file beside it, or, while it has no file, in the program's folder for data.
/// A lock beside the autosave tells whether the program that writes it still runs.
class Recovery
{
public:
    Recovery() = default;
    ~Recovery();

    /// Goes over to the document's file (empty: a drawing without one); removes the autosave that was.
    void Follow(const QString& document);
    /// Where to autosave, the lock taken: beside the document, or, where that cannot be, with the drawings that have no
    /// file. Empty when neither can be written.
    QString File();
    /// Removes the autosave.
    void Remove();
    /// Goes on with an autosave that was left over: the next one replaces it.
    void TakeOver(const QString& left);

    /// Removes an autosave with what stands beside it.
    static void Delete(const QString& left);

    /// The autosave that a crash left beside the document and that is newer than it; empty for none.
    static QString LeftBy(const QString& document);
    /// Those of drawings without a file.
    static QStringList LeftByUntitled();

private:
    QString m_file;
    std::unique_ptr<QLockFile> m_lock;
};
