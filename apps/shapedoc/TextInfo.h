/// A text's parameters as info shows them.
#pragma once

#include <QJsonObject>
#include <QString>

class CShapeText;

QJsonObject TextJson(CShapeText& text);

/// In one line, control characters made visible.
QString TextLine(CShapeText& text);
