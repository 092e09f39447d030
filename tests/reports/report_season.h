#pragma once
// A small posted season for the report pages: one league of three teams under a method with every
// bonus, four races (official, official with a did-not-qualify car, unofficial, qualifying), a
// car that did not run, a car dropped and one added mid-season. A second league of another
// series holds one team, so that pages never mix leagues.
#include "racing/season.h"

struct ReportSeason {
    int16_t league = 0;
    int16_t otherLeague = 0;
    QList<int16_t> teams;
    QList<int16_t> races;
    int16_t otherRace = 0;
};

// Builds the season in the open data file and posts each race as its results come in.
ReportSeason buildReportSeason();
