#include "job/JobMaker.h"

#include "document/Failure.h"

#include <QElapsedTimer>

#include <exception>
#include <optional>

using namespace shapedocument;

namespace {

QString WordsOf(WorkStep step)
{
    switch (step) {
    case WorkStep::Lines:
        return JobMaker::tr("Making lines of shapes");
    case WorkStep::Joining:
        return JobMaker::tr("Joining lines");
    case WorkStep::Ordering:
        return JobMaker::tr("Looking for short ways");
    case WorkStep::Doubles:
        return JobMaker::tr("Looking for doubled lines");
    default: // steps that making jobs does not have
        return {};
    }
}

int PercentOf(size_t done, size_t all)
{
    constexpr size_t kPercent = 100;
    return all == 0 ? -1 : static_cast<int>(std::min(done, all) * kPercent / all);
}

} // namespace

JobMaker::~JobMaker()
{
    Stop();
    if (m_thread.joinable())
        m_thread.join();
}

void JobMaker::Stop()
{
    ++m_number;
    m_atWork = false;
    if (m_stops)
        *m_stops = true;
}

void JobMaker::Make(ShapeListOwner copy, const JobSettings& settings)
{
    Stop();
    m_atWork = true;
    m_stops = std::make_shared<std::atomic<bool>>(false);
    m_thread = std::thread([this, former = std::move(m_thread), shapes = std::move(copy), settings, number = m_number,
                            stops = m_stops]() mutable {
        if (former.joinable())
            former.join(); // here, because some of its steps cannot be stopped, and the window must not wait for them
        if (!*stops)
            Run(std::move(shapes), settings, number, stops);
    });
}

/// Calls tell on the window's thread, unless another job has been requested since.
void JobMaker::Tell(int number, const std::function<void()>& tell)
{
    QMetaObject::invokeMethod(
        this,
        [this, number, tell] {
            if (number == m_number)
                tell();
        },
        Qt::QueuedConnection);
}

void JobMaker::Run(ShapeListOwner copy, const JobSettings& settings, int number, const Stops& stops)
{
    constexpr qint64 kOften = 100; // ms
    QElapsedTimer sinceTold;
    std::optional<WorkStep> told;
    const auto progress = [&](WorkStep step, size_t done, size_t all) {
        if (told != step || sinceTold.elapsed() >= kOften) {
            told = step;
            sinceTold.start();
            Tell(number,
                 [this, words = WordsOf(step), percent = PercentOf(done, all)] { emit Progressed(words, percent); });
        }
        return !*stops;
    };
    const auto fail = [&](const QString& reason) {
        Tell(number, [this, reason] {
            m_atWork = false;
            emit Failed(reason);
        });
    };
    try {
        const auto job = std::make_shared<const MadeJob>(std::move(copy), settings, progress);
        Tell(number, [this, job] {
            m_atWork = false;
            emit Made(job);
        });
    } catch (const Stopped&) { // its result is no longer wanted
    } catch (const Failure& failure) {
        fail(failure.reason);
    } catch (const std::exception& exception) {
        fail(QString::fromLocal8Bit(exception.what()));
    }
}
