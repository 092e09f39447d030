#pragma once
#include <QString>
#include <cstdint>

// The report package: the reports the operator chose for the package (its columns), each written
// with launch off, behind a frames page whose navigation frame links to them. Returns the name of
// the frames page.
QString reportPackage(int16_t leagueNmbr, int16_t raceNmbr, bool launch);
