#pragma once
#include <QString>
#include <cstdint>

// Race Results: a race's real finishing order, which belongs to no league. A race without
// results writes no file, says nothing and gives an empty name.
QString raceResultsReport(int16_t raceNmbr, bool launch);
