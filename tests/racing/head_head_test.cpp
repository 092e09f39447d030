#include "race_screen.h"
#include "racing/head_head.h"

namespace {

// "team1-team2" of the stored pairs of a league in a race, in key order.
QString pairs(TempApp& app, int league, int race)
{
    return app.scalar(u"SELECT group_concat(p, ' ') FROM (SELECT team_nmbr1 || '-' || team_nmbr2 AS p FROM race_head_head "
                      u"WHERE league_nmbr = %1 AND race_nmbr = %2 ORDER BY team_nmbr1, team_nmbr2)"_s.arg(league).arg(race));
}

class HeadHead : public RaceScreen {
protected:
    void SetUp() override
    {
        const int16_t method = season.method({10, 8});
        leagueA = season.league(method);
        leagueB = season.league(method);
        for (int i = 0; i < 3; ++i)
            teams << season.team(leagueA);
        season.member(leagueB, teams[0]);
        raceNmbr = season.race(u"2002-02-17"_s);
        otherRace = season.race(u"2002-02-24"_s);
    }
    void store(int league, int raceNumber, int team1, int team2)
    {
        Season::run(u"INSERT INTO race_head_head VALUES (%1, %2, %3, %4)"_s.arg(raceNumber).arg(league).arg(team1).arg(team2));
    }
    // The screen under test was made with the setting off, as the program makes it; a screen
    // made with it on has the tab, and the one under test gets it switched on the same way.
    void openTab()
    {
        EXPECT_FALSE(get<QTabBar>(u"SSTab1"_s)->isTabEnabled(2));   // off unless the setting switches it on
        frmRace::setHeadToHeadTabEnabled(true);
        frmRace switchedOn;
        frmRace::setHeadToHeadTabEnabled(false);
        EXPECT_TRUE(switchedOn.findChild<QTabBar*>(u"SSTab1"_s)->isTabEnabled(2));
        get<QTabBar>(u"SSTab1"_s)->setTabEnabled(2, true);
        open(raceNmbr);
        tab(2);
    }
    void chooseTeam(int row, int column, const QString& name)
    {
        chooseIn(cell(column == 1 ? u"txtTeam1"_s : u"txtTeam2"_s, row), u"cmbTeam"_s, name);
    }

    int16_t leagueA = 0, leagueB = 0, raceNmbr = 0, otherRace = 0;
    QList<int16_t> teams;
};

TEST_F(HeadHead, updateReplacesOneLeaguesPairsOfOneRaceInOneTransaction)
{
    store(leagueA, raceNmbr, 500, 501);
    store(leagueB, raceNmbr, 500, 0);
    store(leagueA, otherRace, 501, 502);

    cRaceHeadHeadCollection list;
    list.Add(raceNmbr, leagueA, 502, 500);
    list.Add(raceNmbr, leagueA, 501, 0);
    EXPECT_TRUE(list.update());
    EXPECT_EQ(pairs(app, leagueA, raceNmbr), u"501-0 502-500"_s);
    EXPECT_EQ(pairs(app, leagueB, raceNmbr), u"500-0"_s);
    EXPECT_EQ(pairs(app, leagueA, otherRace), u"501-502"_s);

    // An insert the engine refuses takes the delete back with it.
    Season::run(u"CREATE TRIGGER refuse BEFORE INSERT ON race_head_head WHEN NEW.team_nmbr1 = 999 "
                u"BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    cRaceHeadHeadCollection failing;
    failing.Add(raceNmbr, leagueA, 500, 501);
    failing.Add(raceNmbr, leagueA, 999, 0);
    EXPECT_FALSE(failing.update());
    EXPECT_EQ(pairs(app, leagueA, raceNmbr), u"501-0 502-500"_s);
    EXPECT_FALSE(app.presenter().boxes().isEmpty());

    // An empty list names no league and changes nothing; given the league, it clears just that one.
    cRaceHeadHeadCollection empty;
    EXPECT_TRUE(empty.update());
    EXPECT_EQ(app.count(u"race_head_head"_s), 4);
    EXPECT_TRUE(empty.update(leagueA, raceNmbr));
    EXPECT_EQ(pairs(app, leagueA, raceNmbr), u"<null>"_s);
    EXPECT_EQ(app.count(u"race_head_head"_s), 2);

    cRaceHeadHead pair;
    EXPECT_EQ(pair.load(raceNmbr, 500, 0), 1);
    EXPECT_TRUE(pair.deleteRow());
    EXPECT_EQ(pairs(app, leagueB, raceNmbr), u"<null>"_s);
}

TEST_F(HeadHead, theTabStoresTeamsAndByesButNoRowOfTwoByes)
{
    store(leagueA, raceNmbr, 501, 0);
    openTab();
    auto* leagues = get<QComboBox>(u"cmbLeague"_s);
    EXPECT_EQ(leagues->count(), 2);
    EXPECT_EQ(leagues->currentText(), u"League 500"_s);
    EXPECT_EQ(cell(u"txtTeam1"_s, 0)->text(), u"Team 501"_s);
    EXPECT_EQ(cell(u"txtTeam2"_s, 0)->text(), u"BYE"_s);

    chooseTeam(0, 2, u"Team 500"_s);
    enter();   // a new row of two byes
    ASSERT_EQ(form.findChildren<QLineEdit*>(u"txtTeam1"_s).size(), 2);
    EXPECT_EQ(cell(u"txtTeam2"_s, 1)->text(), u"BYE"_s);
    closePopup();
    EXPECT_EQ(focusName(), u"cmbTeam"_s);
    EXPECT_EQ(get<QComboBox>(u"cmbTeam"_s)->geometry(), cell(u"txtTeam1"_s, 1)->geometry());
    enter();
    chooseTeam(2, 1, u"Team 502"_s);
    enter();
    EXPECT_TRUE(get<QPushButton>(u"cmdApply"_s)->isEnabled());

    tab(1);   // leaving the tab saves the pairs
    EXPECT_EQ(pairs(app, leagueA, raceNmbr), u"501-500 502-0"_s);
    EXPECT_FALSE(get<QPushButton>(u"cmdApply"_s)->isEnabled());

    // The pairs stay when the race's results go.
    app.presenter().queueAnswer(Answer::Ok);
    get<QPushButton>(u"cmdClearResults"_s)->click();
    EXPECT_EQ(app.count(u"race_head_head"_s), 2);
}

TEST_F(HeadHead, choosingAnotherLeagueSavesTheShownPairsUnderTheirOwnLeague)
{
    openTab();
    chooseTeam(0, 1, u"Team 502"_s);
    leaveTo(cell(u"txtTeam1"_s, 0));
    choose(u"cmbLeague"_s, leagueB);
    EXPECT_EQ(pairs(app, leagueA, raceNmbr), u"502-0"_s);
    EXPECT_EQ(pairs(app, leagueB, raceNmbr), u"<null>"_s);
    EXPECT_EQ(get<QComboBox>(u"cmbTeam"_s)->count(), 2);   // the bye and the league's one team
    EXPECT_EQ(cell(u"txtTeam1"_s, 0)->text(), u"BYE"_s);

    // Back in the first league, every row a bye: saved, that league's pairs of the race are gone.
    choose(u"cmbLeague"_s, leagueA);
    EXPECT_EQ(cell(u"txtTeam1"_s, 0)->text(), u"Team 502"_s);
    chooseTeam(0, 1, u"BYE"_s);
    leaveTo(cell(u"txtTeam2"_s, 0));
    EXPECT_TRUE(form.saveRaceForm());
    EXPECT_EQ(app.count(u"race_head_head"_s), 0);
}

} // namespace
