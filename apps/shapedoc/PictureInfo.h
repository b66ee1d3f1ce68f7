/// Facts about pictures as info prints them.
#pragma once

#include "picture/PictureFacts.h"

#include <QJsonObject>

/// Limits that end the program with a message when time is up: decoders cannot be interrupted.
shapedocument::PictureLimits LimitsOfPictures(bool large);

void WarnOfComplaints(const QString& file, int complaints);

/// One line, for instance "256 x 254 pixels, 25.600 x 25.400 mm; …".
QString PictureText(const shapedocument::PictureFacts& facts);
QJsonObject PictureJson(const shapedocument::PictureFacts& facts);
