/// What the tests of process-wide state share: the log, the box, and a polyline that asks for fitting.
#pragma once

#include "support/HostDouble.h"
#include "support/Outline.h"
#include "vector/ShapeVector.h"

#include <QApplication>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace test {

/// Whether the log, as TakeLog gives it, is one line of level 1.
inline bool IsOneLine(const std::string& log)
{
    return log.size() > 2 && log.substr(0, 2) == "1 " && log.find("; ") == std::string::npos;
}

/// A polyline, or a shape of another type.
struct Polyline : CShapeVector
{
    explicit Polyline(const std::string& outline = "| 0,0 10,0 10,5", EVECTOR_TYPE type = EVECTOR_POLYLINE)
    {
        SetVectorType(type);
        SetOutline(*this, outline);
    }
};

/// "type outline"
inline std::string Told(CShape& shape)
{
    return std::to_string(dynamic_cast<CShapeVector&>(shape).GetVectorType()) + " " + Outline(shape);
}

/// Waits until all threads have come here.
inline void Meet(std::atomic<size_t>& missing)
{
    for (--missing; missing > 0;)
        std::this_thread::yield();
}

/// Closes every message box that opens during an action, and tells about them.
class BoxCloser
{
public:
    BoxCloser()
    {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Close(); });
        m_timer.start();
    }

    std::vector<std::string> boxes; ///< "title|text|number of buttons"
    std::function<void()> whileOpen;

private:
    void Close()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        boxes.push_back(box->windowTitle().toStdString() + "|" + box->text().toStdString() + "|" +
                        std::to_string(box->buttons().size()) +
                        (box->standardButtons() == QMessageBox::Ok ? " OK" : " other"));
        if (whileOpen)
            whileOpen();
        box->accept();
    }

    QTimer m_timer;
};

} // namespace test

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
