#pragma once
// Rows written straight into the temporary data file, and the screen actions the league tests
// share, so that each test states its season in a few lines.
#include "league/record.h"
#include "support/temp_app.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace seed {

inline void run(const QString& statement)
{
    IDatabase db;
    ASSERT_TRUE(db.execute(statement)) << qPrintable(statement);
}

inline QString n(int value) { return QString::number(value); }
inline QString text(const QString& value) { return u'\'' + sqlText(value) + u'\''; }

// A league of scoring method 1, its short name taken from its name; cap as a plain number.
inline void league(int number, const QString& name, const QString& cap, int raceType = 1, int carType = 1,
                   int option = 1, int drop = 0)
{
    run(QStringLiteral("INSERT INTO leagues VALUES (%1, %2, %3, %4, %5, 1, %6, %7, %8)")
            .arg(n(number), text(name), text(name.left(3).toUpper()), n(raceType), n(option), cap, n(drop),
                 n(carType)));
}

inline void team(int number, const QString& name, int raceType = 1, int carType = 1)
{
    run(QStringLiteral("INSERT INTO teams VALUES (%1, %2, 'Owner', '', '', %3, %4, '', '', '', '', '')")
            .arg(n(number), text(name), n(raceType), n(carType)));
}

inline void member(int leagueNmbr, int teamNmbr)
{
    run(QStringLiteral("INSERT INTO league_teams VALUES (%1, %2)").arg(leagueNmbr).arg(teamNmbr));
}

// A car (carType 1), driver (2) or bonus entry (3) of no make; group "NULL" for none. The
// driver is "Driver <number>" unless named.
inline void car(int number, const QString& carTxt, const QString& salary, const QString& group = QStringLiteral("NULL"),
                int raceType = 1, int carType = 1, const QString& driver = {})
{
    const QString driverName = driver.isEmpty() ? QStringLiteral("Driver ") + carTxt : driver;
    run(QStringLiteral("INSERT INTO cars VALUES (%1, %2, 'Owner', NULL, 'Sponsor', %3, %4, %5, %6, %7)")
            .arg(n(number), text(carTxt), text(driverName), n(raceType), n(carType), group, salary));
}

// A roster entry; term "" for an open one.
inline void entry(int teamNmbr, int carNmbr, const QString& efctv, const QString& term, const QString& locked,
                  int active = 1)
{
    run(QStringLiteral("INSERT INTO team_car VALUES (%1, %2, '%3', %4, 0, %5, %6)")
            .arg(n(teamNmbr), n(carNmbr), efctv, term.isEmpty() ? QStringLiteral("NULL") : text(term), locked,
                 n(active)));
}

inline void race(int number, const QString& date, int raceType = 1)
{
    run(QStringLiteral("INSERT INTO races VALUES (%1, 'Race %1', 'Track', '%2', %3, 1, 2)")
            .arg(n(number), date, n(raceType)));
}

inline void result(int raceNmbr, int carNmbr)
{
    run(QStringLiteral("INSERT INTO results (race_nmbr, car_nmbr, place, qualified, fast_qual, laps_led, "
                       "adjustment) VALUES (%1, %2, 1, 1, 0, 0, 0)").arg(raceNmbr).arg(carNmbr));
}

// What posting writes for a car of a team in a league at a race.
inline void scored(int raceNmbr, int leagueNmbr, int teamNmbr, int carNmbr)
{
    run(QStringLiteral("INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, place, qualified, "
                       "current_status, fast_qual_bonus, laps_led_bonus, most_laps_led_bonus, adjustment, points, "
                       "qual_points, total_points) VALUES (%1, %2, %3, %4, 1, 1, 1, 0, 0, 0, 0, 10, 0, 10)")
            .arg(raceNmbr).arg(leagueNmbr).arg(teamNmbr).arg(carNmbr));
}

} // namespace seed

// The run-time error description a call raises, or "" when it raises none.
template <class F>
QString raisedError(F&& call)
{
    try {
        call();
    } catch (const cRuntimeError& error) {
        return error.description();
    }
    return {};
}

template <class W>
W* child(const QWidget& form, const QString& name)
{
    W* widget = form.findChild<W*>(name);
    EXPECT_NE(widget, nullptr) << qPrintable(name);
    return widget;
}

inline void showActive(QWidget& form)
{
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

// Picks the entry of a list by its text, or by the number it stands for, as the operator does.
template <class Key>
void choose(QComboBox* combo, const Key& key)
{
    int index = -1;
    if constexpr (std::is_same_v<Key, int>)
        index = combo->findData(key);
    else
        index = combo->findText(key);
    ASSERT_GE(index, 0);
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

// Moves a closed list to the entry with the arrow keys, as the operator does.
inline void pickByKeys(QComboBox* combo, const QString& text)
{
    const int target = combo->findText(text);
    ASSERT_GE(target, 0) << qPrintable(text);
    combo->setFocus(Qt::TabFocusReason);
    for (int i = 0; i <= combo->count() && combo->currentIndex() != target; ++i)
        QTest::keyClick(combo, combo->currentIndex() < target ? Qt::Key_Down : Qt::Key_Up);
    ASSERT_EQ(combo->currentText(), text);
}

// A click on the box itself, not somewhere in the empty width of its cell.
inline void clickBox(QAbstractButton* box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
}

// Replaces what a field holds by typing, leaving the focus in it.
inline void retype(QLineEdit* field, const QString& typed)
{
    field->setFocus(Qt::TabFocusReason);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, typed);
}

// Replaces what a field holds as the operator does with the mouse: click, select all, type.
inline void clickAndRetype(QLineEdit* field, const QString& typed)
{
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, typed);
}

// Clicks a tab of a tab bar, so the tab left runs its rules as on a real click.
inline void clickTab(QTabBar* bar, int index)
{
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    QApplication::processEvents();
}

inline QString focusName()
{
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

// The last box shown: its text, icon, buttons and title.
inline void expectLastBox(TempApp& app, const QString& text, Icon icon = Icon::Critical,
                          Buttons buttons = Buttons::Ok, const QString& title = QStringLiteral("Lapkeeper"))
{
    ASSERT_FALSE(app.presenter().boxes().isEmpty()) << qPrintable(text);
    const RecordedBox& box = app.presenter().boxes().constLast();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.icon, icon);
    EXPECT_EQ(box.buttons, buttons);
    EXPECT_EQ(box.title, title);
}

// The last box refuses with this text, and the focus stands on the field named (when named).
inline void expectRefusal(TempApp& app, const QString& text, const QString& focused = {})
{
    expectLastBox(app, text);
    if (!focused.isEmpty()) {
        EXPECT_EQ(focusName(), focused);
    }
}
