/// A document with every kind of shape, and its file.
#pragma once

#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "image/Pictures.h"
#include "support/Lists.h"
#include "text/MakeText.h"

namespace test {

inline CShape* NewText()
{
    SText text = MakeText("one\ntwo");
    text.bMirrorX = 1;
    return TextOf(text).release();
}

template <class Image>
Image* NewImage()
{
    auto* shape = new Image;
    Place(*shape, Textured(5, 3), QRectF(1, 2, 50, 30)); // 5 columns become a multiple of 4
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
