#include "document/Recovery.h"

#include "document/ColorLayers.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

namespace {

constexpr char kEnding[] = ".autosave";

QString UntitledFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/unsaved";
}

QString AutosaveOf(const QString& document)
{
    if (document.isEmpty())
        return UntitledFolder() + '/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + kEnding;
    const QFileInfo info(document);
    return info.absolutePath() + "/." + info.fileName() + kEnding;
}

QString LockOf(const QString& autosave)
{
    return autosave + ".lock";
}

/// A lock that does not become stale with age: drawings stay open for days.
std::unique_ptr<QLockFile> TryLock(const QString& autosave)
{
    QDir().mkpath(QFileInfo(autosave).absolutePath());
    auto lock = std::make_unique<QLockFile>(LockOf(autosave));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

} // namespace

Recovery::~Recovery() = default;

void Recovery::Follow(const QString& document)
{
    Remove();
    m_file = AutosaveOf(document);
}

QString Recovery::File()
{
    if (m_file.isEmpty())
        m_file = AutosaveOf({});
    if (!m_lock)
        m_lock = TryLock(m_file);
    if (!m_lock) { // the document's folder is read-only, or the document is open twice
        m_file = AutosaveOf({});
        m_lock = TryLock(m_file);
    }
    return m_lock ? m_file : QString();
}

void Recovery::Remove()
{
    if (m_lock)
        Delete(m_file);
    m_lock.reset();
}

void Recovery::Delete(const QString& left)
{
    QFile::remove(left);
    QFile::remove(ColorLayers::FileOf(left));
}

void Recovery::ContinueFrom(const QString& left)
{
    Remove();
    m_file = left;
    m_lock = TryLock(left);
}

QString Recovery::LeftBy(const QString& document)
{
    const QString file = AutosaveOf(document);
    const QFileInfo left(file), saved(document);
    const bool newer = left.exists() && (!saved.exists() || left.lastModified() >= saved.lastModified());
    return newer && TryLock(file) ? file : QString();
}

QStringList Recovery::LeftByUntitled()
{
    QStringList left;
    const QFileInfoList files = QDir(UntitledFolder()).entryInfoList({QString("*") + kEnding}, QDir::Files, QDir::Time);
    for (const QFileInfo& file : files)
        if (TryLock(file.filePath()))
            left.append(file.filePath());
    return left;
}
