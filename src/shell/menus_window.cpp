#include "base/app_globals.h"
#include "base/messages.h"
#include "exchange/import.h"
#include "league/groups_form.h"
#include "league/race_types_form.h"
#include "racing/posting.h"
#include "reports/report_details_form.h"
#include "reports/report_entries.h"
#include "reports/report_request_form.h"
#include "shell/about_form.h"
#include "shell/gui_record_commands.h"
#include "shell/main_window.h"
#include "shell/maintenance_commands.h"
#include "shell/record_kinds.h"
#include "shell/settings.h"

#include <QAction>
#include <QActionGroup>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMetaObject>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The menus, the pop-up menus and the toolbar of the main window, and the commands behind them.

void frmMain::createToolbar()
{
    m_toolbar = new QToolBar(this);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    m_toolbar->setWindowTitle(u"Toolbar"_s);
    m_toolbar->setMovable(false);
    m_toolbar->setFloatable(false);
    m_toolbar->setIconSize(QSize(24, 24));
    m_toolbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    addToolBar(Qt::TopToolBarArea, m_toolbar);
    for (const RecordKindInfo& info : kRecordKinds) {
        QAction* action = m_toolbar->addAction(picture(kindText(info.image)), kindText(info.toolTip));
        action->setObjectName(kindText(info.toolKey));
        action->setToolTip(kindText(info.toolTip));
        m_toolbar->widgetForAction(action)->setObjectName(kindText(info.toolKey));
        const RecordKind kind = info.kind;
        connect(action, &QAction::triggered, this, [this, kind] { toolbarButton(kind); });
    }
}

QMenu* frmMain::addMenu(const QString& name, const QString& caption)
{
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    return menu;
}

QAction* frmMain::addItem(QMenu* menu, const QString& name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

void frmMain::createMenus()
{
    menuBar()->setObjectName(u"mnuMain"_s);

    QMenu* file = addMenu(u"mnuFile"_s, u"&File"_s);
    const std::pair<QString, QString> newItems[] = {
        {u"mnuFileNewLeague"_s, u"New League"_s}, {u"mnuFileNewTeam"_s, u"New Team..."_s},
        {u"mnuFileNewCar"_s, u"New Car..."_s},    {u"mnuFileNewRace"_s, u"New Race..."_s},
        {u"mnuFileNewScoring"_s, u"New Scoring..."_s},
    };
    for (int i = 0; i < 5; ++i) {
        const RecordKind kind = kRecordKinds[i].kind;
        connect(addItem(file, newItems[i].first, newItems[i].second), &QAction::triggered, this,
                [this, kind] { fileNew(kind); });
    }
    file->addSeparator();
    connect(addItem(file, u"mnuFileImport"_s, u"&Import..."_s), &QAction::triggered, this, &frmMain::showImport);
    connect(addItem(file, u"mnuFilePublishWeb"_s, u"Publish &Web..."_s), &QAction::triggered, this,
            &frmMain::showPublishWeb);
    file->addSeparator();
    connect(addItem(file, u"mnuFileExit"_s, u"E&xit"_s), &QAction::triggered, this, &QWidget::close);

    QMenu* view = addMenu(u"view"_s, u"&View"_s);
    m_viewToolbar = addItem(view, u"mnuViewToolbar"_s, u"&Toolbar"_s);
    m_viewStatusbar = addItem(view, u"mnuViewStatusbar"_s, u"&Statusbar"_s);
    for (QAction* bar : {m_viewToolbar, m_viewStatusbar}) {
        bar->setCheckable(true);
        bar->setChecked(true);
    }
    connect(m_viewToolbar, &QAction::triggered, this, &frmMain::toggleToolbar);
    connect(m_viewStatusbar, &QAction::triggered, this, &frmMain::toggleStatusbar);
    view->addSeparator();
    m_viewLarge = addItem(view, u"mnuViewLarge"_s, u"Lar&ge"_s);
    m_viewSmall = addItem(view, u"mnuViewSmall"_s, u"S&mall"_s);
    m_viewList = addItem(view, u"mnuViewList"_s, u"&List"_s);
    m_viewDetail = addItem(view, u"mnuViewDetail"_s, u"&Detail"_s);
    const std::pair<QAction*, int16_t> modes[] = {{m_viewLarge, 1}, {m_viewSmall, 4}, {m_viewList, 2}, {m_viewDetail, 3}};
    // One of the four at a time: drawn as radio items.
    auto* modeGroup = new QActionGroup(this);
    for (const auto& [action, mode] : modes) {
        action->setCheckable(true);
        modeGroup->addAction(action);
        const int16_t m = mode;
        connect(action, &QAction::triggered, this, [this, m] { setViewMode(m); });
    }
    // Each start shows the panes in detail view.
    m_viewDetail->setChecked(true);
    view->addSeparator();
    const std::pair<QString, QString> paneItems[] = {
        {u"mnuViewLeauges"_s, u"Leagues..."_s}, {u"mnuViewTeams"_s, u"Teams..."_s},
        {u"mnuViewCars"_s, u"Cars/Drivers..."_s}, {u"mnuViewRaces"_s, u"Races..."_s},
        {u"mnuViewScoring"_s, u"Scoring..."_s},
    };
    for (int i = 0; i < 5; ++i) {
        const RecordKind kind = kRecordKinds[i].kind;
        connect(addItem(view, paneItems[i].first, paneItems[i].second), &QAction::triggered, this,
                [this, kind] { showPane(kind); });
    }

    QMenu* reports = addMenu(u"mnuReports"_s, u"&Reports"_s);
    connect(addItem(reports, u"mnuReportReportDetails"_s, u"Report Details..."_s), &QAction::triggered, this,
            &frmMain::showReportDetails);

    QMenu* system = addMenu(u"mnuSystem"_s, u"&System"_s);
    connect(addItem(system, u"mnuSystemRaceTypes"_s, u"Race Types..."_s), &QAction::triggered, this,
            &frmMain::showRaceTypes);
    connect(addItem(system, u"mnuSystemGroups"_s, u"Groups..."_s), &QAction::triggered, this, &frmMain::showGroups);
    system->addSeparator();
    connect(addItem(system, u"mnuSystemClear"_s, u"Clear Postings  for New Season"_s), &QAction::triggered, this,
            &frmMain::clearPostings);
    system->addSeparator();
    connect(addItem(system, u"mnuSystemRestoreDataFile"_s, u"Restore Data File..."_s), &QAction::triggered, this,
            &frmMain::restoreDataFile);
    connect(addItem(system, u"mnuSystemCompactDatabase"_s, u"Backup Data File..."_s), &QAction::triggered, this,
            &frmMain::backupDataFile);

    QMenu* web = addMenu(u"mnuWeb"_s, u"We&b"_s);
    // The caption is set at start from the product name.
    m_webOnTheWeb = addItem(web, u"mnuWebOnTheWeb"_s, QString());
    connect(m_webOnTheWeb, &QAction::triggered, this, [] { openWebPage(u"HOME"_s); });

    m_windowMenu = addMenu(u"mnuWindow"_s, u"&Window"_s);
    connect(addItem(m_windowMenu, u"mnuWindowCascade"_s, u"&Cascade"_s), &QAction::triggered, m_mdiArea,
            &QMdiArea::cascadeSubWindows);
    connect(addItem(m_windowMenu, u"mnuWindowVertical"_s, u"Tile &Vertical"_s), &QAction::triggered, this,
            [this] { tileChildren(Qt::Vertical); });
    connect(addItem(m_windowMenu, u"mnuWindowHorizontal"_s, u"Tile &Horizontal"_s), &QAction::triggered, this,
            [this] { tileChildren(Qt::Horizontal); });
    connect(addItem(m_windowMenu, u"mnuWindowArrage"_s, u"&Arrange Icons"_s), &QAction::triggered, this,
            &frmMain::arrangeIcons);
    m_windowMenu->addSeparator();
    m_windowOpen = m_windowMenu->addMenu(u"Open Windows"_s);
    m_windowOpen->setObjectName(u"windowOpen"_s);
    m_windowOpen->menuAction()->setObjectName(u"windowOpen"_s);
    connect(m_windowMenu, &QMenu::aboutToShow, this, &frmMain::fillWindowList);

    QMenu* help = addMenu(u"mnuHelp"_s, u"&Help"_s);
    connect(addItem(help, u"mnuHelpConetents"_s, u"&Contents..."_s), &QAction::triggered, this,
            [this] { showHelpContext(1); });
    connect(addItem(help, u"mnuHelptechnicalSupport"_s, u"Technical Su&pport..."_s), &QAction::triggered, this,
            [this] { showHelpContext(900); });
    help->addSeparator();
    // The caption is set at start from the product name.
    m_helpAbout = addItem(help, u"mnuHelpAbout"_s, QString());
    connect(m_helpAbout, &QAction::triggered, this, &frmMain::showAbout);
    fillWindowList();
}

void frmMain::createPopupMenus()
{
    for (const RecordKindInfo& info : kRecordKinds) {
        const QString name = kindText(info.menu);
        const QString noun = kindText(info.noun);
        const RecordKind kind = info.kind;
        // Never in the menu bar: these serve only as pop-ups of the tree and the list panes.
        auto* menu = new QMenu(kindText(info.caption), this);
        menu->setObjectName(name);
        connect(addItem(menu, name + u"New"_s, u"New "_s + noun), &QAction::triggered, this, [this, kind] {
            newRecord(kind);
            layoutMain();
        });
        connect(addItem(menu, name + u"Design"_s, u"Update "_s + noun), &QAction::triggered, this, [this, kind] {
            designRecord(kind);
            layoutMain();
        });
        connect(addItem(menu, name + u"Delete"_s, u"Delete "_s + noun), &QAction::triggered, this, [this, kind] {
            deleteRecord(kind);
            layoutMain();
        });
        menu->addSeparator();
        const int32_t context = info.helpContext;
        connect(addItem(menu, name + u"Help"_s, u"Help"_s), &QAction::triggered, this,
                [this, context] { showHelpContext(context); });
        m_popups[static_cast<int>(kind)] = menu;
    }
}

// ---------------------------------------------------------------- commands

void frmMain::toolbarButton(RecordKind kind)
{
    refreshPane(kind);
    newRecord(kind);
}

void frmMain::fileNew(RecordKind kind)
{
    refreshPane(kind);
    layoutMain();
    newRecord(kind);
}

void frmMain::toggleToolbar(bool visible)
{
    m_viewToolbar->setChecked(visible);
    m_toolbar->setVisible(visible);
    // Resize the tree and the pane area at once, not at the next layout pass.
    layout()->activate();
    gSettings.toolBar = visible ? u"Y"_s : u"N"_s;
    layoutMain();
}

void frmMain::toggleStatusbar(bool visible)
{
    m_viewStatusbar->setChecked(visible);
    m_statusBar->setVisible(visible);
    // Resize the tree and the pane area at once, not at the next layout pass.
    layout()->activate();
    gSettings.statusBar = visible ? u"Y"_s : u"N"_s;
    layoutMain();
}

void frmMain::setViewMode(int16_t mode)
{
    gViewMode = mode;
    m_viewLarge->setChecked(mode == 1);
    m_viewSmall->setChecked(mode == 4);
    m_viewList->setChecked(mode == 2);
    m_viewDetail->setChecked(mode == 3);
    QMdiSubWindow* child = m_mdiArea->currentSubWindow();
    if (!child && !m_mdiArea->subWindowList().isEmpty())
        child = m_mdiArea->subWindowList().constLast();
    QWidget* pane = child ? child->widget() : nullptr;
    if (pane && pane->metaObject()->indexOfMethod("setView()") >= 0)
        QMetaObject::invokeMethod(pane, "setView", Qt::DirectConnection);
}

void frmMain::showHelpContext(int32_t context)
{
    gHelpContext = context;
    showHelp(u"Sensative"_s);
}

void frmMain::showAbout()
{
    frmAbout about(this);
    about.exec();
}

void frmMain::clearPostings()
{
    clearPostingsForNewSeason();
}

void frmMain::restoreDataFile()
{
    restoreDataFileCommand();
}

void frmMain::backupDataFile()
{
    backupDataFileCommand();
}

void frmMain::fillWindowList()
{
    m_windowOpen->clear();
    const QList<QMdiSubWindow*> children = m_mdiArea->subWindowList();
    for (qsizetype i = 0; i < children.size(); ++i) {
        QMdiSubWindow* child = children[i];
        const QString number = i < 9 ? u"&"_s + QString::number(i + 1) : QString::number(i + 1);
        QAction* action = m_windowOpen->addAction(number + u' ' + child->windowTitle());
        action->setCheckable(true);
        action->setChecked(child == m_mdiArea->currentSubWindow());
        connect(action, &QAction::triggered, this, [this, child] {
            if (child->isMinimized())
                child->showNormal();
            m_mdiArea->setActiveSubWindow(child);
        });
    }
    m_windowOpen->setEnabled(!children.isEmpty());
}

void frmMain::tileChildren(Qt::Orientation orientation)
{
    QList<QMdiSubWindow*> children;
    for (QMdiSubWindow* child : m_mdiArea->subWindowList()) {
        if (child->isVisible() && !child->isMinimized())
            children << child;
    }
    if (children.isEmpty())
        return;
    const QRect area = m_mdiArea->viewport()->rect();
    const int count = static_cast<int>(children.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* child = children[i];
        if (child->isMaximized())
            child->showNormal();
        // Vertical tiling puts the windows side by side, horizontal tiling one above the other.
        if (orientation == Qt::Vertical) {
            const int left = area.width() * i / count;
            child->setGeometry(left, 0, area.width() * (i + 1) / count - left, area.height());
        } else {
            const int top = area.height() * i / count;
            child->setGeometry(0, top, area.width(), area.height() * (i + 1) / count - top);
        }
    }
}

void frmMain::arrangeIcons()
{
    const QRect area = m_mdiArea->viewport()->rect();
    int left = 0;
    int bottom = area.height();
    for (QMdiSubWindow* child : m_mdiArea->subWindowList()) {
        if (!child->isMinimized())
            continue;
        const QSize size = child->size();
        if (left > 0 && left + size.width() > area.width()) {
            left = 0;
            bottom -= size.height();
        }
        child->move(left, bottom - size.height());
        left += size.width();
    }
}

// ---------------------------------------------------------------- list panes and record commands

void frmMain::showLeagues()
{
    showRecordPane(RecordKind::League);
    layoutMain();
}

void frmMain::showTeams()
{
    showRecordPane(RecordKind::Team);
    layoutMain();
}

void frmMain::showCars()
{
    showRecordPane(RecordKind::Car);
    layoutMain();
}

void frmMain::showRaces()
{
    showRecordPane(RecordKind::Race);
    layoutMain();
}

void frmMain::showScoring()
{
    showRecordPane(RecordKind::Scoring);
    layoutMain();
}

void frmMain::showPane(RecordKind kind)
{
    switch (kind) {
    case RecordKind::League: showLeagues(); break;
    case RecordKind::Team: showTeams(); break;
    case RecordKind::Car: showCars(); break;
    case RecordKind::Race: showRaces(); break;
    case RecordKind::Scoring: showScoring(); break;
    }
}

void frmMain::refreshPane(RecordKind kind)
{
    refreshRecordPane(kind);
}

void frmMain::newRecord(RecordKind kind)
{
    newRecordCommand(kind);
}

void frmMain::designRecord(RecordKind kind)
{
    designRecordCommand(kind);
}

void frmMain::deleteRecord(RecordKind kind)
{
    deleteRecordCommand(kind);
}

// ---------------------------------------------------------------- commands of other screens

namespace {

// What a command whose screen is not in this version says instead of doing nothing.
void notAvailableYet(const QString& feature)
{
    messageBox(feature + u" is not available yet."_s, u"Lapkeeper"_s, Icon::Information);
}

} // namespace

// The report of a Reporting node of the tree.
void frmMain::requestReport(const QString& tag)
{
    static const std::pair<const char16_t*, void (frmMain::*)()> commands[] = {
        {u"REPORT PACKAGE", &frmMain::runReportPackage},
        {u"RACE DETAIL", &frmMain::runRaceDetail},
        {u"TEAM DETAIL", &frmMain::runTeamDetail},
        {u"LEAGUE STANDINGS", &frmMain::runLeagueStandings},
        {u"LEAGUE RACE SUMMARY", &frmMain::runLeagueRaceSummary},
        {u"TEAM CARS", &frmMain::runTeamCars},
        {u"LEAGUE RACE STANDINGS", &frmMain::runLeagueRaceStandings},
        {u"CAR DETAILS", &frmMain::runCarDetails},
        {u"RACE RESULTS", &frmMain::runRaceResults},
        {u"CAR/DRIVER STATS", &frmMain::runCarDriverStats},
        {u"TEAM TRADES", &frmMain::runTeamTrades},
        {u"CAR PICKS", &frmMain::runCarDriverPicks},
        {u"TEAMS CAR/DRIVER", &frmMain::runTeamsPerCarDriver},
    };
    for (const auto& [reportTag, run] : commands) {
        if (tag.compare(QStringView(reportTag), Qt::CaseInsensitive) == 0) {
            (this->*run)();
            return;
        }
    }
}

// Asks what the report is to cover and, on OK, runs it with launch true. The request screen is
// gone before the report runs; its answers are kept.
void frmMain::requestAndRunReport(const QString& reportId)
{
    const cReportRequirements* requirements = reportRequirements(reportId);
    if (!requirements)
        return;
    const QString title = QString::fromUtf16(requirements->title);
    if (!reportAvailable(reportId)) {
        notAvailableYet(u"The "_s + title + u" report"_s);
        return;
    }
    cReportRequest request;
    {
        frmReportRqst dialog(this);
        dialog.raceRequired = requirements->raceRequired;
        dialog.leagueRequired = requirements->leagueRequired;
        dialog.teamRequired = requirements->teamRequired;
        dialog.showWith(title);
        if (!dialog.okPressed)
            return;
        request.leagueNmbr = dialog.leagueNmbr;
        request.raceNmbr = dialog.raceNmbr;
        request.teamNmbr = dialog.teamNmbr;
        request.allTeams = dialog.allTeams;
        request.separate = dialog.separate;
    }
    runReport(reportId, request, true);
}

void frmMain::runReportPackage() { requestAndRunReport(u"RP"_s); }
void frmMain::runRaceDetail() { requestAndRunReport(u"RD"_s); }
void frmMain::runLeagueRaceStandings() { requestAndRunReport(u"RS"_s); }
void frmMain::runTeamsPerCarDriver() { requestAndRunReport(u"DT"_s); }
void frmMain::runTeamDetail() { requestAndRunReport(u"TD"_s); }
void frmMain::runLeagueStandings() { requestAndRunReport(u"LS"_s); }
void frmMain::runTeamCars() { requestAndRunReport(u"TC"_s); }
void frmMain::runCarDriverPicks() { requestAndRunReport(u"CP"_s); }
void frmMain::runCarDriverStats() { requestAndRunReport(u"DS"_s); }
void frmMain::runRaceResults() { requestAndRunReport(u"RR"_s); }
void frmMain::runCarDetails() { requestAndRunReport(u"CD"_s); }
void frmMain::runTeamTrades() { requestAndRunReport(u"TT"_s); }
void frmMain::runLeagueRaceSummary() { requestAndRunReport(u"LR"_s); }

void frmMain::showImport()
{
    FileDialogRequest request;
    request.mode = FileDialogRequest::Mode::Open;
    request.title = u"Lapkeeper Import"_s;
    request.filter = u"Lapkeeper Import (*.lki)|*.lki|"_s;
    request.folder = gImportsPath;
    const std::optional<QString> file = presenter().chooseFile(request);
    if (!file)
        return;
    setMousePointer(kPointerHourglass);
    const bool imported = importFile(*file);
    setMousePointer(kPointerDefault);
    messageBox(imported ? u"Import Complete."_s : u"Import Failed."_s);
}

void frmMain::showPublishWeb()
{
    notAvailableYet(u"Publish Web"_s);
}

void frmMain::showReportDetails()
{
    frmReportDetails(this).showWith();
}

void frmMain::showRaceTypes()
{
    frmRaceTypes(this).exec();
}

void frmMain::showGroups()
{
    frmGroups(this).exec();
}
