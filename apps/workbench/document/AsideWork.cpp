#include "document/AsideWork.h"

#include "document/Failure.h"
#include "document/Questions.h"

#include <QScopedValueRollback>

#include <chrono>
#include <exception>

namespace {

bool IsDone(const std::future<void>& work, int milliseconds)
{
    return work.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

} // namespace

bool AsideWork::Run(const QString& words, std::function<void()> work)
{
    std::erase_if(m_givenUp, [](const std::future<void>& former) { return IsDone(former, 0); });
    if (m_runs) {
        m_questions.Tell(QCoreApplication::translate("AsideWork", "%1 has to wait: other work goes on").arg(words));
        return false;
    }
    const QScopedValueRollback running(m_runs, true);
    std::future<void> done = std::async(std::launch::async, std::move(work));
    if (!m_questions.Await(words, [&done](int milliseconds) { return IsDone(done, milliseconds); })) {
        m_givenUp.push_back(std::move(done));
        m_questions.Tell(QCoreApplication::translate("AsideWork", "%1 was given up").arg(words));
        return false;
    }
    try {
        done.get();
    } catch (const std::exception& exception) { // no memory
        throw shapedocument::Failure{words, QString::fromLocal8Bit(exception.what())};
    }
    return true;
}
