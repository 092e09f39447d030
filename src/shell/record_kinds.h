#pragma once
// The five kinds of record that each have a list pane, a node in the main tree, a toolbar
// button and a pop-up menu, with the names and numbers that belong to each.
#include <QString>
#include <cstdint>

enum class RecordKind { League, Team, Car, Race, Scoring };

struct RecordKindInfo {
    RecordKind kind;
    const char16_t* rootTag;   // tag of its node in the tree
    const char16_t* toolKey;   // key of its toolbar button
    const char16_t* toolTip;
    const char16_t* image;     // picture of its node and button
    const char16_t* menu;      // name of its pop-up menu
    const char16_t* caption;   // caption of its pop-up menu
    const char16_t* noun;      // as the pop-up items name the record
    int32_t helpContext;       // help context of the pop-up's Help item
};

inline constexpr RecordKindInfo kRecordKinds[] = {
    {RecordKind::League, u"LEAGUES ROOT", u"tbLeagues", u"New League", u"imgLeagues", u"mnuLeague", u"League",
     u"League", 500},
    {RecordKind::Team, u"TEAMS ROOT", u"tbTeams", u"New Team", u"imgTeams", u"mnuTeam", u"Team", u"Team", 400},
    {RecordKind::Car, u"CARS ROOT", u"tbCars", u"New Car/Driver", u"imgCars", u"mnuCar", u"Car", u"Car/Driver",
     300},
    {RecordKind::Race, u"RACES ROOT", u"tbRaces", u"New Race", u"imgRaces", u"mnuRace", u"Race", u"Race", 700},
    {RecordKind::Scoring, u"SCORING ROOT", u"tbScoring", u"New Scoring", u"imgScoring", u"mnuScoring", u"Scoring",
     u"Scoring", 200},
};

constexpr const RecordKindInfo& recordKindInfo(RecordKind kind)
{
    return kRecordKinds[static_cast<int>(kind)];
}

// The texts of the tables above as strings; a missing one is empty.
inline QString kindText(const char16_t* text)
{
    return text ? QString::fromUtf16(text) : QString();
}
