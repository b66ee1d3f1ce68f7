/// What a picture may cost, and how its decoder is kept quiet.
#pragma once

#include <QString>

class CShapeImage;

/// Opens a picture file. Unless large, one of more than 256 MiB of pixels, or of more than 30 seconds of decoding, is a
/// failure; the latter ends the program at once, with exit code 1, for a decoder cannot be stopped otherwise.
///
/// The decoders' own lines do not reach standard error: they are counted in one warning.
/// @throw Failure when it cannot be read
void OpenPicture(CShapeImage& picture, const QString& file, bool large);
