#pragma once
#include "shell/record_kinds.h"

#include <QMainWindow>
#include <QString>
#include <memory>
#include <optional>

class QAction;
class QIcon;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QStatusBar;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;
class cInstanceGuard;

// The one top-level window: the tree on the left, the draggable splitter, the pane area on the
// right (the list panes open in it as child windows), the toolbar, the status bar and the menus.
// Its load is the start of the program and its close the end.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The start of the program, in its fixed order. False when the program must end at once
    // (another copy runs, or the data file cannot be opened); nothing is written then.
    bool load();
    // True from a successful load until the end has run.
    bool isStarted() const { return m_started; }

    // The splash screen and the welcome screen are modal; tests may leave them out or shorten
    // the splash screen.
    void setStartScreensShown(bool shown) { m_startScreensShown = shown; }
    void setSplashInterval(int milliseconds) { m_splashInterval = milliseconds; }

    // Clears the tree and adds its nodes; the root and "Administration" start expanded.
    void fillTree();
    QTreeWidgetItem* nodeByKey(const QString& key) const;
    static QString nodeKey(const QTreeWidgetItem* node);
    static QString nodeTag(const QTreeWidgetItem* node);

    // Places tree, splitter and pane area; the left edge is in twips and defaults to the
    // present one. Under 1500 it becomes 2800; above the inner width less 1500 it becomes that.
    void layoutMain(std::optional<int> left = std::nullopt);
    int splitterLeft() const { return m_splitterLeft; }   // twips
    int innerWidth() const;                                // twips

    // Open (or bring up, refreshed) a list pane, maximised, and lay out the window.
    void showLeagues();
    void showTeams();
    void showCars();
    void showRaces();
    void showScoring();

    // The pop-up menu of a kind of record.
    QMenu* popupMenu(RecordKind kind) const;
    // From a list pane: Update and Delete act on its selected row, so they are enabled.
    void popupFromList(RecordKind kind, const QPoint& globalPosition);

    // The view of the list panes: 1 large icons, 2 list, 3 detail, 4 small icons.
    void setViewMode(int16_t mode);

    // The report commands: each asks on frmReportRqst what its report is to cover and runs it
    // into the report folder, opening it in the browser. A report this version lacks says so.
    void runReportPackage();
    void runRaceDetail();
    void runLeagueRaceStandings();
    void runTeamsPerCarDriver();
    void runTeamDetail();
    void runLeagueStandings();
    void runTeamCars();
    void runCarDriverPicks();
    void runCarDriverStats();
    void runRaceResults();
    void runCarDetails();
    void runTeamTrades();
    void runLeagueRaceSummary();

    QMdiArea* mdiArea() const { return m_mdiArea; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    // The toolbar is switched from the View menu only.
    QMenu* createPopupMenu() override { return nullptr; }

private:
    void createControls();
    void createMenus();
    void createPopupMenus();
    void createToolbar();
    static QIcon picture(const QString& name);
    QMenu* addMenu(const QString& name, const QString& caption);
    QAction* addItem(QMenu* menu, const QString& name, const QString& caption);

    void applyBarSettings();
    void applyWindowGeometry();
    void showInSavedState();
    void readWindowState();
    void placeControls();

    // Tree, splitter and frame input.
    void treeNodeClicked(QTreeWidgetItem* node);
    void popupFromTree(const QPoint& globalPosition);
    void preparePopup(RecordKind kind, bool rowSelected);
    bool splitterEvent(QEvent* event);
    void resetPointer();

    // Commands.
    void toolbarButton(RecordKind kind);
    void fileNew(RecordKind kind);
    void toggleToolbar(bool visible);
    void toggleStatusbar(bool visible);
    void showHelpContext(int32_t context);
    void showAbout();
    void clearPostings();
    void restoreDataFile();
    void backupDataFile();
    void fillWindowList();
    void tileChildren(Qt::Orientation orientation);
    void arrangeIcons();

    // The commands whose screens belong to other parts of the program.
    void showPane(RecordKind kind);
    void refreshPane(RecordKind kind);
    void newRecord(RecordKind kind);
    void designRecord(RecordKind kind);
    void deleteRecord(RecordKind kind);
    void requestReport(const QString& tag);
    void requestAndRunReport(const QString& reportId);
    void showImport();
    void showPublishWeb();
    void showReportDetails();
    void showRaceTypes();
    void showGroups();

    std::unique_ptr<cInstanceGuard> m_instance;
    bool m_started = false;
    bool m_startScreensShown = true;
    int m_splashInterval = 4000;
    int m_splitterLeft = 2520;   // twips
    int m_dragPosition = 0;      // twips, while the splitter is dragged
    int m_dragStartX = 0;        // global pixels
    bool m_dragging = false;

    QWidget* m_body = nullptr;
    QTreeWidget* m_tree = nullptr;
    QWidget* m_splitter = nullptr;
    QMdiArea* m_mdiArea = nullptr;
    QToolBar* m_toolbar = nullptr;
    QStatusBar* m_statusBar = nullptr;

    QAction* m_viewToolbar = nullptr;
    QAction* m_viewStatusbar = nullptr;
    QAction* m_viewLarge = nullptr;
    QAction* m_viewSmall = nullptr;
    QAction* m_viewList = nullptr;
    QAction* m_viewDetail = nullptr;
    QAction* m_webOnTheWeb = nullptr;
    QAction* m_helpAbout = nullptr;
    QMenu* m_windowMenu = nullptr;
    QMenu* m_windowOpen = nullptr;
    QMenu* m_popups[5] = {};
};

// The running program's main window, or nullptr.
frmMain* mainWindow();
