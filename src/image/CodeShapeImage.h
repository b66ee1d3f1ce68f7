/// CCodeShapeImage, a picture of a bar or matrix code with the text that it encodes.
#pragma once

#include "image/ShapeImage.h"

#include <QString>

/// An image with the kind and the text of the code that it shows. The host draws the code and sets the picture with
/// SetImage; this class keeps, copies and saves kind and text.
class SHAPEMODEL_EXPORT CCodeShapeImage : public CShapeImage
{
public:
    /// Sets the property to PROPERTY_CODE.
    CCodeShapeImage();
    /// As CShapeImage's.
    CCodeShapeImage(const CCodeShapeImage&);
    /// As CShapeImage's.
    CCodeShapeImage& operator=(const CCodeShapeImage&);
    ~CCodeShapeImage() override;

    ESHAPE_TYPE GetShapeType() override;

    /// Sets the kind of code, which only the host interprets.
    void SetCodeType(bool bType);
    /// The kind of code; true in a new shape.
    bool GetCodeType();
    /// Sets the text that the picture encodes; the picture stays.
    void SetCodeText(QString text);
    /// The text that the picture encodes.
    QString GetCodeText();

    /// False, and nothing changed, for null and for shapes that are no code images.
    bool Copy(CShape* src) override;
    CShape* Clone() override;

    /// The image's record, then the kind (one byte) and the text (UTF-8, up to its first zero character).
    /// Cost: the image's, and O(text).
    int Save(QFile* file) override;
    /// A record that ends before them leaves kind and text at their defaults. Cost: the image's, and O(text).
    int Read(QFile* file, int version) override;

private:
    bool m_bCodeType = true;
    QString m_strCodeText;
};
