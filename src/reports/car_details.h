#pragma once
#include <QString>
#include <cstdint>

// Car Details: every car and driver of the league's racing series, in the order of their
// numbers, in one table. Without any, the file stays empty and the name is empty.
QString carDetailsReport(int16_t leagueNmbr, bool launch);
