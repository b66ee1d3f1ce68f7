/// A text's parameters as info shows them.
#pragma once

#include "document/ShapeFacts.h"

#include <QJsonObject>

QJsonObject TextJson(const shapedocument::TextFacts& text);

/// In one line, control characters made visible.
QString TextLine(const shapedocument::TextFacts& text);
