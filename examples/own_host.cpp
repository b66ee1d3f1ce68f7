// A design application's side: its own log and theme take the place of the reference host's, and its ruler converts
// between screen and millimetres.
#include "group/ShapeArray.h"
#include "host/ILog.h"
#include "host/IRuler.h"
#include "host/UiPermissionsManager.h"
#include "list/ShapeListOwner.h"
#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <cstdarg>
#include <cstdio>

// The library finds these because a program's own symbols come before those of its libraries; on Linux the program must
// export them (in CMake: ENABLE_EXPORTS). They are called from every thread that works on a document.

void ILog_WriteLog(int level, const char* text)
{
    std::fprintf(stderr, "%s: %s\n", level == ELOG_FAILURE ? "failure" : "note", text);
}

void ILog_WriteLogF(int level, const char* format, ...)
{
    char text[1024]; // longer ones are cut
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    ILog_WriteLog(level, text);
}

CUiPermissionsManager* CUiPermissionsManager::GetInstance()
{
    static CUiPermissionsManager manager;
    return &manager;
}

QString CUiPermissionsManager::GetThemeName()
{
    return "OwnTheme"; // the folder of resources in which the configuration is looked for
}

namespace {

/// Four pixels a millimetre, the origin at the upper left corner of the view.
class ViewRuler : public IRuler
{
public:
    QPointF MM2PixPoint(const QPointF& point) override { return point * kScale; }
    QRectF MM2PixRect(const QRectF& rect) override { return {rect.topLeft() * kScale, rect.size() * kScale}; }
    QPointF Pix2MMPoint(const QPointF& point) override { return point / kScale; }
    QRectF Pix2MMRect(const QRectF& rect) override { return {rect.topLeft() / kScale, rect.size() / kScale}; }
    double MM2PixLength(const double& length) override { return length * kScale; }
    double Pix2MMLength(const double& length) override { return length / kScale; }

private:
    static constexpr double kScale = 4;
};

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const ShapeListOwner document = NewShapeList();
    auto* tag = new CShapeVector;
    tag->SetShapeRect({0, 0, 20, 10});
    auto* sheet = new CShapeArray;
    sheet->GetShapeList()->AddTail(tag);
    sheet->SetArrayInfo(1, 2, 5, 5, 0, 0);
    document->AddTail(sheet);

    ViewRuler ruler;
    sheet->ChangeMM2Pix(&ruler); // an array converts its cells; its members are converted by the host
    const QRectF cell = sheet->GetRect(1);
    QTextStream(stdout) << "theme " << CUiPermissionsManager::GetInstance()->GetThemeName() << ", second cell at "
                        << cell.left() << " pixels\n";
    ILog_WriteLogF(ELOG_NOTE, "%u shape", document->GetCount());
    return cell.left() == 100 ? 0 : 1; // (20 + 5) mm at 4 pixels
}
