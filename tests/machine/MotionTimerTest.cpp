#include "machine/MotionTimer.h"

#include "document/Failure.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <numbers>

using namespace shapedocument;

namespace {

constexpr double kSpeed = 1200; // mm per minute: 20 mm/s, reached in 0.04 s and 0.4 mm with 500 mm/s²

double TimeOf(const std::vector<QPointF>& points)
{
    MotionTimer timer({});
    for (const QPointF& point : points)
        timer.Line(point, kSpeed);
    return timer.Seconds();
}

} // namespace

TEST(MotionTimer, moves_take_the_time_of_their_trapezoids_corners_and_curves)
{
    EXPECT_NEAR(TimeOf({{100, 0}}), 0.08 + 99.2 / 20, 1e-9);
    EXPECT_NEAR(TimeOf({{0.2, 0}}), 2 * 10 / 500.0, 1e-9) << "too short for full speed: 10 mm/s at its middle";
    EXPECT_NEAR(TimeOf({{50, 0}, {100, 0}}), 5.04, 1e-9) << "no corner";
    EXPECT_NEAR(TimeOf({{50, 0}, {0, 0}}), 2 * (0.08 + 49.2 / 20), 1e-9) << "back: a stop";
    // A right angle at sqrt(500 * 0.01 * s / (1 - s)) = 3.4743 mm/s, s the sine of 45 degrees.
    EXPECT_NEAR(TimeOf({{50, 0}, {50, 50}}), 2 * (0.04 + 0.0330514 + 49.212071 / 20), 1e-6);
    EXPECT_NEAR(TimeOf({{0, 0}}), 0, 0);
    std::vector<QPointF> many;
    for (int i = 1; i <= 10'000; ++i)
        many.emplace_back(i * 0.01, 0);
    EXPECT_NEAR(TimeOf(many), 5.04, 1e-6) << "short moves take the time of one long one";

    MotionTimer curve({});
    // Half a circle of 0.02 mm: sqrt(500 * 0.02) = 3.1623 mm/s.
    const double speed = std::sqrt(10.0), length = curve.Segment({{0, 0}, 1}, {0.04, 0}, kSpeed);
    EXPECT_NEAR(length, 0.02 * std::numbers::pi, 1e-12);
    EXPECT_NEAR(curve.Seconds(), 2 * speed / 500 + (length - 0.02) / speed, 1e-9);

    MotionTimer stops({});
    stops.Line({50, 0}, kSpeed);
    stops.Stop();
    stops.Line({100, 0}, kSpeed);
    stops.Lift(100, 1e9); // 6000 mm a minute, the rapid, reached in 0.2 s and 10 mm
    EXPECT_NEAR(stops.Seconds(), 2 * (0.08 + 49.2 / 20) + 0.4 + 80.0 / 100, 1e-9);
}

TEST(MachineSettings, are_read_or_refused_with_their_line)
{
    const char* const names = "feed, engraveFeed, rapid, acceleration, junctionDeviation, beam";
    const std::pair<QByteArray, std::string> rows[] = {
        {"\xEF\xBB\xBF[machine]\r\nfeed = 2400 ; mm\r\n\r\n# laser\r\nbeam=0.2\r\n", "feed 2400, beam 0.2"},
        {"", "feed 0, beam 0.1"},
        {"feed = 5\n", "line 1 has \"feed\" in no section"},
        {"[machine]\nfeed = -5\n", "line 2: feed \"-5\" is no number from 0.001 to 1000000"},
        {"[machine]\nfree = 1\n", std::string("line 2: \"free\" is none of ") + names},
        {"[laser]\n", "line 1: [laser] is no section of a machine, which has [machine] alone"},
        {"[machine]\nbeam=" + QByteArray(50, 'x'),
         "line 2: beam \"" + std::string(40, 'x') + "\u2026\" is no number from 0.001 to 1000000"},
    };
    const QTemporaryDir folder;
    for (const auto& [text, wanted] : rows) {
        QFile file(folder.filePath("machine.ini"));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        file.close();
        std::string got;
        try {
            const MachineSettings settings = ReadMachineSettings(file.fileName());
            got = QString("feed %1, beam %2").arg(settings.feed.value_or(0)).arg(settings.beam).toStdString();
        } catch (const Failure& failure) {
            got = failure.reason.toStdString();
        }
        EXPECT_EQ(got, wanted);
    }
}
