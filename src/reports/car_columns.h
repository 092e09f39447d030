#pragma once
// The columns of Car Details and Car/Driver Picks, read from a row of cars. Only Car Details
// knows the group column (40): Car/Driver Picks is grouped already.
#include "reports/report_page.h"
#include "store/connection.h"

#include <QString>
#include <cstdint>
#include <optional>

// What the operator is told when a launched report finds no cars or drivers to list.
inline QString noCarsMessage()
{
    return QStringLiteral("This league has no cars or drivers to report.");
}

enum class CarColumns { WithGroup, WithoutGroup };

// The heading of a car column; nullopt for a number the report does not know.
std::optional<QString> carHeading(int16_t column, CarColumns known);
// The cell of a car column for the current row.
std::optional<cReportRun::Cell> carCell(const IDatabase& rows, int16_t column, CarColumns known);
