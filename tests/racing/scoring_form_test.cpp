#include "league/league_fixtures.h"
#include "racing/scoring_form.h"
#include "racing/scoring_method.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ScoringScreen : public ::testing::Test {
protected:
    // Method 500 "Mine": places 1-3 pay 10, 8, 5 (place 3 also 1 for qualifying); one top row.
    void storeMine()
    {
        seed::run(u"INSERT INTO scoring_type VALUES (500, 'Mine', 0, 0, 0)"_s);
        seed::run(u"INSERT INTO scoring_points VALUES (500, 1, 10, 0), (500, 2, 8, 0), (500, 3, 5, 1)"_s);
        seed::run(u"INSERT INTO scoring_top_points (scoring_type_nmbr, nmbr_cars, points, top_nmbr) "
                  u"VALUES (500, 1, 5, 3)"_s);
    }
    void open(int number = 0)
    {
        if (number) {
            ASSERT_EQ(method.load(static_cast<int16_t>(number)), 1);
        }
        form.fill(method);
        showActive(form);
    }
    QLineEdit* field(const QString& name, int row = 0) { return column(name).value(row); }
    QList<QLineEdit*> column(const QString& name) { return form.findChildren<QLineEdit*>(name); }
    QTabWidget* tabs() { return child<QTabWidget>(form, u"SSTab1"_s); }
    void click(const QString& button) { QTest::mouseClick(child<QPushButton>(form, button), Qt::LeftButton); }
    bool applyEnabled() { return child<QPushButton>(form, u"cmdApply"_s)->isEnabled(); }
    // Types into a field and leaves it with Tab, as the operator does.
    void leave(QLineEdit* edit, const QString& typed)
    {
        retype(edit, typed);
        QTest::keyClick(edit, Qt::Key_Tab);
        QApplication::processEvents();
    }
    void enter(QLineEdit* edit)
    {
        edit->setFocus(Qt::TabFocusReason);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    QString texts(const QString& name)
    {
        QStringList out;
        for (QLineEdit* edit : column(name))
            out << edit->text();
        return out.join(u',');
    }
    QString storedRows(int number = 500)
    {
        return app.scalar(u"SELECT group_concat(place || ':' || points || ':' || qual_points, ' ') FROM "
                          u"(SELECT * FROM scoring_points WHERE scoring_type_nmbr = %1 ORDER BY place)"_s.arg(number));
    }

    TempApp app;
    cScoringType method;
    frmScoring form;
};

TEST_F(ScoringScreen, aBlankNameKeepsTheFirstTabAndANamedNewMethodIsSavedOnLeavingIt)
{
    open();
    tabs()->setCurrentIndex(1);
    expectLastBox(app, u"Name is a required field"_s);
    EXPECT_EQ(tabs()->currentIndex(), 0);

    retype(field(u"txtScoringTypeName"_s), u"Kid's Cup"_s);
    EXPECT_EQ(form.windowTitle(), u"Scoring - Kid's Cup"_s);
    tabs()->setCurrentIndex(1);
    EXPECT_EQ(tabs()->currentIndex(), 1);
    EXPECT_EQ(method.scoringTypeNmbr(), 500);
    EXPECT_EQ(app.scalar(u"SELECT scoring_type_name FROM scoring_type WHERE scoring_type_nmbr = 500"_s), u"Kid's Cup"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_EQ(texts(u"txtPlace"_s) + u'|' + texts(u"txtPoints"_s) + u'|' + texts(u"txtQualPoints"_s), u"1|0|0"_s);

    tabs()->setCurrentIndex(0);
    retype(field(u"txtScoringTypeName"_s), {});
    click(u"cmdApply"_s);
    expectLastBox(app, u"Scoring Name is a required field"_s);
    EXPECT_EQ(app.scalar(u"SELECT scoring_type_name FROM scoring_type WHERE scoring_type_nmbr = 500"_s), u"Kid's Cup"_s);
}

struct FieldCase {
    int tab;
    const char* name;
    const char* typed;
    const char* box;     // "" when the entry is taken
    const char* shown;   // what the field holds afterwards
};

TEST_F(ScoringScreen, fieldsRefuseWhatTheirRuleDoesNotTakeAndClearIt)
{
    storeMine();
    open(500);
    const FieldCase cases[] = {
        {0, "txtLapsLedBonus", "x", "Invalid Entry", ""},   {0, "txtLapsLedBonus", "40000", "Overflow", "40000"},
        {0, "txtLapsLedBonus", "3", "", "3"},              {0, "txtMostLapsLedBonus", "-4", "", "-4"},
        {0, "txtFastQualBonus", "", "", "0"},              {1, "txtPlace", "abc", "Invalid Entry", ""},
        {1, "txtPlace", "-1", "Invalid Entry", ""},        {1, "txtPlace", "", "", ""},
        {1, "txtPoints", "-7", "", "-7"},                  {1, "txtPoints", "", "", "0"},
        {1, "txtPoints", "7x", "Invalid Entry", ""},       {1, "txtQualPoints", "two", "Invalid Entry", ""},
        {2, "txtGroupNmbr", "-2", "Invalid Entry", ""},    {2, "TxtGroupTop", "q", "Invalid Entry", ""},
        {2, "txtGroupPoints", "-1", "Invalid Entry", ""},  {2, "txtGroupPoints", "", "", ""},
    };
    for (const FieldCase& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " " + c.typed);
        const QString name = QString::fromLatin1(c.name);
        tabs()->setCurrentIndex(c.tab);
        ASSERT_NE(field(name), nullptr);
        app.presenter().clear();
        leave(field(name), QString::fromLatin1(c.typed));
        if (*c.box) {
            expectLastBox(app, QString::fromLatin1(c.box));
            EXPECT_EQ(focusName(), name);
        } else {
            EXPECT_TRUE(app.presenter().boxes().isEmpty());
        }
        EXPECT_EQ(field(name)->text(), QString::fromLatin1(c.shown));
    }
    EXPECT_EQ(method.lapsLedBonus(), 3);
    EXPECT_EQ(method.mostLapsLedBonus(), -4);
    EXPECT_EQ(method.fastQualBonus(), 0);
}

TEST_F(ScoringScreen, enterMovesToTheNextRowAndAddsOneAfterTheLastWithTheScrollBarFromTheEighth)
{
    open(2);   // places 1-6
    tabs()->setCurrentIndex(1);
    auto* scroll = child<QScrollBar>(form, u"VScroll1"_s);
    EXPECT_FALSE(scroll->isEnabled());

    enter(field(u"txtPlace"_s, 2));
    EXPECT_EQ(column(u"txtPlace"_s).size(), 6);
    EXPECT_EQ(form.focusWidget(), field(u"txtPoints"_s, 3));

    enter(field(u"txtPoints"_s, 5));
    EXPECT_EQ(texts(u"txtPlace"_s), u"1,2,3,4,5,6,7"_s);
    EXPECT_EQ(field(u"txtPoints"_s, 6)->text(), u"0"_s);
    EXPECT_FALSE(scroll->isEnabled());
    enter(field(u"txtPoints"_s, 6));
    EXPECT_EQ(texts(u"txtPlace"_s), u"1,2,3,4,5,6,7,8"_s);
    EXPECT_TRUE(scroll->isEnabled());
    EXPECT_EQ(form.focusWidget(), field(u"txtPoints"_s, 7));
    EXPECT_FALSE(field(u"txtPoints"_s, 0)->isVisible());
    scroll->setValue(0);
    EXPECT_TRUE(field(u"txtPoints"_s, 0)->isVisible());

    tabs()->setCurrentIndex(2);
    EXPECT_EQ(storedRows(2), u"1:10:0 2:6:0 3:4:0 4:3:0 5:2:0 6:1:0 7:0:0 8:0:0"_s);
    EXPECT_EQ(texts(u"txtGroupNmbr"_s) + u'|' + texts(u"TxtGroupTop"_s), u"0|0"_s);
    enter(field(u"txtGroupPoints"_s));
    EXPECT_EQ(texts(u"txtGroupNmbr"_s) + u'|' + texts(u"txtGroupPoints"_s), u"0,0|0,0"_s);
    EXPECT_EQ(form.focusWidget(), field(u"txtGroupNmbr"_s, 1));
}

TEST_F(ScoringScreen, savingDropsRowsWhoseFirstFieldIsBlankOrZero)
{
    storeMine();
    open(500);
    tabs()->setCurrentIndex(1);
    leave(field(u"txtPoints"_s, 0), u"12"_s);
    leave(field(u"txtPlace"_s, 1), u"0"_s);
    enter(field(u"txtPoints"_s, 2));
    leave(field(u"txtQualPoints"_s, 3), u"-3"_s);
    leave(field(u"txtPlace"_s, 2), {});
    click(u"cmdApply"_s);
    EXPECT_EQ(storedRows(), u"1:12:0 4:0:-3"_s);
    EXPECT_FALSE(applyEnabled());

    tabs()->setCurrentIndex(2);
    leave(field(u"txtGroupNmbr"_s), u"2"_s);
    leave(field(u"TxtGroupTop"_s), u"5"_s);
    leave(field(u"txtGroupPoints"_s), u"10"_s);
    enter(field(u"txtGroupPoints"_s));   // a row of "0": left out
    tabs()->setCurrentIndex(0);
    EXPECT_EQ(app.scalar(u"SELECT group_concat(nmbr_cars || ':' || top_nmbr || ':' || points) FROM scoring_top_points "
                         u"WHERE scoring_type_nmbr = 500"_s),
              u"2:5:10"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
}

TEST_F(ScoringScreen, cancelAsksOnlyWhenTheMethodOrItsPerPlaceRowsAreUnsaved)
{
    storeMine();
    open(500);
    tabs()->setCurrentIndex(2);
    leave(field(u"txtGroupPoints"_s), u"9"_s);
    click(u"cmdCancel"_s);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    EXPECT_EQ(app.scalar(u"SELECT points FROM scoring_top_points"_s), u"5"_s);

    const std::pair<Answer, QString> answers[] = {
        {Answer::Cancel, u"1:10:0 2:8:0 3:5:1"_s}, {Answer::No, u"1:10:0 2:8:0 3:5:1"_s}, {Answer::Yes, u"1:20:0 2:8:0 3:5:1"_s}};
    for (const auto& [answer, stored] : answers) {
        open();
        tabs()->setCurrentIndex(1);
        leave(field(u"txtPoints"_s), u"20"_s);
        app.presenter().clear();
        app.presenter().queueAnswer(answer);
        click(u"cmdCancel"_s);
        expectLastBox(app, u"Do you want to save changes"_s, Icon::Question, Buttons::YesNoCancel, u"Mine"_s);
        EXPECT_EQ(form.isVisible(), answer == Answer::Cancel);
        EXPECT_EQ(storedRows(), stored);
        form.hide();
    }
}

TEST_F(ScoringScreen, clearButtonsAskThenDeleteTheRowsAtOnce)
{
    storeMine();
    open(500);
    tabs()->setCurrentIndex(1);
    app.presenter().queueAnswer(Answer::No);
    click(u"cmdClearScoring"_s);
    expectLastBox(app, u"Are you sure you want to delete Scoring per Place for Mine?"_s, Icon::Question,
                  Buttons::YesNoCancel, u"Mine"_s);
    EXPECT_EQ(column(u"txtPlace"_s).size(), 3);

    leave(field(u"txtPoints"_s), u"30"_s);
    app.presenter().queueAnswer(Answer::Yes);
    click(u"cmdClearScoring"_s);
    EXPECT_EQ(app.count(u"scoring_points"_s, u"WHERE scoring_type_nmbr = 500"_s), 0);
    EXPECT_EQ(texts(u"txtPlace"_s) + u'|' + texts(u"txtPoints"_s) + u'|' + texts(u"txtQualPoints"_s), u"|0|0"_s);
    EXPECT_FALSE(applyEnabled());

    tabs()->setCurrentIndex(2);
    app.presenter().queueAnswer(Answer::Yes);
    click(u"cmdClearTopScoring"_s);
    expectLastBox(app, u"Are you sure you want to delete Top Scoring Mine?"_s, Icon::Question, Buttons::YesNoCancel,
                  u"Mine"_s);
    EXPECT_EQ(app.count(u"scoring_top_points"_s), 0);
    EXPECT_EQ(texts(u"txtGroupNmbr"_s) + u'|' + texts(u"TxtGroupTop"_s) + u'|' + texts(u"txtGroupPoints"_s), u"0|0|0"_s);
}

TEST_F(ScoringScreen, aBonusTypedAndLeftByATabChangeOrCancelsYesIsSavedWithTheTypedValue)
{
    storeMine();
    auto bonuses = [this] {
        return app.scalar(u"SELECT laps_led_bonus || '/' || most_laps_led_bonus || '/' || fast_qual_bonus FROM scoring_type "
                          u"WHERE scoring_type_nmbr = 500"_s);
    };
    // A click on the tab bar saves the tab left, the bonus still in its field.
    open(500);
    QLineEdit* lapsLed = field(u"txtLapsLedBonus"_s);
    clickAndRetype(lapsLed, u"7"_s);
    clickTab(tabs()->tabBar(), 1);
    EXPECT_EQ(tabs()->currentIndex(), 1);
    EXPECT_EQ(bonuses(), u"7/0/0"_s);
    EXPECT_FALSE(applyEnabled());
    EXPECT_TRUE(app.presenter().boxes().isEmpty());
    form.hide();

    // Cancel answered Yes saves the bonus as typed and closes.
    open(500);
    clickAndRetype(field(u"txtFastQualBonus"_s), u"-2"_s);
    app.presenter().queueAnswer(Answer::Yes);
    click(u"cmdCancel"_s);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Do you want to save changes"_s});
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(bonuses(), u"7/0/-2"_s);

    // A refused bonus keeps the tab and saves nothing.
    open(500);
    clickAndRetype(lapsLed, u"x"_s);
    app.presenter().clear();
    clickTab(tabs()->tabBar(), 2);
    EXPECT_EQ(app.presenter().boxTexts(), QStringList{u"Invalid Entry"_s});
    EXPECT_EQ(tabs()->currentIndex(), 0);
    EXPECT_EQ(form.focusWidget(), lapsLed);
    EXPECT_EQ(bonuses(), u"7/0/-2"_s);
}

} // namespace
