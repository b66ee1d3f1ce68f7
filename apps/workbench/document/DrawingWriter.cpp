#include "document/Autosaver.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"

#include <exception>

namespace {

/// Why the copy could not be written; empty when it was.
QString Written(CShapeList& copy, const QString& file, const std::function<void()>& before)
{
    try {
        before();
        shapedocument::WriteDocument({file, false}, copy, {});
        return {};
    } catch (const shapedocument::Failure& failure) {
        return failure.file + ": " + failure.reason;
    } catch (const std::exception& exception) { // no memory
        return QString::fromLocal8Bit(exception.what());
    }
}

} // namespace

Autosaver::~Autosaver()
{
    Wait();
}

void Autosaver::Wait()
{
    if (m_thread.joinable())
        m_thread.join();
    m_atWork = false;
}

void Autosaver::Write(ShapeListOwner copy, const QString& file, std::function<void()> before)
{
    Wait();
    m_atWork = true;
    m_thread = std::thread([this, shapes = std::move(copy), file, before = std::move(before)]() mutable {
        const QString reason = Written(*shapes, file, before);
        shapes.reset(); // freed here, so that the window does not wait for that
        QMetaObject::invokeMethod(
            this,
            [this, reason] {
                m_atWork = false;
                if (!reason.isEmpty())
                    emit Failed(reason);
            },
            Qt::QueuedConnection);
    });
}
