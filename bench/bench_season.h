#pragma once
// The benchmarks' season: leagues of teams holding 8 of 43 cars under one method with bonuses,
// top points and drops, and races with a full result each. Built straight into the open data file.
#include <QString>

class ConsolePresenter;

inline constexpr int kBenchCars = 43;
inline constexpr int kBenchCarsPerTeam = 8;

// Leagues are numbered from 500, teams from 500 league after league, races from 500 a week apart.
void buildBenchSeason(int leagues, int teamsPerLeague, int races);
// Installs the presenter, makes a data file in the folder and opens it; false with the reason
// printed.
bool openBenchDataFile(const QString& folder, ConsolePresenter& console);
