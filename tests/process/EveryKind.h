/// A document with every kind of shape, and its file.
#pragma once

#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "image/ImageStores.h"
#include "support/Lists.h"
#include "text/ShapeText.h"

#include <QFile>

#include <cstring>

namespace test {

inline constexpr int kVersion = 14; ///< of the document

inline void AddVectors(CShapeList& list)
{
    for (int type = EVECTOR_RECT; type <= EVECTOR_MIXED; ++type) {
        auto* shape = new CShapeVector;
        shape->SetShapeEllipse(QRectF(10 * type, 5, 8, 6));
        shape->SetVectorType(static_cast<EVECTOR_TYPE>(type));
        shape->SetExtractContour(type % 2);
        list.AddTail(shape);
    }
}

inline CShape* NewText()
{
    auto* shape = new CShapeText;
    SText text;
    std::strcpy(text.pText, "one\ntwo");
    text.bMirrorX = 1;
    shape->SetText(text);
    return shape;
}

template <class Image>
Image* NewImage(int brightness)
{
    auto* shape = new Image;
    cv::Mat picture(3, 5, CV_8U, cv::Scalar(brightness)); // 5 columns become a multiple of 4
    shape->SetOrgRect(QRectF(1, 2, 50, 30), true);
    shape->SetPoints(QRectF(1, 2, 50, 30));
    shape->SetImage(picture, false);
    shape->Rotate(20, QPointF(3, 4), Qt::ZAxis);
    return shape;
}

inline CShape* NewArray()
{
    auto* array = new CShapeArray;
    array->GetShapeList()->AddTail(NewRect(QRectF(0, 0, 4, 3)));
    array->GetShapeList()->AddTail(NewText());
    array->SetArrayInfo(2, 2, 1, 1, 0.5, 0);
    array->SetInvalid(3);
    return array;
}

/// Every vector type, text, picture and code, array and group, one inside the other.
inline Document EveryKind()
{
    Document list(CShapeList::New());
    AddVectors(*list);
    list->AddTail(NewText());
    list->AddTail(NewImage<CShapeImage>(70));
    auto* code = NewImage<CCodeShapeImage>(90);
    code->SetCodeText("code");
    list->AddTail(code);
    auto* group = new CShapeGroup;
    group->GetShapeList()->AddTail(NewImage<CShapeImage>(70));
    group->GetShapeList()->AddTail(NewArray());
    list->AddTail(group);
    return list;
}

/// What the file holds.
inline QByteArray Content(const QString& name)
{
    QFile file(name);
    (void)file.open(QIODevice::ReadOnly);
    return file.readAll();
}

inline void Save(CShapeList& list, const QString& name)
{
    QFile file(name);
    (void)file.open(QIODevice::WriteOnly);
    list.Save(&file);
}

} // namespace test
