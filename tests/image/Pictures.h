/// Small pictures as literals, the host's three stores, and image files on disk.
#pragma once

#include "image/ImageStores.h"
#include "image/ShapeImage.h"
#include "support/StreamFile.h"

#include <QByteArray>

#include <opencv2/core.hpp>

#include <string>

namespace test {

/// A grey picture from its rows in hex, rows separated by blanks: "00ff 1020".
inline cv::Mat Grey(const std::string& rows)
{
    cv::Mat picture;
    for (const QByteArray& row : QByteArray::fromStdString(rows).split(' ')) {
        const QByteArray bytes = QByteArray::fromHex(row);
        picture.push_back(cv::Mat(1, static_cast<int>(bytes.size()), CV_8U, const_cast<char*>(bytes.data())).clone());
    }
    return picture;
}

/// The literal of a grey picture; "empty", or "type N" for any other kind.
inline std::string Pixels(const cv::Mat& picture)
{
    if (picture.empty())
        return "empty";
    if (picture.type() != CV_8UC1)
        return "type " + std::to_string(picture.type());
    QByteArrayList rows;
    for (int row = 0; row < picture.rows; ++row)
        rows += QByteArray(picture.ptr<char>(row), picture.cols).toHex();
    return rows.join(' ').toStdString();
}

/// A grey picture of which no two rows and no two columns are alike: what is warped cannot come out the same.
inline cv::Mat Textured(int columns, int rows)
{
    cv::Mat picture(rows, columns, CV_8U);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            picture.at<unsigned char>(row, column) =
                static_cast<unsigned char>((row * 7919 + column * 104729 + row * column * 31) >> 3);
    return picture;
}

/// Stores that the shapes use while it lives.
struct Stores : ImageStores
{
    ImageMgr &image = Working(), &original = Original(), &cache = Cache();
};

/// Makes the picture the shape's working picture, covering the rectangle.
inline void Place(CShapeImage& shape, cv::Mat picture, const QRectF& rect)
{
    shape.SetOrgRect(rect, true);
    shape.SetImage(picture, false);
}

/// The same of a literal, with one unit per pixel at the origin.
inline void Place(CShapeImage& shape, const std::string& rows)
{
    const cv::Mat picture = Grey(rows);
    Place(shape, picture, QRectF(0, 0, picture.cols, picture.rows));
}

/// Opens the bytes as an image file; returns the result of OpenImage.
inline int Open(CShapeImage& shape, const QByteArray& bytes)
{
    StreamFile file;
    file.Fill(bytes);
    return shape.OpenImage(file.File()->fileName().toUtf8().data());
}

} // namespace test
