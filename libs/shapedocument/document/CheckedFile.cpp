#include "document/CheckedFile.h"

#include "document/Failure.h"
#include "document/UnfinishedFiles.h"

#include <QDir>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace shapedocument {

qint64 CheckedFile::writeData(const char* data, qint64 length)
{
    qint64 written = 0;
    while (written < length) { // A short write gives no reason; the next one fails with errno set.
        const qint64 taken = QFile::writeData(data + written, length - written);
        if (taken <= 0)
            break;
        written += taken;
    }
    if (written < length && m_whole) {
        m_whole = false;
        m_reason = errorString();
    }
    return written < length ? -1 : written;
}

UnnamedFile::UnnamedFile(const QString& purpose)
{
    const SignalHold hold;
    QByteArray name = QFile::encodeName(QDir::tempPath() + "/shapedoc-XXXXXX");
    const int handle = mkostemp(name.data(), O_CLOEXEC);
    if (handle < 0)
        throw Failure{purpose, QString("no temporary file in %1: %2").arg(QDir::tempPath(), std::strerror(errno))};
    unlink(name.constData());
    if (!open(handle, ReadWrite, AutoCloseHandle))
        throw Failure{purpose, "no temporary file: " + errorString()};
}

} // namespace shapedocument
