#include "GoalTable.h"

#include "Goals.h"

#include <QString>
#include <QStringList>

#include <array>
#include <iostream>

namespace bench {

namespace {

constexpr std::array<int, 7> kWidths{58, 10, 52, 10, 6, 7, 7};

QString Time(double seconds)
{
    if (seconds >= 1)
        return QString::number(seconds, 'g', 3) + " s";
    if (seconds >= 1e-3)
        return QString::number(seconds * 1e3, 'g', 3) + " ms";
    if (seconds >= 1e-6)
        return QString::number(seconds * 1e6, 'g', 3) + " µs";
    return QString::number(seconds * 1e9, 'g', 3) + " ns";
}

QString Amount(double amount, const Row& row)
{
    return row.sides ? Time(amount) : QString::number(amount, 'g', 4) + " " + QString::fromStdString(row.unit);
}

void PrintLine(std::ostream& out, const QStringList& cells)
{
    QString line = "|";
    for (qsizetype i = 0; i < cells.size(); ++i)
        line += " " + cells[i].leftJustified(kWidths[static_cast<size_t>(i)]) + " |";
    out << line.toStdString() << std::endl;
}

/// Of a benchmark without goal: its label and counters.
QString Remarks(const benchmark::BenchmarkReporter::Run& run)
{
    QStringList remarks;
    if (!run.report_label.empty())
        remarks += QString::fromStdString(run.report_label);
    for (const auto& [name, counter] : run.counters)
        remarks += QString::fromStdString(name) + " " + QString::number(counter.value, 'g', 3);
    return remarks.join(", ");
}

} // namespace

bool GoalTable::ReportContext(const Context&)
{
    PrintLine(GetOutputStream(), {"measure", "it takes", "limit or peer", "takes", "ratio", "goal", "met"});
    PrintLine(GetOutputStream(), {"---", "---", "---", "---", "---", "---", "---"});
    return true;
}

void GoalTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.error_occurred)
            GetErrorStream() << run.benchmark_name() << ": " << run.error_message << std::endl;
        else if (FindRow(run.run_name.function_name))
            ReportRow(run);
        else
            PrintLine(GetOutputStream(), {QString::fromStdString(run.benchmark_name()),
                                          Time(run.cpu_accumulated_time / static_cast<double>(run.iterations)),
                                          Remarks(run), "", "", "", ""});
    }
}

void GoalTable::ReportRow(const Run& run)
{
    const Row& row = *FindRow(run.run_name.function_name);
    const double ratio = run.counters.at("ratio").value;
    const double reached = row.goal.timesFaster ? 1 / ratio : ratio;
    const bool met = row.goal.timesFaster ? reached >= row.goal.factor : reached <= row.goal.factor;
    const QString sign = row.goal.timesFaster ? "×" : "";
    PrintLine(GetOutputStream(), {QString::fromStdString(row.name), Amount(run.counters.at("subject").value, row),
                                  QString::fromStdString(row.against), Amount(run.counters.at("limit").value, row),
                                  QString::number(reached, 'g', 3) + sign,
                                  (row.goal.timesFaster ? "≥ " : "≤ ") + QString::number(row.goal.factor) + sign,
                                  met ? "met" : "not met"});
    ++m_goals;
    m_met += met;
}

void GoalTable::Finalize()
{
    GetOutputStream() << "\n" << m_met << " of " << m_goals << " goals met" << std::endl;
}

} // namespace bench
