#include "shell/main_window.h"
// The presenter's header has inline members that need these two classes complete.
#include <QLabel>
#include <QProgressBar>

#include "base/app_globals.h"
#include "base/messages.h"
#include "shell/gui_presenter.h"
#include "shell/settings.h"
#include "shell/splash_form.h"
#include "shell/startup.h"
#include "shell/welcome_form.h"

#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStatusBar>
#include <QStyleOption>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

using namespace Qt::StringLiterals;

namespace {

frmMain* gMainWindow = nullptr;

constexpr int kKeyRole = Qt::UserRole;
constexpr int kTagRole = Qt::UserRole + 1;
constexpr int kSplitterPixels = 5;

// The bar between tree and panes, drawn as the style draws a splitter handle.
class SplitterBar : public QWidget {
public:
    explicit SplitterBar(QWidget* parent) : QWidget(parent)
    {
        setCursor(Qt::SplitHCursor);
        setAttribute(Qt::WA_Hover);
    }
    void setDragging(bool dragging)
    {
        m_dragging = dragging;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (m_dragging) {
            painter.fillRect(rect(), palette().color(QPalette::Dark));
            return;
        }
        QStyleOption option;
        option.initFrom(this);
        option.state |= QStyle::State_Horizontal;
        style()->drawControl(QStyle::CE_Splitter, &option, &painter, this);
    }

private:
    bool m_dragging = false;
};

struct TreeNode {
    const char16_t* text;
    const char16_t* key;
    const char16_t* parent;
    const char16_t* tag;
    const char16_t* image;
};

// The nodes in the order they are added; a report node's key is its text.
const TreeNode kTreeNodes[] = {
    {u"Lapkeeper", u"Root", nullptr, nullptr, u"imgTire"},
    {u"Administration", u"Administration", u"Root", u"ADMINISTRATION ROOT", u"imgAdministration"},
    {u"Leagues", u"Leagues", u"Administration", u"LEAGUES ROOT", u"imgLeagues"},
    {u"Teams", u"Teams", u"Administration", u"TEAMS ROOT", u"imgTeams"},
    {u"Cars/Drivers", u"Cars", u"Administration", u"CARS ROOT", u"imgCars"},
    {u"Races", u"Races", u"Administration", u"RACES ROOT", u"imgRaces"},
    {u"Scoring Method", u"Scoring Method", u"Administration", u"SCORING ROOT", u"imgScoring"},
    {u"Reporting", u"Reporting", u"Root", u"REPORTING ROOT", u"imgReporting"},
    {u"Report Package", u"Report Package", u"Reporting", u"REPORT PACKAGE", u"imgReporting"},
    {u"Race Detail", u"Race Detail", u"Reporting", u"RACE DETAIL", u"imgReporting"},
    {u"Team Detail", u"Team Detail", u"Reporting", u"TEAM DETAIL", u"imgReporting"},
    {u"League Race Summary", u"League Race Summary", u"Reporting", u"LEAGUE RACE SUMMARY", u"imgReporting"},
    {u"League Standings", u"League Standings", u"Reporting", u"LEAGUE STANDINGS", u"imgReporting"},
    {u"League Race Standings", u"League Race Standings", u"Reporting", u"LEAGUE RACE STANDINGS", u"imgReporting"},
    {u"Team Cars", u"Team Cars", u"Reporting", u"TEAM CARS", u"imgReporting"},
    {u"Car Details", u"Car Details", u"Reporting", u"CAR DETAILS", u"imgReporting"},
    {u"Race Results", u"Race Results", u"Reporting", u"RACE RESULTS", u"imgReporting"},
    {u"Car/Driver Stats", u"Car/Driver Stats", u"Reporting", u"CAR/DRIVER STATS", u"imgReporting"},
    {u"Team Trades", u"Team Trades", u"Reporting", u"TEAM TRADES", u"imgReporting"},
    {u"Car/Driver Picks", u"Car/Driver Picks", u"Reporting", u"CAR PICKS", u"imgReporting"},
    {u"Teams per Car/Driver", u"Teams per Car/Driver", u"Reporting", u"TEAMS CAR/DRIVER", u"imgReporting"},
};

// The tags of the report nodes, in the order the click routing tests them.
const char16_t* const kReportTags[] = {
    u"REPORT PACKAGE", u"RACE DETAIL",      u"TEAM DETAIL",      u"LEAGUE STANDINGS",
    u"LEAGUE RACE SUMMARY", u"TEAM CARS",   u"LEAGUE RACE STANDINGS", u"CAR DETAILS",
    u"RACE RESULTS",   u"CAR/DRIVER STATS", u"TEAM TRADES",      u"CAR PICKS",
    u"TEAMS CAR/DRIVER",
};

int settingNumber(const QString& value)
{
    return qRound(value.trimmed().toDouble());
}

// Saved positions must fit the settings' five characters and 16 bits.
QString twipsSetting(int twips)
{
    return QString::number(qBound(-9999, twips, 32767));
}

} // namespace

frmMain* mainWindow()
{
    return gMainWindow;
}

QIcon frmMain::picture(const QString& name)
{
    return QIcon(u":/images/"_s + name + u".svg"_s);
}

frmMain::frmMain(QWidget* parent) : QMainWindow(parent)
{
    gMainWindow = this;
    setObjectName(u"frmMain"_s);
    setWindowTitle(kProductName);
    setWindowIcon(picture(u"lapkeeper"_s));
    createControls();
    createToolbar();
    createMenus();
    createPopupMenus();
}

frmMain::~frmMain()
{
    if (gMainWindow == this)
        gMainWindow = nullptr;
}

void frmMain::createControls()
{
    m_body = new QWidget(this);
    m_body->setObjectName(u"mainBody"_s);
    m_body->setMouseTracking(true);
    setCentralWidget(m_body);

    m_tree = new QTreeWidget(m_body);
    m_tree->setObjectName(u"sstreemain"_s);
    m_tree->setHeaderHidden(true);
    m_tree->setColumnCount(1);
    m_tree->setIconSize(QSize(16, 16));
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    // A narrow tree scrolls sideways rather than cutting the node texts short.
    m_tree->setTextElideMode(Qt::ElideNone);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_tree->viewport()->setMouseTracking(true);
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* node) { treeNodeClicked(node); });

    m_splitter = new SplitterBar(m_body);
    m_splitter->setObjectName(u"imgSplitter"_s);

    m_mdiArea = new QMdiArea(m_body);
    m_mdiArea->setObjectName(u"mdiPanes"_s);
    m_mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdiArea->viewport()->setMouseTracking(true);

    m_statusBar = new QStatusBar(this);
    m_statusBar->setObjectName(u"StatusBar1"_s);
    setStatusBar(m_statusBar);

    // Watched only once every control exists.
    m_body->installEventFilter(this);
    m_tree->installEventFilter(this);
    m_tree->viewport()->installEventFilter(this);
    m_splitter->installEventFilter(this);
    m_mdiArea->viewport()->installEventFilter(this);
}

// ---------------------------------------------------------------- start and end

bool frmMain::load()
{
    if (auto* gui = dynamic_cast<GuiPresenter*>(&presenter()))
        gui->setStatusBar(m_statusBar);
    setStatusText(u"Loading"_s);

    m_instance = std::make_unique<cInstanceGuard>();
    if (!m_instance->acquire()) {
        showStopMessage(u"You cannot start more than one copy of Lapkeeper."_s);
        return false;
    }

    prepareApplicationFolder();
    // The help routines find the manual beside the program by themselves.
    loadSettings();
    applyBarSettings();

    m_helpAbout->setText(u"&About "_s + kProductName + u"..."_s);
    m_webOnTheWeb->setText(kProductName + u" on the &Web"_s);
    setWindowTitle(kProductName);

    applyWindowGeometry();

    if (!openOrCreateDatabase())
        return false;
    showInSavedState();
    m_started = true;

    fillTree();

    if (m_startScreensShown) {
        frmSplash splash(this);
        splash.setStartInterval(m_splashInterval);
        splash.exec();
        if (gSettings.firstTime == u"Y"_s) {
            frmWelcome welcome(this);
            welcome.exec();
        }
    }

    setMousePointer(kPointerDefault);
    setStatusText(u"Status"_s);
    return true;
}

void frmMain::applyBarSettings()
{
    toggleToolbar(gSettings.toolBar == u"Y"_s);
    toggleStatusbar(gSettings.statusBar == u"Y"_s);
}

void frmMain::applyWindowGeometry()
{
    const double dpiX = logicalDpiX();
    const double dpiY = logicalDpiY();
    resize(twipsToPixels(settingNumber(gSettings.mdiWidth), dpiX),
           twipsToPixels(settingNumber(gSettings.mdiHeight), dpiY));
    move(twipsToPixels(settingNumber(gSettings.mdiLeft), dpiX), twipsToPixels(settingNumber(gSettings.mdiTop), dpiY));
    m_splitterLeft = settingNumber(gSettings.splitterLeft);
}

void frmMain::showInSavedState()
{
    switch (settingNumber(gSettings.mdiState)) {
    case 1: showMinimized(); break;
    case 2: showMaximized(); break;
    default: showNormal(); break;
    }
    layoutMain();
}

void frmMain::readWindowState()
{
    const int state = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    gSettings.mdiState = QString::number(state);
    if (state == 0) {
        const double dpiX = logicalDpiX();
        const double dpiY = logicalDpiY();
        gSettings.mdiHeight = twipsSetting(pixelsToTwips(height(), dpiY));
        gSettings.mdiWidth = twipsSetting(pixelsToTwips(width(), dpiX));
        gSettings.mdiTop = twipsSetting(pixelsToTwips(y(), dpiY));
        gSettings.mdiLeft = twipsSetting(pixelsToTwips(x(), dpiX));
    }
    gSettings.splitterLeft = twipsSetting(m_splitterLeft);
    // A program closed while minimised comes back normal.
    if (state == 1)
        gSettings.mdiState = u"0"_s;
}

void frmMain::closeEvent(QCloseEvent* event)
{
    // A start that failed, or an end that already ran, writes nothing.
    if (m_started) {
        m_started = false;
        readWindowState();
        finishRun();
    }
    event->accept();
}

// ---------------------------------------------------------------- tree

void frmMain::fillTree()
{
    m_tree->clear();
    for (const TreeNode& node : kTreeNodes) {
        QTreeWidgetItem* parent = node.parent ? nodeByKey(kindText(node.parent)) : nullptr;
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_tree);
        item->setText(0, kindText(node.text));
        item->setData(0, kKeyRole, kindText(node.key));
        item->setData(0, kTagRole, kindText(node.tag));
        item->setIcon(0, picture(kindText(node.image)));
        QFont font = item->font(0);
        font.setBold(true);
        item->setFont(0, font);
    }
    nodeByKey(u"Root"_s)->setExpanded(true);
    nodeByKey(u"Administration"_s)->setExpanded(true);
}

QTreeWidgetItem* frmMain::nodeByKey(const QString& key) const
{
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if (nodeKey(*it) == key)
            return *it;
    }
    return nullptr;
}

QString frmMain::nodeKey(const QTreeWidgetItem* node)
{
    return node ? node->data(0, kKeyRole).toString() : QString();
}

QString frmMain::nodeTag(const QTreeWidgetItem* node)
{
    return node ? node->data(0, kTagRole).toString() : QString();
}

void frmMain::treeNodeClicked(QTreeWidgetItem* node)
{
    const QString tag = nodeTag(node).toUpper();
    for (const RecordKindInfo& info : kRecordKinds) {
        if (tag == kindText(info.rootTag)) {
            showPane(info.kind);
            layoutMain();
            return;
        }
    }
    for (const char16_t* reportTag : kReportTags) {
        if (tag == kindText(reportTag)) {
            requestReport(tag);
            break;
        }
    }
    layoutMain();
}

void frmMain::popupFromTree(const QPoint& globalPosition)
{
    const QString tag = nodeTag(m_tree->currentItem()).toUpper();
    for (const RecordKindInfo& info : kRecordKinds) {
        if (tag == kindText(info.rootTag)) {
            // A tree node has no row to update or delete.
            preparePopup(info.kind, false);
            popupMenu(info.kind)->popup(globalPosition);
            return;
        }
    }
}

void frmMain::popupFromList(RecordKind kind, const QPoint& globalPosition)
{
    preparePopup(kind, true);
    popupMenu(kind)->popup(globalPosition);
}

void frmMain::preparePopup(RecordKind kind, bool rowSelected)
{
    const QString name = kindText(recordKindInfo(kind).menu);
    QMenu* menu = popupMenu(kind);
    menu->findChild<QAction*>(name + u"Design"_s)->setEnabled(rowSelected);
    menu->findChild<QAction*>(name + u"Delete"_s)->setEnabled(rowSelected);
}

QMenu* frmMain::popupMenu(RecordKind kind) const
{
    return m_popups[static_cast<int>(kind)];
}

// ---------------------------------------------------------------- layout and splitter

int frmMain::innerWidth() const
{
    return pixelsToTwips(m_body->width(), logicalDpiX());
}

void frmMain::layoutMain(std::optional<int> left)
{
    int value = left.value_or(m_splitterLeft);
    // Before the window shows, its inner width means nothing: keep the value for the first layout.
    if (!isVisible()) {
        m_splitterLeft = value;
        return;
    }
    const int inner = innerWidth();
    if (value < 1500)
        value = 2800;
    if (value > inner - 1500)
        value = inner - 1500;
    m_splitterLeft = value;
    placeControls();
}

void frmMain::placeControls()
{
    const int treeWidth = qMax(0, twipsToPixels(m_splitterLeft, logicalDpiX()));
    const int height = m_body->height();
    m_tree->setGeometry(0, 0, treeWidth, height);
    m_splitter->setGeometry(treeWidth, 0, kSplitterPixels, height);
    const int panesLeft = treeWidth + kSplitterPixels;
    m_mdiArea->setGeometry(panesLeft, 0, qMax(0, m_body->width() - panesLeft), height);
}

bool frmMain::splitterEvent(QEvent* event)
{
    auto* bar = static_cast<SplitterBar*>(m_splitter);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton)
            return false;
        m_dragging = true;
        m_dragStartX = qRound(mouse->globalPosition().x());
        m_dragPosition = m_splitterLeft;
        bar->setDragging(true);
        bar->raise();
        return true;
    }
    case QEvent::MouseMove: {
        if (!m_dragging)
            return false;
        auto* mouse = static_cast<QMouseEvent*>(event);
        const double dpi = logicalDpiX();
        const int moved = pixelsToTwips(qRound(mouse->globalPosition().x()) - m_dragStartX, dpi);
        m_dragPosition = qBound(500, m_splitterLeft + moved, qMax(500, innerWidth() - 500));
        m_splitter->move(twipsToPixels(m_dragPosition, dpi), 0);
        return true;
    }
    case QEvent::MouseButtonRelease: {
        if (!m_dragging)
            return false;
        m_dragging = false;
        bar->setDragging(false);
        layoutMain(m_dragPosition);
        return true;
    }
    default:
        return false;
    }
}

void frmMain::resetPointer()
{
    if (mousePointer() != kPointerDefault)
        setMousePointer(kPointerDefault);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_splitter)
        return splitterEvent(event);
    if (event->type() == QEvent::MouseMove &&
        (watched == m_body || watched == m_tree->viewport() || watched == m_mdiArea->viewport()))
        resetPointer();
    if (watched == m_body && event->type() == QEvent::Resize) {
        layoutMain();
        return false;
    }
    if (watched == m_tree->viewport()) {
        // The right button does not move the selection: its menu belongs to the node last selected.
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
            if (static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
                return true;
        } else if (event->type() == QEvent::MouseButtonRelease) {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::RightButton) {
                popupFromTree(mouse->globalPosition().toPoint());
                return true;
            }
        } else if (event->type() == QEvent::ContextMenu) {
            return true;
        }
    }
    if (watched == m_tree && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            treeNodeClicked(m_tree->currentItem());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}
