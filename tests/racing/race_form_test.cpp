#include "race_screen.h"
#include "racing/posting.h"

#include <functional>

namespace {

class RaceForm : public RaceScreen {
protected:
    // A league of race type 1 by cars, one team holding three cars from January on.
    void league()
    {
        const int16_t method = season.method({10, 8, 6});
        team = season.team(season.league(method));
        for (const QString& text : {u"24"_s, u"3"_s, u"88"_s}) {
            cars << season.car(text);
            season.hold(team, cars.last(), u"2002-01-01"_s);
        }
    }
    // The league's race with the three cars stored in places 1-3, the screen open on its results.
    int16_t openStoredRace()
    {
        if (cars.isEmpty())
            league();
        const int16_t number = raceNmbr ? raceNmbr : season.race(u"2002-02-17"_s);
        raceNmbr = number;
        Season::run(u"DELETE FROM results"_s);
        for (int i = 0; i < cars.size(); ++i)
            season.result(number, cars[i], i + 1);
        race = cRaces();
        open(number);
        clickTab(1);
        return number;
    }
    QString storedResults()
    {
        return app.scalar(u"SELECT group_concat(car_nmbr || ':' || place, ' ') FROM "
                                  u"(SELECT * FROM results ORDER BY car_nmbr)"_s);
    }
    int16_t team = 0;
    int16_t raceNmbr = 0;
    QList<int16_t> cars;
};

TEST_F(RaceForm, aNewRaceIsEnteredRowByRowSavedAndPosted)
{
    league();
    open();
    retype(field(u"txtRaceName"_s), u"Dayport 500"_s);
    EXPECT_EQ(form.windowTitle(), u"Race - Dayport 500"_s);
    retype(field(u"txtTrackName"_s), u"Dayport"_s);
    retype(field(u"txtRaceDate"_s), u"2/17/02"_s);
    leaveTo(field(u"txtTrackName"_s));
    EXPECT_EQ(field(u"txtRaceDate"_s)->text(), u"2002-02-17"_s);
    choose(u"cmbRaceType"_s, 1);
    choose(u"cmbCarType"_s, 1);

    tab(1);   // leaving the tab saves the race
    EXPECT_EQ(race.raceNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT race_name || '/' || race_dt FROM races"_s), u"Dayport 500/2002-02-17"_s);
    EXPECT_FALSE(get<QPushButton>(u"cmdApply"_s)->isEnabled());
    EXPECT_EQ(cell(u"txtPlace"_s, 0)->text(), u"1"_s);

    chooseCar(0, u"24"_s);
    EXPECT_TRUE(get<QLabel>(u"lblhitEnter"_s)->isVisible());
    enter();   // a new row with the next place, the chooser open on it
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(cell(u"txtPlace"_s, 1)->text(), u"2"_s);
    EXPECT_EQ(focusName(), u"cmbCarNmbr"_s);
    chooseCar(1, u"3"_s);
    enter();
    chooseCar(2, u"88"_s);
    retype(cell(u"txtLapsLed"_s, 2), u"12"_s);
    form.findChildren<QCheckBox*>(u"chkFastQual"_s).at(1)->click();

    get<QPushButton>(u"cmdPostResults"_s)->click();
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(lastBox().text);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(car_nmbr || ':' || place || ':' || laps_led || ':' || fast_qual, ' ') "
                         u"FROM (SELECT * FROM results WHERE race_nmbr = 500 ORDER BY place)"_s),
              u"500:1:0:0 501:2:0:1 502:3:12:0"_s);
    EXPECT_EQ(app.count(u"team_results"_s, u"WHERE race_nmbr = 500 AND current_status = 1"_s), 3);
    EXPECT_EQ(Season::summary(500, 500, team), u"24@1"_s);
    EXPECT_GT(app.presenter().progressTicks(), 0);
    EXPECT_FALSE(get<QProgressBar>(u"pbStatus"_s)->isVisible());
}

TEST_F(RaceForm, twoRowsWithOnePlaceAreRefusedWithTheirBoxAndTheTabStays)
{
    league();
    open(season.race(u"2002-02-17"_s));
    tab(1);
    chooseCar(0, u"24"_s);
    enter();
    chooseCar(1, u"3"_s);
    retype(cell(u"txtPlace"_s, 0), u"5"_s);
    retype(cell(u"txtPlace"_s, 1), u"5"_s);
    tab(0);
    EXPECT_EQ(lastBox().text, u" Place 5 exists more than once.\n"_s);
    EXPECT_EQ(lastBox().title, u"Errors while save results for Race 500"_s);
    EXPECT_EQ(lastBox().icon, Icon::None);
    EXPECT_EQ(currentTab(), 1);
    EXPECT_EQ(app.count(u"results"_s), 0);

    // Place 0 may stand twice; a row with a place and no car is left out without a word.
    retype(cell(u"txtPlace"_s, 0), u"0"_s);
    retype(cell(u"txtPlace"_s, 1), u"0"_s);
    enter();
    EXPECT_EQ(rows(), 3);
    retype(cell(u"txtPlace"_s, 2), u"4"_s);
    app.presenter().clear();
    get<QPushButton>(u"cmdApply"_s)->click();
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.scalar(u"SELECT group_concat(place) FROM results"_s), u"0,0"_s);
}

TEST_F(RaceForm, fieldsOfTheGridRefuseWhatIsNoNumberAndACarUsedTwice)
{
    league();
    open(season.race(u"2002-02-17"_s));
    tab(1);
    struct Case {
        QString column;
        QString typed;
        bool refused;
        QString kept;
    };
    const Case cases[] = {
        {u"txtPlace"_s, u"abc"_s, true, {}},      {u"txtPlace"_s, u"-1"_s, true, {}},
        {u"txtPlace"_s, u""_s, false, u"0"_s},    {u"txtPlace"_s, u"7"_s, false, u"7"_s},
        {u"txtLapsLed"_s, u"-3"_s, false, u"-3"_s}, {u"txtQualified"_s, u"x1"_s, true, {}},
        {u"txtAdjustment"_s, u"-25"_s, false, u"-25"_s}, {u"txtAdjustment"_s, u""_s, false, u"0"_s},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(qPrintable(c.column + u" "_s + c.typed));
        app.presenter().clear();
        retype(cell(c.column, 0), c.typed);
        leaveTo(cell(u"txtQualified"_s, 0) == cell(c.column, 0) ? cell(u"txtPlace"_s, 0) : cell(u"txtQualified"_s, 0));
        if (c.refused) {
            EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Invalid Entry"_s});
            EXPECT_EQ(focusName(), c.column);
            EXPECT_EQ(cell(c.column, 0)->text(), QString());
        } else {
            EXPECT_TRUE(app.presenter().boxes().isEmpty());
            EXPECT_EQ(cell(c.column, 0)->text(), c.kept);
        }
    }

    chooseCar(0, u"24"_s);
    enter();
    chooseCar(1, u"24"_s);
    app.presenter().clear();
    leaveTo(cell(u"txtPlace"_s, 0));
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Car 24 has already been used"_s});
    EXPECT_EQ(focusName(), u"cmbCarNmbr"_s);
    EXPECT_EQ(get<QComboBox>(u"cmbCarNmbr"_s)->geometry(), cell(u"txtCarNmbr"_s, 1)->geometry());
}

TEST_F(RaceForm, aNewRaceOnATakenDateIsRefusedWhileAnExistingRaceMayMoveOntoIt)
{
    season.race(u"2002-02-17"_s);
    open(season.race(u"2002-02-24"_s));
    retype(field(u"txtRaceDate"_s), u"2002-02-17"_s);
    // Cancel asks about the unsaved race; Cancel keeps the screen, Yes saves and closes it.
    for (Answer answer : {Answer::Cancel, Answer::Yes}) {
        app.presenter().queueAnswer(answer);
        get<QPushButton>(u"cmdCancel"_s)->click();
        EXPECT_EQ(lastBox().text, u"Do you want to save changes"_s);
        EXPECT_EQ(form.isVisible(), answer == Answer::Cancel);
    }
    EXPECT_EQ(app.count(u"races"_s, u"WHERE race_dt = '2002-02-17'"_s), 2);

    race = cRaces();   // a new race
    open();
    retype(field(u"txtRaceName"_s), u"Rockfield"_s);
    choose(u"cmbRaceType"_s, 1);
    choose(u"cmbCarType"_s, 1);
    for (const auto& [date, message] :
         {std::pair{u""_s, u"Race Date is a required field"_s}, {u"2002-02-30"_s, u"A valid Race Date is a required field"_s},
          {u"2002-02-17"_s, u"A Race already exists for this Date.\nOnly one Race can exist per date per Race Type and "
                            u"Scoring By."_s}}) {
        field(u"txtRaceDate"_s)->setText(date);
        EXPECT_FALSE(form.saveRaceForm());
        EXPECT_EQ(lastBox().text, message);
        EXPECT_EQ(focusName(), u"txtRaceDate"_s);
    }
    EXPECT_EQ(app.count(u"races"_s), 2);
    field(u"txtRaceDate"_s)->setText(u"2002-03-03"_s);
    EXPECT_TRUE(form.saveRaceForm());
    EXPECT_EQ(race.raceNmbr(), 502);

    app.presenter().clear();   // typed and left, a date that is no date keeps the focus
    retype(field(u"txtRaceDate"_s), u"someday"_s);
    leaveTo(field(u"txtTrackName"_s));
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Invalid Entry"_s});
    EXPECT_EQ(focusName(), u"txtRaceDate"_s);
}

TEST_F(RaceForm, clearPostingAndClearResultsAskFirstAndTakeWhatTheySay)
{
    league();
    const int16_t number = season.race(u"2002-02-17"_s);
    for (int i = 0; i < cars.size(); ++i)
        season.result(number, cars[i], i + 1);
    postResults(Season::raceRecord(number));
    ASSERT_EQ(app.count(u"team_results"_s), 3);
    open(number);
    tab(1);
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(cell(u"txtCarNmbr"_s, 2)->text(), u"88"_s);

    app.presenter().queueAnswer(Answer::Cancel);
    get<QPushButton>(u"cmdClearPosting"_s)->click();
    EXPECT_EQ(lastBox().text, u"Are you sure you want to delete the posting for Race 500?"_s);
    EXPECT_EQ(lastBox().buttons, Buttons::OkCancel);
    EXPECT_EQ(app.count(u"team_results"_s), 3);
    app.presenter().queueAnswer(Answer::Ok);
    get<QPushButton>(u"cmdClearPosting"_s)->click();
    EXPECT_EQ(app.count(u"team_results"_s) + app.count(u"team_results_summary"_s), 0);
    EXPECT_EQ(app.count(u"results"_s), 3);

    app.presenter().queueAnswer(Answer::Ok);
    get<QPushButton>(u"cmdClearResults"_s)->click();
    EXPECT_EQ(lastBox().text, u"Are you sure you want to delete results for Race 500?"_s);
    EXPECT_EQ(app.count(u"results"_s), 0);
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(cell(u"txtPlace"_s, 0)->text() + u'|' + cell(u"txtCarNmbr"_s, 0)->text(), u"0|"_s);
}

TEST_F(RaceForm, withResultsTheSeriesAndKindStayAndTheEighthRowEnablesTheScrollBar)
{
    const int16_t number = season.race(u"2002-02-17"_s);
    for (int i = 0; i < 9; ++i)
        season.result(number, season.car(QString::number(i + 1)), i + 1);
    open(number);
    choose(u"cmbRaceType"_s, 6);
    EXPECT_EQ(lastBox().text, u"Can not change Race Type while Results exist for the Race"_s);
    choose(u"cmbCarType"_s, 2);
    EXPECT_EQ(lastBox().text, u"Can not change Scoring By while Results exist for the Race"_s);
    retype(field(u"txtTrackName"_s), u"Ashford"_s);
    EXPECT_TRUE(form.saveRaceForm());
    EXPECT_EQ(app.scalar(u"SELECT race_type_nmbr || '/' || car_type_nmbr || '/' || track_name FROM races"_s),
              u"1/1/Ashford"_s);

    tab(1);
    auto* bar = get<QScrollBar>(u"VScroll1"_s);
    EXPECT_EQ(rows(), 9);
    EXPECT_TRUE(bar->isEnabled());
    EXPECT_FALSE(cell(u"txtPlace"_s, 7)->isVisible());
    chooseCar(6, u"7"_s);
    enter();   // on to the eighth row, which scrolls into view
    EXPECT_EQ(bar->value(), 1);
    EXPECT_TRUE(cell(u"txtPlace"_s, 7)->isVisible());
    EXPECT_FALSE(cell(u"txtPlace"_s, 0)->isVisible());
}

// A place typed and not left is checked by every way of saving: cleared it is stored as 0 with
// its car, refused it stops the save and keeps the focus.
TEST_F(RaceForm, aPlaceTypedWithoutLeavingTheFieldIsCheckedByEveryWayOfSaving)
{
    const auto click = [this](const QString& button) {
        return [this, button] { QTest::mouseClick(get<QPushButton>(button), Qt::LeftButton); };
    };
    struct Path {
        const char* name;
        QString typed;
        std::function<void()> save;
    };
    // (Alt+O also stands for Clear P&osting on this tab, so there it only moves the focus.)
    const Path paths[] = {
        {"tab bar", {}, [this] { clickTab(0); }},
        {"Alt+A", {}, [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::AltModifier); }},
        {"Alt+P", {}, [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::AltModifier); }},
        {"Cancel, Yes", {}, [this, click] {
             app.presenter().queueAnswer(Answer::Yes);
             click(u"cmdCancel"_s)();
         }},
        {"Apply", u"-1"_s, click(u"cmdApply"_s)},
        {"OK", u"-1"_s, click(u"cmdOK"_s)},
        {"Post Results", u"-1"_s, click(u"cmdPostResults"_s)},
    };
    for (const Path& path : paths) {
        SCOPED_TRACE(path.name);
        openStoredRace();
        clickAndRetype(cell(u"txtPlace"_s, 1), path.typed);
        app.presenter().clear();
        auto* apply = get<QPushButton>(u"cmdApply"_s);
        ASSERT_TRUE(apply->isEnabled());
        path.save();
        settle();
        if (path.typed.isEmpty()) {
            // A shortcut clicks its button a moment later; the save disables Apply.
            EXPECT_TRUE(QTest::qWaitFor([apply] { return !apply->isEnabled(); }));
            EXPECT_EQ(storedResults(), u"500:1 501:0 502:3"_s);
            EXPECT_TRUE(app.presenter().boxes().isEmpty() || lastBox().text == u"Do you want to save changes"_s)
                << qPrintable(lastBox().text);
        } else {
            EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Invalid Entry"_s});
            EXPECT_TRUE(form.isVisible());
            EXPECT_EQ(form.focusWidget(), cell(u"txtPlace"_s, 1));
            EXPECT_EQ(storedResults(), u"500:1 501:2 502:3"_s);
            EXPECT_EQ(app.count(u"team_results"_s), 0);
        }
        form.hide();
    }
}

TEST_F(RaceForm, aCarRetypedOverARowsCarReplacesItAndTextMatchingNoCarLeavesTheRowWithoutOne)
{
    league();
    season.car(u"8"_s);           // a car whose number begins another's, in no row
    openStoredRace();             // 24, 3 and 88 in places 1-3
    auto* chooser = get<QComboBox>(u"cmbCarNmbr"_s);
    auto retype = [&](int row, const QString& typed) {
        QTest::mouseClick(cell(u"txtCarNmbr"_s, row), Qt::LeftButton);
        ASSERT_TRUE(chooser->isVisible());
        QTest::keyClicks(chooser, typed);
        QTest::keyClick(chooser, Qt::Key_Tab);
        settle();
    };
    retype(0, u"8"_s);
    retype(2, u"24"_s);
    EXPECT_EQ(cell(u"txtCarNmbr"_s, 0)->text() + u'|' + cell(u"txtCarNmbr"_s, 2)->text(), u"8|24"_s);
    QTest::mouseClick(get<QPushButton>(u"cmdApply"_s), Qt::LeftButton);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(lastBox().text);
    EXPECT_EQ(storedResults(), u"500:3 501:2 503:1"_s);

    // "2" begins car 24's number but is no car: the row is left without one, and the box says so.
    for (const QString& typed : {u"2"_s, u"99"_s}) {
        SCOPED_TRACE(qPrintable(typed));
        app.presenter().clear();
        retype(1, typed);
        EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Car "_s + typed + u" was not found for this Race Type and Scoring By"_s});
        EXPECT_EQ(lastBox().icon, Icon::Critical);
        EXPECT_EQ(cell(u"txtCarNmbr"_s, 1)->text(), QString());
        EXPECT_EQ(focusName(), u"cmbCarNmbr"_s);
        EXPECT_EQ(chooser->geometry(), cell(u"txtCarNmbr"_s, 1)->geometry());
    }
    // Saved as it stands, the row goes without a car.
    app.presenter().clear();
    QTest::keyClick(chooser, Qt::Key_Tab);
    QTest::mouseClick(get<QPushButton>(u"cmdApply"_s), Qt::LeftButton);
    EXPECT_TRUE(app.presenter().boxes().isEmpty()) << qPrintable(lastBox().text);
    EXPECT_EQ(storedResults(), u"500:3 503:1"_s);
}

} // namespace
