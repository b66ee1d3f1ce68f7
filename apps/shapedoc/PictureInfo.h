/// What is said of pictures.
#pragma once

#include "picture/PictureFacts.h"

#include <QJsonObject>

/// Limits whose end is told, and ends the program: decoders cannot be stopped otherwise.
shapedocument::PictureLimits LimitsOfPictures(bool large);

void WarnOfComplaints(const QString& file, int complaints);

/// One line, for instance "256 x 254 pixels, 25.600 x 25.400 mm; …".
QString PictureText(const shapedocument::PictureFacts& facts);
QJsonObject PictureJson(const shapedocument::PictureFacts& facts);
