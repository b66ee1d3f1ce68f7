#include "OutputFile.h"

#include "Failure.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <unistd.h>

namespace {

/// A file that is removed unless kept, and that remembers a write that fell short: QFile's own error state is reset by
/// the next write.
class TemporaryFile : public QFile
{
public:
    TemporaryFile() = default;
    ~TemporaryFile() override
    {
        if (!isOpen())
            return;
        close();
        QFile::remove(fileName()); // The member refuses after a failed write.
    }

    /// Beside target, under a name that nothing has yet.
    bool Create(const QFileInfo& target)
    {
        constexpr int kAttempts = 100;
        const QString stem = QString("%1/.shapedoc-%2-").arg(target.path()).arg(QCoreApplication::applicationPid());
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            setFileName(stem + QString::number(attempt));
            if (open(WriteOnly | NewOnly))
                return true;
            if (!exists())
                return false;
        }
        return false;
    }

    /// Whether every byte has reached the disk.
    bool Finish() { return flush() && m_whole && error() == NoError && fsync(handle()) == 0; }

    QString Reason() const { return m_whole ? errorString() : m_reason; }

protected:
    qint64 writeData(const char* data, qint64 length) override
    {
        const qint64 written = QFile::writeData(data, length);
        if (written != length && m_whole) {
            m_whole = false;
            m_reason = error() == NoError ? "the disk takes no more" : errorString();
        }
        return written;
    }

private:
    bool m_whole = true;
    QString m_reason;
};

/// The file that a symbolic link stands for, so that the link survives.
QFileInfo Resolved(const QString& target)
{
    const QFileInfo info(target);
    return info.exists() ? QFileInfo(info.canonicalFilePath()) : info;
}

} // namespace

void WriteFile(const QString& target, const std::function<void(QFile&)>& write,
               const std::function<void(QFile&)>& approve)
{
    const QFileInfo place = Resolved(target);
    if (place.exists() && !place.isFile())
        throw Failure{target, "is no regular file"};
    TemporaryFile file;
    if (!file.Create(place))
        throw Failure{target, "cannot be written: " + file.errorString()};
    if (place.exists())
        file.setPermissions(place.permissions());
    write(file);
    if (!file.Finish())
        throw Failure{target, "cannot be written: " + file.Reason()};
    if (approve)
        approve(file);
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(file.fileName()).constData(),
                            QFile::encodeName(place.filePath()).constData(), error);
    if (error)
        throw Failure{target, "cannot be written: " + QString::fromStdString(error.message())};
    file.close();
}
