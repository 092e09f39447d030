#include "pane_fixture.h"
#include "reports/report_entries.h"
#include "shell/startup.h"

#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The id of the report a Reporting node asks for, by its caption.
QString reportIdOf(const QString& title)
{
    for (const cReportRequirements& report : reportRequests())
        if (title == QStringView(report.title))
            return QString::fromUtf16(report.reportId);
    return {};
}

// A stand-in for a list pane: counts the calls of its setView.
class ViewPane : public QWidget {
    Q_OBJECT
public:
    int calls = 0;
    Q_INVOKABLE void setView() { ++calls; }
};

class MainWindowTest : public PaneTest {
protected:
    void SetUp() override
    {
        PaneTest::SetUp();
        m_tree = m_window->findChild<QTreeWidget*>(u"sstreemain"_s);
        ASSERT_NE(m_tree, nullptr);
    }

    QAction* action(const QString& name) const { return m_window->findChild<QAction*>(name); }
    QWidget* child(const QString& name) const { return m_window->findChild<QWidget*>(name); }

    void mouse(QWidget* target, QEvent::Type type, Qt::MouseButton button, QPoint local, QPoint global)
    {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
        QMouseEvent event(type, local, global, button, held, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }

    // Presses and releases the right button over a node of the tree.
    void rightClickNode(const QString& key)
    {
        const QPoint at = m_tree->visualItemRect(m_window->nodeByKey(key)).center();
        const QPoint global = m_tree->viewport()->mapToGlobal(at);
        mouse(m_tree->viewport(), QEvent::MouseButtonPress, Qt::RightButton, at, global);
        mouse(m_tree->viewport(), QEvent::MouseButtonRelease, Qt::RightButton, at, global);
    }

    // Drags the splitter bar sideways by the given number of pixels; whileHeld sees the bar before the release.
    void dragSplitter(int pixels, const std::function<void(QWidget*)>& whileHeld = {})
    {
        QWidget* bar = child(u"imgSplitter"_s);
        const QPoint at(2, 20);
        const QPoint global = bar->mapToGlobal(at);
        mouse(bar, QEvent::MouseButtonPress, Qt::LeftButton, at, global);
        mouse(bar, QEvent::MouseMove, Qt::LeftButton, at, global + QPoint(pixels / 2, 0));
        mouse(bar, QEvent::MouseMove, Qt::LeftButton, at, global + QPoint(pixels, 0));
        if (whileHeld)
            whileHeld(bar);
        mouse(bar, QEvent::MouseButtonRelease, Qt::LeftButton, at, global + QPoint(pixels, 0));
    }

    QTreeWidget* m_tree = nullptr;
};

} // namespace

TEST_F(MainWindowTest, treeHoldsTheNodesWithTheirKeysTagsAndImages)
{
    int count = 0;
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        ++count;
        EXPECT_TRUE((*it)->font(0).bold()) << qPrintable((*it)->text(0));
        EXPECT_FALSE((*it)->icon(0).pixmap(16, 16).isNull()) << qPrintable((*it)->text(0));
    }
    EXPECT_EQ(count, 21);

    struct Node {
        QString key, text, parent, tag;
    };
    const Node nodes[] = {
        {u"Root"_s, u"Lapkeeper"_s, {}, {}},
        {u"Administration"_s, u"Administration"_s, u"Root"_s, u"ADMINISTRATION ROOT"_s},
        {u"Cars"_s, u"Cars/Drivers"_s, u"Administration"_s, u"CARS ROOT"_s},
        {u"Scoring Method"_s, u"Scoring Method"_s, u"Administration"_s, u"SCORING ROOT"_s},
        {u"Reporting"_s, u"Reporting"_s, u"Root"_s, u"REPORTING ROOT"_s},
        {u"Car/Driver Picks"_s, u"Car/Driver Picks"_s, u"Reporting"_s, u"CAR PICKS"_s},
        {u"Teams per Car/Driver"_s, u"Teams per Car/Driver"_s, u"Reporting"_s, u"TEAMS CAR/DRIVER"_s},
    };
    for (const Node& n : nodes) {
        QTreeWidgetItem* item = m_window->nodeByKey(n.key);
        ASSERT_NE(item, nullptr) << qPrintable(n.key);
        EXPECT_EQ(item->text(0), n.text);
        EXPECT_EQ(frmMain::nodeTag(item), n.tag);
        EXPECT_EQ(frmMain::nodeKey(item->parent()), n.parent);
    }

    QStringList children;
    for (QTreeWidgetItem* parent : {m_window->nodeByKey(u"Administration"_s), m_window->nodeByKey(u"Reporting"_s)})
        for (int i = 0; i < parent->childCount(); ++i)
            children << parent->child(i)->text(0);
    EXPECT_EQ(children, QStringList({u"Leagues"_s, u"Teams"_s, u"Cars/Drivers"_s, u"Races"_s, u"Scoring Method"_s,
                                     u"Report Package"_s, u"Race Detail"_s, u"Team Detail"_s,
                                     u"League Race Summary"_s, u"League Standings"_s, u"League Race Standings"_s,
                                     u"Team Cars"_s, u"Car Details"_s, u"Race Results"_s, u"Car/Driver Stats"_s,
                                     u"Team Trades"_s, u"Car/Driver Picks"_s, u"Teams per Car/Driver"_s}));

    EXPECT_TRUE(m_window->nodeByKey(u"Root"_s)->isExpanded());
    EXPECT_TRUE(m_window->nodeByKey(u"Administration"_s)->isExpanded());
    EXPECT_FALSE(m_window->nodeByKey(u"Reporting"_s)->isExpanded());
    EXPECT_EQ(m_window->nodeByKey(u"No such node"_s), nullptr);

    // Filling again starts over rather than adding a second set.
    m_window->fillTree();
    EXPECT_EQ(m_tree->topLevelItemCount(), 1);
    EXPECT_EQ(m_window->nodeByKey(u"Reporting"_s)->childCount(), 13);
}

TEST_F(MainWindowTest, menusHaveTheirNamesAndCaptionsInOrder)
{
    QStringList bar;
    for (QAction* top : m_window->menuBar()->actions())
        bar << top->objectName() + u'=' + top->text();
    EXPECT_EQ(bar, QStringList({u"mnuFile=&File"_s, u"view=&View"_s, u"mnuReports=&Reports"_s,
                                u"mnuSystem=&System"_s, u"mnuWeb=We&b"_s, u"mnuWindow=&Window"_s,
                                u"mnuHelp=&Help"_s}));

    auto items = [this](const QString& menu) {
        QStringList list;
        for (QAction* a : m_window->findChild<QMenu*>(menu)->actions())
            if (!a->isSeparator())
                list << a->objectName() + u'=' + a->text();
        return list;
    };
    EXPECT_EQ(items(u"mnuFile"_s),
              QStringList({u"mnuFileNewLeague=New League"_s, u"mnuFileNewTeam=New Team..."_s,
                           u"mnuFileNewCar=New Car..."_s, u"mnuFileNewRace=New Race..."_s,
                           u"mnuFileNewScoring=New Scoring..."_s, u"mnuFileImport=&Import..."_s,
                           u"mnuFilePublishWeb=Publish &Web..."_s, u"mnuFileExit=E&xit"_s}));
    EXPECT_EQ(items(u"view"_s),
              QStringList({u"mnuViewToolbar=&Toolbar"_s, u"mnuViewStatusbar=&Statusbar"_s, u"mnuViewLarge=Lar&ge"_s,
                           u"mnuViewSmall=S&mall"_s, u"mnuViewList=&List"_s, u"mnuViewDetail=&Detail"_s,
                           u"mnuViewLeauges=Leagues..."_s, u"mnuViewTeams=Teams..."_s,
                           u"mnuViewCars=Cars/Drivers..."_s, u"mnuViewRaces=Races..."_s,
                           u"mnuViewScoring=Scoring..."_s}));
    EXPECT_EQ(items(u"mnuReports"_s), QStringList({u"mnuReportReportDetails=Report Details..."_s}));
    EXPECT_EQ(items(u"mnuSystem"_s),
              QStringList({u"mnuSystemRaceTypes=Race Types..."_s, u"mnuSystemGroups=Groups..."_s,
                           u"mnuSystemClear=Clear Postings  for New Season"_s,
                           u"mnuSystemRestoreDataFile=Restore Data File..."_s,
                           u"mnuSystemCompactDatabase=Backup Data File..."_s}));
    EXPECT_EQ(items(u"mnuWeb"_s), QStringList({u"mnuWebOnTheWeb=Lapkeeper on the &Web"_s}));
    EXPECT_EQ(items(u"mnuWindow"_s),
              QStringList({u"mnuWindowCascade=&Cascade"_s, u"mnuWindowVertical=Tile &Vertical"_s,
                           u"mnuWindowHorizontal=Tile &Horizontal"_s, u"mnuWindowArrage=&Arrange Icons"_s,
                           u"windowOpen=Open Windows"_s}));
    EXPECT_EQ(items(u"mnuHelp"_s),
              QStringList({u"mnuHelpConetents=&Contents..."_s, u"mnuHelptechnicalSupport=Technical Su&pport..."_s,
                           u"mnuHelpAbout=&About Lapkeeper..."_s}));

    EXPECT_EQ(items(u"mnuLeague"_s),
              QStringList({u"mnuLeagueNew=New League"_s, u"mnuLeagueDesign=Update League"_s,
                           u"mnuLeagueDelete=Delete League"_s, u"mnuLeagueHelp=Help"_s}));
    EXPECT_EQ(items(u"mnuCar"_s),
              QStringList({u"mnuCarNew=New Car/Driver"_s, u"mnuCarDesign=Update Car/Driver"_s,
                           u"mnuCarDelete=Delete Car/Driver"_s, u"mnuCarHelp=Help"_s}));
    EXPECT_EQ(m_window->popupMenu(RecordKind::Scoring)->objectName(), u"mnuScoring"_s);
    EXPECT_EQ(m_window->popupMenu(RecordKind::Team)->title(), u"Team"_s);
    EXPECT_EQ(m_window->popupMenu(RecordKind::Race)->actions().constFirst()->text(), u"New Race"_s);

    QStringList keys;
    for (QToolButton* button : m_window->findChild<QToolBar*>(u"Toolbar1"_s)->findChildren<QToolButton*>())
        if (button->objectName().startsWith(u"tb"_s)) {
            keys << button->objectName();
            EXPECT_FALSE(button->icon().isNull());
            EXPECT_FALSE(button->toolTip().isEmpty());
        }
    EXPECT_EQ(keys, QStringList({u"tbLeagues"_s, u"tbTeams"_s, u"tbCars"_s, u"tbRaces"_s, u"tbScoring"_s}));
}

TEST_F(MainWindowTest, treePopupGreysUpdateAndDeleteAndOpensOnlyOnTheRecordNodes)
{
    m_tree->setCurrentItem(m_window->nodeByKey(u"Leagues"_s));
    // The right button pressed over "Teams" does not move the selection.
    rightClickNode(u"Teams"_s);
    EXPECT_EQ(frmMain::nodeKey(m_tree->currentItem()), u"Leagues"_s);

    QMenu* league = m_window->popupMenu(RecordKind::League);
    ASSERT_TRUE(league->isVisible());
    EXPECT_TRUE(action(u"mnuLeagueNew"_s)->isEnabled());
    EXPECT_FALSE(action(u"mnuLeagueDesign"_s)->isEnabled());
    EXPECT_FALSE(action(u"mnuLeagueDelete"_s)->isEnabled());
    EXPECT_TRUE(action(u"mnuLeagueHelp"_s)->isEnabled());
    EXPECT_FALSE(m_window->popupMenu(RecordKind::Team)->isVisible());
    league->hide();

    // A list pane's pop-up acts on its selected row.
    m_window->popupFromList(RecordKind::League, QPoint(10, 10));
    EXPECT_TRUE(league->isVisible());
    EXPECT_TRUE(action(u"mnuLeagueDesign"_s)->isEnabled());
    EXPECT_TRUE(action(u"mnuLeagueDelete"_s)->isEnabled());
    league->hide();

    rightClickNode(u"Teams"_s);
    EXPECT_FALSE(action(u"mnuLeagueDesign"_s)->isEnabled());
    league->hide();

    // The other record nodes open their own menus; the rest open none.
    const std::pair<const char16_t*, RecordKind> records[] = {
        {u"Teams", RecordKind::Team}, {u"Cars", RecordKind::Car},
        {u"Races", RecordKind::Race}, {u"Scoring Method", RecordKind::Scoring}};
    for (const auto& [key, kind] : records) {
        m_tree->setCurrentItem(m_window->nodeByKey(QString::fromUtf16(key)));
        rightClickNode(QString::fromUtf16(key));
        QMenu* menu = m_window->popupMenu(kind);
        EXPECT_TRUE(menu->isVisible()) << qPrintable(menu->objectName());
        EXPECT_FALSE(menu->actions().at(1)->isEnabled());
        menu->hide();
    }
    for (const QString& key : {u"Root"_s, u"Administration"_s, u"Reporting"_s, u"League Standings"_s}) {
        m_tree->setCurrentItem(m_window->nodeByKey(key));
        rightClickNode(key);
        for (RecordKind kind : {RecordKind::League, RecordKind::Team, RecordKind::Car, RecordKind::Race,
                                RecordKind::Scoring})
            EXPECT_FALSE(m_window->popupMenu(kind)->isVisible()) << qPrintable(key);
    }
}

TEST_F(MainWindowTest, viewModesMoveTheCheckMarkAndReachTheOpenPane)
{
    EXPECT_TRUE(action(u"mnuViewDetail"_s)->isChecked());
    const QStringList modes = {u"mnuViewLarge"_s, u"mnuViewSmall"_s, u"mnuViewList"_s, u"mnuViewDetail"_s};
    const int numbers[] = {1, 4, 2, 3};
    // The first two with no pane open: only the check marks and the mode change.
    auto* pane = new ViewPane;
    for (int i = 0; i < modes.size(); ++i) {
        SCOPED_TRACE(qPrintable(modes[i]));
        if (i == 2) {
            m_window->mdiArea()->addSubWindow(pane)->show();
            m_window->mdiArea()->setActiveSubWindow(m_window->mdiArea()->subWindowList().constFirst());
        }
        action(modes[i])->trigger();
        EXPECT_EQ(gViewMode, numbers[i]);
        for (const QString& name : modes)
            EXPECT_EQ(action(name)->isChecked(), name == modes[i]) << qPrintable(name);
        EXPECT_EQ(pane->calls, std::max(0, i - 1));
    }
}

TEST_F(MainWindowTest, hidingTheBarsResizesTheTreeAtOnceAndChangesTheSettings)
{
    const struct {
        QString action;
        QWidget* bar;
        const QString* setting;
    } bars[] = {{u"mnuViewToolbar"_s, m_window->findChild<QToolBar*>(u"Toolbar1"_s), &gSettings.toolBar},
                {u"mnuViewStatusbar"_s, m_window->findChild<QStatusBar*>(u"StatusBar1"_s), &gSettings.statusBar}};
    const int treeHeight = m_tree->height();
    int lastHeight = treeHeight;
    for (const auto& b : bars) {
        EXPECT_TRUE(b.bar->isVisible() && action(b.action)->isChecked());
        action(b.action)->trigger();
        EXPECT_FALSE(b.bar->isVisible() || action(b.action)->isChecked());
        EXPECT_EQ(*b.setting, u"N"_s);
        EXPECT_GT(m_tree->height(), lastHeight);
        lastHeight = m_tree->height();
    }
    for (const auto& b : bars) {
        action(b.action)->trigger();
        EXPECT_TRUE(b.bar->isVisible());
        EXPECT_EQ(*b.setting, u"Y"_s);
    }
    EXPECT_EQ(m_tree->height(), treeHeight);
}

TEST_F(MainWindowTest, layoutMainAndTheSplitterKeepTheTreeBetweenItsLimits)
{
    const int inner = m_window->innerWidth();
    ASSERT_GT(inner, 6000);
    const double dpi = m_window->logicalDpiX();

    m_window->layoutMain(3000);
    EXPECT_EQ(m_window->splitterLeft(), 3000);
    EXPECT_EQ(m_tree->width(), twipsToPixels(3000, dpi));
    EXPECT_EQ(child(u"imgSplitter"_s)->x(), m_tree->width());
    EXPECT_GT(m_window->mdiArea()->x(), m_tree->width());
    EXPECT_EQ(m_window->mdiArea()->geometry().right(), m_window->centralWidget()->width() - 1);

    m_window->layoutMain(1499);
    EXPECT_EQ(m_window->splitterLeft(), 2800);
    m_window->layoutMain(1500);
    EXPECT_EQ(m_window->splitterLeft(), 1500);
    m_window->layoutMain(inner);
    EXPECT_EQ(m_window->splitterLeft(), inner - 1500);
    // Without an argument the present edge stays.
    m_window->layoutMain();
    EXPECT_EQ(m_window->splitterLeft(), inner - 1500);

    // Dragging the splitter moves the edge within the same limits.
    m_window->layoutMain(3000);
    dragSplitter(40);
    EXPECT_EQ(m_window->splitterLeft(), 3000 + pixelsToTwips(40, dpi));
    EXPECT_EQ(m_tree->width(), twipsToPixels(m_window->splitterLeft(), dpi));

    // Far to the left the bar stops at 500 while dragged, which the layout turns into 2800.
    dragSplitter(-2000, [dpi](QWidget* bar) { EXPECT_EQ(bar->x(), twipsToPixels(500, dpi)); });
    EXPECT_EQ(m_window->splitterLeft(), 2800);

    // Far to the right it stops at the inner width less 500, and the layout takes it to less 1500.
    dragSplitter(5000);
    EXPECT_EQ(m_window->splitterLeft(), inner - 1500);
}

TEST_F(MainWindowTest, windowMenuListsTheOpenPanesAndTilesThem)
{
    QMenu* windowOpen = m_window->findChild<QMenu*>(u"windowOpen"_s);
    QMenu* windowMenu = m_window->findChild<QMenu*>(u"mnuWindow"_s);
    emit windowMenu->aboutToShow();
    EXPECT_FALSE(windowOpen->isEnabled());

    QMdiArea* area = m_window->mdiArea();
    for (const QString& title : {u"Leagues"_s, u"Teams"_s}) {
        auto* pane = new QWidget;
        pane->setWindowTitle(title);
        area->addSubWindow(pane)->show();
    }
    area->setActiveSubWindow(area->subWindowList().constLast());
    emit windowMenu->aboutToShow();
    ASSERT_TRUE(windowOpen->isEnabled());
    QStringList entries;
    for (QAction* a : windowOpen->actions())
        entries << a->text() + (a->isChecked() ? u" *"_s : QString());
    EXPECT_EQ(entries, QStringList({u"&1 Leagues"_s, u"&2 Teams *"_s}));
    windowOpen->actions().constFirst()->trigger();
    EXPECT_EQ(area->currentSubWindow()->windowTitle(), u"Leagues"_s);

    const QSize viewport = area->viewport()->size();
    action(u"mnuWindowVertical"_s)->trigger();
    const QList<QMdiSubWindow*> children = area->subWindowList();
    EXPECT_EQ(children[0]->geometry(), QRect(0, 0, viewport.width() / 2, viewport.height()));
    EXPECT_EQ(children[1]->x(), viewport.width() / 2);
    action(u"mnuWindowHorizontal"_s)->trigger();
    EXPECT_EQ(children[0]->geometry(), QRect(0, 0, viewport.width(), viewport.height() / 2));
    EXPECT_EQ(children[1]->y(), viewport.height() / 2);
}

TEST_F(MainWindowTest, commandsWithoutTheirScreenSayTheyAreNotAvailableYet)
{
    // Every report of the tree has its entry: a click opens its request screen (see the report
    // run tests) instead of a box.
    QTreeWidgetItem* reporting = m_window->nodeByKey(u"Reporting"_s);
    ASSERT_EQ(reporting->childCount(), 13);
    for (int i = 0; i < reporting->childCount(); ++i)
        EXPECT_TRUE(reportAvailable(reportIdOf(reporting->child(i)->text(0)))) << qPrintable(reporting->child(i)->text(0));
    action(u"mnuFilePublishWeb"_s)->trigger();
    EXPECT_EQ(shownBoxes(boxes()), QStringList{u"Lapkeeper [Information/Ok] Publish Web is not available yet."_s});
}

TEST_F(MainWindowTest, fileImportAsksForALkiFileImportsItAndSaysHowItWent)
{
    const QString good = gImportsPath + u"/races.lki"_s;
    const QString bad = gImportsPath + u"/bad.lki"_s;
    for (const auto& [path, text] : {std::pair{good, "12;610;\"R\";\"T\";2002-02-24;1;1\r\n"},
                                     std::pair{bad, "12;611;\"R\";\"T\";2002-03-03;1;1\r\n14;x;1;;;0;0\r\n"}}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    // Cancel ends the command without a word.
    boxes().queueFile(std::nullopt);
    action(u"mnuFileImport"_s)->trigger();
    EXPECT_TRUE(boxes().boxes().isEmpty());
    ASSERT_EQ(boxes().fileRequests().size(), 1);
    const FileDialogRequest& request = boxes().fileRequests().first();
    EXPECT_EQ(request.mode, FileDialogRequest::Mode::Open);
    EXPECT_EQ(request.title, u"Lapkeeper Import"_s);
    EXPECT_EQ(request.filter, u"Lapkeeper Import (*.lki)|*.lki|"_s);
    EXPECT_EQ(request.folder, gImportsPath);
    EXPECT_TRUE(request.fileName.isEmpty());

    boxes().queueFile(good);
    action(u"mnuFileImport"_s)->trigger();
    EXPECT_EQ(shownBoxes(boxes()), QStringList{u"Lapkeeper [None/Ok] Import Complete."_s});
    EXPECT_EQ(boxes().pointers().mid(boxes().pointers().size() - 2), (QList<int16_t>{11, 0}));
    EXPECT_EQ(m_app->count(u"races"_s, u"WHERE race_nmbr = 610"_s), 1);

    boxes().clear();
    boxes().queueFile(bad);
    action(u"mnuFileImport"_s)->trigger();
    const QStringList shown = shownBoxes(boxes());
    ASSERT_EQ(shown.size(), 2);
    EXPECT_TRUE(shown[0].startsWith(u"Lapkeeper Error [Critical/Ok] Line 2 of bad.lki could not be imported: "_s));
    EXPECT_EQ(shown[1], u"Lapkeeper [None/Ok] Import Failed."_s);
    EXPECT_EQ(m_app->count(u"races"_s, u"WHERE race_nmbr = 611"_s), 1);
    EXPECT_EQ(boxes().pointers().last(), 0);
}

#include "main_window_test.moc"
