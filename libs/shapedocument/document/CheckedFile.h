/// Files whose failed writes are not forgotten.
#pragma once

#include "shapedocument_export.h"
#include <QFile>

namespace shapedocument {

/// Remembers a write that fell short: QFile's own error state is reset by the next write.
class SHAPEDOCUMENT_EXPORT CheckedFile : public QFile
{
public:
    /// Whether everything written has been taken so far.
    bool Taken() { return flush() && m_whole && error() == NoError; }

    /// Why it has not.
    QString Reason() const { return m_whole ? errorString() : m_reason; }

protected:
    /// Writes, and keeps the reason of the first write that falls short.
    qint64 writeData(const char* data, qint64 length) override;

private:
    bool m_whole = true;
    QString m_reason;
};

/// A file without a name in the folder for temporary files: nothing of it is left however the process ends.
class SHAPEDOCUMENT_EXPORT UnnamedFile : public CheckedFile
{
public:
    /// Opens it for writing and reading. Throws Failure, naming what the file is needed for.
    explicit UnnamedFile(const QString& purpose);
};

} // namespace shapedocument
