#pragma once
// The race screen opened offscreen on a real data file, driven by control names.
#include "league/league_fixtures.h"
#include "racing/race_form.h"
#include "racing/races.h"
#include "season.h"
#include "support/temp_app.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

class RaceScreen : public ::testing::Test {
protected:
    void open(int16_t raceNmbr = 0)
    {
        if (raceNmbr > 0) {
            ASSERT_EQ(race.load(raceNmbr), 1);
        }
        form.fill(race);
        showActive(form);
    }
    template <class T>
    T* get(const QString& name) { return child<T>(form, name); }
    QLineEdit* field(const QString& name) { return get<QLineEdit>(name); }
    // The row's field of a grid column (rows from 0).
    QLineEdit* cell(const QString& column, int row)
    {
        const QList<QLineEdit*> cells = form.findChildren<QLineEdit*>(column);
        EXPECT_LT(row, cells.size()) << qPrintable(column);
        return cells.value(row);
    }
    int rows() { return static_cast<int>(form.findChildren<QLineEdit*>(u"txtPlace"_s).size()); }
    void settle() { QApplication::processEvents(); }

    void tab(int index)
    {
        get<QTabBar>(u"SSTab1"_s)->setCurrentIndex(index);
        settle();
    }
    void clickTab(int index) { ::clickTab(get<QTabBar>(u"SSTab1"_s), index); }
    int currentTab() { return get<QTabBar>(u"SSTab1"_s)->currentIndex(); }
    // Leaves a field the way Tab does, so its rule runs.
    void leaveTo(QWidget* next)
    {
        next->setFocus(Qt::TabFocusReason);
        settle();
    }
    void choose(const QString& combo, int number) { ::choose(get<QComboBox>(combo), number); }
    // Opens a grid chooser by a click on a row's field, closes its list and picks the entry shown as text.
    void chooseIn(QLineEdit* field, const QString& chooserName, const QString& text)
    {
        QTest::mouseClick(field, Qt::LeftButton);
        auto* chooser = get<QComboBox>(chooserName);
        ASSERT_TRUE(chooser->isVisible());
        closePopup();
        const int index = chooser->findText(text);
        ASSERT_GE(index, 0) << qPrintable(text);
        chooser->setCurrentIndex(index);
    }
    // The car chooser on a row (" " for none).
    void chooseCar(int row, const QString& text) { chooseIn(cell(u"txtCarNmbr"_s, row), u"cmbCarNmbr"_s, text); }
    // Enter in the focused field of the grid.
    void enter()
    {
        closePopup();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        settle();
    }
    // A chooser that opened its list: close the list, the focus is back on the chooser.
    void closePopup()
    {
        if (!QApplication::activePopupWidget())
            return;
        for (QComboBox* combo : form.findChildren<QComboBox*>())
            combo->hidePopup();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        settle();
    }
    const RecordedBox& lastBox()
    {
        static const RecordedBox none;
        return app.presenter().boxes().isEmpty() ? none : app.presenter().boxes().constLast();
    }

    TempApp app;
    Season season;
    cRaces race;
    frmRace form;
};
