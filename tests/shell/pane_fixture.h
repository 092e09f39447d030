#pragma once
// The main window started on a fresh data file, with the list panes and record commands behind
// it; the detail screens are stand-ins the test sets (recordScreens). Also the boxes as text.
#include "base/app_globals.h"
#include "league/league_fixtures.h"
#include "shell/cars_pane.h"
#include "shell/display_pane.h"
#include "shell/gui_record_commands.h"
#include "shell/main_window.h"
#include "shell/settings.h"
#include "support/temp_app.h"

#include <QFile>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>

// Every box shown so far, one line each: "title [icon/buttons] text".
inline QStringList shownBoxes(const RecordingPresenter& presenter)
{
    static const char* const icons[] = {"None", "Critical", "Question", "Exclamation", "Information"};
    static const char* const buttons[] = {"Ok", "OkCancel", "AbortRetryIgnore", "YesNoCancel", "YesNo", "RetryCancel"};
    QStringList lines;
    for (const RecordedBox& box : presenter.boxes())
        lines << QStringLiteral("%1 [%2/%3] %4")
                     .arg(box.title, QLatin1StringView(icons[int(box.icon)]),
                          QLatin1StringView(buttons[int(box.buttons)]), box.text);
    return lines;
}

class PaneTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::remove(settingsFilePath());
        gViewMode = 0;
        m_app = std::make_unique<TempApp>(false);
        m_window = std::make_unique<frmMain>();
        m_window->setStartScreensShown(false);
        ASSERT_TRUE(m_window->load());
    }
    void TearDown() override
    {
        resetRecordScreens();
        m_window.reset();
        m_app.reset();
        QFile::remove(settingsFilePath());
    }

    RecordingPresenter& boxes() { return m_app->presenter(); }

    static cDisplayPane* paneOf(RecordKind kind)
    {
        switch (kind) {
        case RecordKind::League: return frmDisplayLeagues::existing();
        case RecordKind::Team: return frmDisplayTeams::existing();
        case RecordKind::Car: return frmDisplayCars::existing();
        case RecordKind::Race: return frmDisplayRaces::existing();
        case RecordKind::Scoring: return frmDisplayScoring::existing();
        }
        return nullptr;
    }

    // The visible cells of a row joined by "|"; of every row, in list order.
    static QString rowText(const cDisplayPane& pane, const QTreeWidgetItem* row)
    {
        QStringList cells;
        for (int c = 0; row && c < pane.list()->columnCount(); ++c)
            if (!pane.list()->isColumnHidden(c))
                cells << row->text(c);
        return cells.join(u'|');
    }
    static QStringList rows(const cDisplayPane& pane)
    {
        QStringList result;
        for (int i = 0; i < pane.list()->topLevelItemCount(); ++i)
            result << rowText(pane, pane.list()->topLevelItem(i));
        return result;
    }
    // The first visible cell of the selected row; "" when none is selected.
    static QString selected(const cDisplayPane& pane) { return rowText(pane, pane.selectedRow()).section(u'|', 0, 0); }
    static void clickRow(cDisplayPane& pane, int row)
    {
        QTreeWidget* list = pane.list();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(row)).center());
    }

    std::unique_ptr<TempApp> m_app;
    std::unique_ptr<frmMain> m_window;
};
