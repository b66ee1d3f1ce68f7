/// Options for the places of a document's drawings.
#pragma once

#include "CommandLine.h"

#include <QRectF>
#include <QString>

#include <memory>

class CShape;

struct PlaceOptions
{
    std::vector<std::string> at;
    std::optional<double> gap;
    std::string grid;

    bool IsGiven() const { return !at.empty() || gap || !grid.empty(); }
};

void AddPlaceOptions(CommandArguments& command, PlaceOptions& options, const CommandOption& folder);

/// The options as numbers.
struct Places
{
    std::vector<QPointF> at; ///< mm: none, one for all, or one for each
    double gap = 5;          ///< mm
    size_t columns = 0;      ///< of the table of drawings; 0: no table, drawings stay where their pages have them
};

/// Throws UsageError if the options contradict each other or do not suit the number of drawings.
Places PlacesOf(const PlaceOptions& options, size_t drawings);

/// What was read of one file.
struct ReadShapes
{
    QString file;
    std::vector<std::unique_ptr<CShape>> shapes;

    QRectF Rect() const;
};

/// Moves the drawings to their places. Warns of those that overlap. Throws Failure if one would be out of reach.
void MoveToPlaces(const std::vector<ReadShapes>& drawings, const Places& places);
