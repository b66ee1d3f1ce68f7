// A host program in the small: draws, saves, reads back, and asks the reference host for its units and its log.
#include "host/ILog.h"
#include "host/LibraryVersion.h"
#include "host/UiPermissionsManager.h"
#include "list/ShapeList.h"
#include "referencehost/LinearRuler.h"
#include "vector/ShapeVector.h"

#include <QTemporaryFile>
#include <cstring>

int main()
{
    CShapeList* list = CShapeList::New();
    auto* rectangle = new CShapeVector;
    rectangle->SetShapeRect({0, 0, 20, 10});
    list->AddTail(rectangle);

    QTemporaryFile file;
    file.open();
    list->Save(&file);
    list->DeleteAll();
    file.seek(0);
    const int error = list->Read(&file, 14);
    LinearRuler ruler(4.0, {});
    const bool whole = !error && list->GetCount() == 1 && ruler.MM2PixRect(list->GetRect(false)).width() == 80.0 &&
                       list->GetShape(0)->Flatten(0.01).size() == 4 &&
                       CUiPermissionsManager::GetInstance()->GetThemeName() == "Etchwright" &&
                       std::strcmp(ShapeModelVersion(), SHAPEMODEL_VERSION) == 0 &&
                       SHAPEMODEL_VERSION_NUMBER >= SHAPEMODEL_VERSION_AT(1, 0, 0);
    ILog_WriteLogF(1, "read with %d, %u shapes", error, list->GetCount());
    list->DeleteAll();
    CShapeList::Release(list);
    return whole ? 0 : 1;
}
