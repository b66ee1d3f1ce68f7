/// Notes elements, attributes and rules of a drawing that are ignored or left out.
#pragma once

#include "svg/DrawingReport.h"

#include <QXmlStreamReader>

#include <optional>

namespace shapedocument::drawing {

/// Why an element and its content are not copied; none if they are.
std::optional<Departure> LeftOut(QStringView name, bool hasPrefix);

/// Notes an element that is copied although it, or an attribute of it, is not painted.
void NoteElement(QStringView name, const QXmlStreamAttributes& attributes, DrawingReport& report);

/// Notes filters and masks that an attribute applies.
void NoteEffects(const QString& attribute, const QString& value, DrawingReport& report);

/// Notes filters, masks and other files in the rules of a style sheet.
void NoteRules(const QString& rules, DrawingReport& report);

/// Notes entities in other files, which are not read: they are replaced by nothing.
void NoteEntities(const QXmlStreamEntityDeclarations& entities, DrawingReport& report);

} // namespace shapedocument::drawing
