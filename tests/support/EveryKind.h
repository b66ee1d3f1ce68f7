/// A document with every kind of shape, and its file.
#pragma once

#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "image/Pictures.h"
#include "support/Lists.h"
#include "text/ShapeText.h"

#include <cstring>

namespace test {

inline CShape* NewText()
{
    auto* shape = new CShapeText;
    SText text;
    std::strcpy(text.pText, "one\ntwo");
    std::strcpy(text.font.szFamily, "Liberation Sans");
    text.bMirrorX = 1;
    shape->SetText(text);
    return shape;
}

template <class Image>
Image* NewImage()
{
    auto* shape = new Image;
    cv::Mat picture = Textured(5, 3); // 5 columns become a multiple of 4
    shape->SetOrgRect(QRectF(1, 2, 50, 30), true);
    shape->SetPoints(QRectF(1, 2, 50, 30));
    shape->SetImage(picture, false);
    shape->Rotate(20, QPointF(3, 4), Qt::ZAxis);
    return shape;
}

/// Every vector type, text, picture and code, array and group, one inside the other.
inline Document EveryKind()
{
    Document list(CShapeList::New());
    for (int type = EVECTOR_RECT; type <= EVECTOR_MIXED; ++type) {
        auto* shape = new CShapeVector;
        shape->SetShapeEllipse(QRectF(10 * type, 5, 8, 6));
        shape->SetVectorType(static_cast<EVECTOR_TYPE>(type));
        shape->SetExtractContour(type % 2);
        list->AddTail(shape);
    }
    auto* code = NewImage<CCodeShapeImage>();
    code->SetCodeText("code");
    auto* array = MakeGroup<CShapeArray>({NewRect(QRectF(0, 0, 4, 3)), NewText()}).release();
    array->SetArrayInfo(2, 2, 1, 1, 0.5, 0);
    array->SetInvalid(3);
    for (CShape* shape : std::initializer_list<CShape*>{NewText(), NewImage<CShapeImage>(), code,
                                                        MakeGroup({NewImage<CShapeImage>(), array}).release()})
        list->AddTail(shape);
    return list;
}

} // namespace test
