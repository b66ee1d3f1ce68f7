/// Files that remember a failed write.
#pragma once

#include "shapedocument_export.h"
#include <QFile>

namespace shapedocument {

/// A file that remembers a short write: QFile resets its own error state at the next write.
class SHAPEDOCUMENT_EXPORT CheckedFile : public QFile
{
public:
    /// Whether all writes so far were complete. A short write gives no reason; the next one does.
    bool WroteAll() { return (flush() || flush()) && m_whole && error() == NoError; }

    /// The reason of the first incomplete write.
    QString Reason() const { return m_whole ? errorString() : m_reason; }

protected:
    /// Writes, and keeps the reason of the first write that falls short.
    qint64 writeData(const char* data, qint64 length) override;

private:
    bool m_whole = true;
    QString m_reason;
};

/// A temporary file without a name: it disappears, however the process ends.
class SHAPEDOCUMENT_EXPORT UnnamedFile : public CheckedFile
{
public:
    /// Opens the file for writing and reading. Throws Failure, with purpose as the file's name.
    explicit UnnamedFile(const QString& purpose);
};

} // namespace shapedocument
