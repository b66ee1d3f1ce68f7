#include "document/DrawingWriter.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/FailureText.h"
#include "document/FileHeader.h"

#include <QFile>

#include <chrono>
#include <exception>

namespace {

/// Why the copy could not be written; empty when it was.
QString Written(CShapeList& copy, const QString& file, const std::function<void()>& beside)
{
    try {
        const auto write = [&copy](QFile& target) {
            shapedocument::WriteHeader(target);
            copy.Save(&target);
        };
        shapedocument::WriteFile({file, false}, write, [&beside](QFile&) { beside(); });
        return {};
    } catch (const shapedocument::Failure& failure) {
        return Sentence(failure);
    } catch (const std::exception& exception) { // no memory
        return QString::fromLocal8Bit(exception.what());
    }
}

} // namespace

DrawingWriter::~DrawingWriter()
{
    for (const Work& work : m_works)
        work.reason.wait();
}

bool DrawingWriter::IsWritten(int milliseconds) const
{
    return m_works.empty() ||
           m_works.back().reason.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

void DrawingWriter::Write(ShapeListOwner copy, const QString& file, std::function<void()> beside, Done done)
{
    const int number = ++m_last;
    const auto former = m_works.empty() ? std::shared_future<QString>() : m_works.back().reason;
    auto work = [this, number, former, shapes = std::move(copy), file, beside = std::move(beside)]() mutable {
        if (former.valid())
            former.wait();
        QString reason = Written(*shapes, file, beside);
        shapes.reset(); // freed here, so that the window does not wait for that
        QMetaObject::invokeMethod(
            this, [this, number] { Settle(number); }, Qt::QueuedConnection);
        return reason;
    };
    m_works.push_back({number, std::async(std::launch::async, std::move(work)).share(), std::move(done)});
}

/// Tells of the ends of all works up to that number, after waiting for them.
void DrawingWriter::Settle(int last)
{
    while (!m_works.empty() && m_works.front().number <= last) {
        const QString reason = m_works.front().reason.get();
        const Done done = std::move(m_works.front().done);
        m_works.pop_front();
        done(reason);
    }
}
