#pragma once
// The roster columns that Team Cars shares with Team Trades and Teams per Car/Driver, read from a
// row with car_txt, driver_name, efctv_dt, term_dt, locked_salary, salary and group_nmbr; and the
// team head of Team Cars and Team Trades, whose e-mail and phone lines are columns 38 and 39.
#include "reports/report_page.h"
#include "store/connection.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

// The heading of a roster column; nullopt for a number that has no cell (38 and 39 among them).
std::optional<QString> rosterHeading(int16_t column);
// The cell of a roster column for the current row.
std::optional<cReportRun::Cell> rosterCell(const IDatabase& rows, int16_t column);
// A money value as currency text; a Null is the empty text.
QString currencyText(const cVariant& value);
// The name of the row's group by its group_nmbr; empty for a car without one.
QString groupNameOf(const IDatabase& rows);
// The text of a team's head: its name, or its owner when the name is empty, then a mailto line
// for column 38 and a phone line for column 39, in the order of the columns, each only when
// the team has one.
QString rosterTeamHead(const IDatabase& rows, const std::vector<int16_t>& columns);
