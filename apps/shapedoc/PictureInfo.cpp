#include "PictureInfo.h"

#include "Escaped.h"
#include "Messages.h"
#include "picture/PictureFacts.h"

#include <QJsonObject>

#include <cstdlib>

using namespace shapedocument;

namespace {

QString Pair(QSizeF size, int decimals)
{
    return QString("%1 x %2").arg(size.width(), 0, 'f', decimals).arg(size.height(), 0, 'f', decimals);
}

QJsonObject PairJson(QSizeF size)
{
    return {{"x", size.width()}, {"y", size.height()}};
}

} // namespace

PictureLimits LimitsOfPictures(bool large)
{
    return {large, [](const QString& file, const QString& reason) {
                PrintError(file + ": " + reason + "; --large waits for it");
                std::_Exit(kFailed); // No output has been begun.
            }};
}

void WarnOfComplaints(const QString& file, int complaints)
{
    if (complaints > 0)
        Warn(file + ": the picture may be damaged: its decoder complained, or its file ends early");
}

QString PictureText(const PictureFacts& facts)
{
    QString text = QString("%1 pixels, %2 mm").arg(Pair(facts.pixels, 0), Pair(facts.size, 3));
    if (facts.name.isEmpty())
        return text;
    text += "; " + Escaped(facts.name);
    if (facts.notDecoded)
        return text + QString(": %1 pixels, too large to be decoded here").arg(Pair(*facts.notDecoded, 0));
    if (!facts.file)
        return text + " is not there or of another kind";
    text +=
        QString(": %1 pixels, %2 columns padded, %3, %4 dpi used")
            .arg(Pair(facts.file->pixels, 0))
            .arg(facts.file->padding)
            .arg(facts.file->dpi ? Pair(*facts.file->dpi, 2) + " dpi" : "no resolution", Pair(facts.file->dpiUsed, 0));
    if (const auto excess = facts.Excess())
        text +=
            QString(", %1, %2 mm larger than it says").arg(excess->width(), 0, 'f', 3).arg(excess->height(), 0, 'f', 3);
    return text;
}

QJsonObject PictureJson(const PictureFacts& facts)
{
    QJsonObject json{{"pixels", PairJson(facts.pixels)}, {"size", PairJson(facts.size)}, {"file", facts.name}};
    if (facts.file) {
        json["filePixels"] = PairJson(facts.file->pixels);
        json["fileDpi"] = facts.file->dpi ? QJsonValue(PairJson(*facts.file->dpi)) : QJsonValue();
        json["dpiUsed"] = PairJson(facts.file->dpiUsed);
        json["padding"] = facts.file->padding;
    }
    if (facts.notDecoded)
        json["filePixels"] = PairJson(*facts.notDecoded);
    if (const auto excess = facts.Excess())
        json["excess"] = PairJson(*excess);
    return json;
}
