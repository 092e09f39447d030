#include "shell/display_pane.h"
#include "base/app_globals.h"
#include "shell/gui_record_commands.h"
#include "shell/main_window.h"
#include "shell/startup.h"

#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {


QIcon kindPicture(RecordKind kind)
{
    return QIcon(u":/images/"_s + kindText(recordKindInfo(kind).image) + u".svg"_s);
}

} // namespace

cDisplayPane::cDisplayPane(RecordKind kind, const QString& name, const QString& caption, QWidget* parent)
    : QWidget(parent), m_kind(kind)
{
    setObjectName(name);
    setWindowTitle(caption);
    setWindowIcon(kindPicture(kind));

    m_list = new QTreeWidget(this);
    m_list->setObjectName(u"lvwDisplay"_s);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setIconSize(QSize(16, 16));
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionsClickable(true);
    m_list->header()->setSortIndicatorShown(false);
    m_list->header()->setSectionsMovable(false);
    connect(m_list->header(), &QHeaderView::sectionClicked, this, &cDisplayPane::headerClicked);
    connect(m_list, &QTreeWidget::itemClicked, this, [this] { rowChosen(); });

    // The icon and list views show the same rows and share their selection.
    m_icons = new QListView(this);
    m_icons->setObjectName(u"lvwDisplayIcons"_s);
    m_icons->setModel(m_list->model());
    m_icons->setSelectionModel(m_list->selectionModel());
    m_icons->setSelectionMode(QAbstractItemView::SingleSelection);
    m_icons->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setWrapping(true);
    m_icons->setMovement(QListView::Static);
    m_icons->hide();
    connect(m_icons, &QListView::clicked, this, [this] { rowChosen(); });

    watch(m_list);
    watch(m_icons);

    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(4, 4, 4, 4);
    m_layout->addWidget(m_list, 1);
    m_layout->addWidget(m_icons, 1);
    resize(640, 400);
}

cDisplayPane::~cDisplayPane()
{
    qDeleteAll(m_retiredRows);
}

void cDisplayPane::watch(QWidget* view)
{
    view->installEventFilter(this);
    static_cast<QAbstractScrollArea*>(view)->viewport()->installEventFilter(this);
}

// ---------------------------------------------------------------- rows

void cDisplayPane::beginFill(std::span<const cPaneColumn> columns)
{
    m_list->setUpdatesEnabled(false);
    // The rows of the last fill are deleted on the next pass of the event loop: a refresh may run
    // inside the list's own handling of a click, which reads the clicked row once more after it.
    const QList<QTreeWidgetItem*> taken = m_list->invisibleRootItem()->takeChildren();
    if (!taken.isEmpty()) {
        if (m_retiredRows.isEmpty())
            QTimer::singleShot(0, this, [this] {
                qDeleteAll(m_retiredRows);
                m_retiredRows.clear();
            });
        m_retiredRows += taken;
    }
    QStringList headers;
    for (const cPaneColumn& column : columns)
        headers << kindText(column.header);
    m_list->setColumnCount(static_cast<int>(headers.size()));
    m_list->setHeaderLabels(headers);
    const double dpi = logicalDpiX();
    int firstVisible = -1;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const bool hidden = columns[i].twips == 0;
        m_list->setColumnHidden(i, hidden);
        if (!hidden) {
            m_list->setColumnWidth(i, twipsToPixels(columns[i].twips, dpi));
            if (firstVisible < 0)
                firstVisible = i;
        }
    }
    // The icon and list views name a row by its first visible column.
    m_icons->setModelColumn(qMax(0, firstVisible));
}

QTreeWidgetItem* cDisplayPane::addRow(const QStringList& texts, bool selected)
{
    auto* row = new QTreeWidgetItem(m_list, texts);
    row->setIcon(m_icons->modelColumn(), windowIcon());
    if (selected) {
        m_list->setCurrentItem(row);
        row->setSelected(true);
    }
    return row;
}

void cDisplayPane::endFill(bool selectFirst)
{
    m_list->setUpdatesEnabled(true);
    applySort();
    setView();
    showForm();
    if (m_list->topLevelItemCount() == 0)
        return;
    if (selectFirst) {
        QTreeWidgetItem* first = m_list->topLevelItem(0);
        m_list->setCurrentItem(first);
        first->setSelected(true);
    }
    if (QTreeWidgetItem* row = selectedRow()) {
        m_list->scrollToItem(row);
        m_icons->scrollTo(m_list->indexFromItem(row, m_icons->modelColumn()));
    }
}

QTreeWidgetItem* cDisplayPane::selectedRow() const
{
    const QList<QTreeWidgetItem*> rows = m_list->selectedItems();
    return rows.isEmpty() ? nullptr : rows.constFirst();
}

// ---------------------------------------------------------------- view, sort, window

void cDisplayPane::setView()
{
    QListView::ViewMode mode = QListView::ListMode;
    QListView::Flow flow = QListView::TopToBottom;
    int iconSize = 16;
    switch (gViewMode) {
    case 1:
        mode = QListView::IconMode;
        flow = QListView::LeftToRight;
        iconSize = 32;
        break;
    case 2:
        break;
    case 4:
        flow = QListView::LeftToRight;
        break;
    default:
        m_icons->hide();
        m_list->show();
        return;
    }
    m_icons->setViewMode(mode);
    m_icons->setFlow(flow);
    m_icons->setWrapping(true);
    m_icons->setIconSize(QSize(iconSize, iconSize));
    m_icons->setGridSize(mode == QListView::IconMode ? QSize(120, 64) : QSize());
    m_icons->setSpacing(mode == QListView::IconMode ? 0 : 2);
    m_icons->setWordWrap(mode == QListView::IconMode);
    m_list->hide();
    m_icons->show();
}

// A header click orders the rows by that column's text, ascending; a second click keeps it so.
void cDisplayPane::headerClicked(int column)
{
    m_sortHeader = column;
    m_sortColumn = sortKeyFor(column);
    applySort();
}

void cDisplayPane::applySort()
{
    if (m_sortColumn < 0 || m_sortColumn >= m_list->columnCount())
        return;
    m_list->sortItems(m_sortColumn, Qt::AscendingOrder);
    m_list->header()->setSortIndicatorShown(true);
    m_list->header()->setSortIndicator(m_sortHeader, Qt::AscendingOrder);
}

void cDisplayPane::showForm()
{
    frmMain* main = mainWindow();
    if (!m_subWindow && main) {
        m_subWindow = main->mdiArea()->addSubWindow(this);
        m_subWindow->setWindowIcon(windowIcon());
        m_subWindow->setObjectName(objectName() + u"Window"_s);
    }
    if (!m_subWindow && !parentWidget())
        setAttribute(Qt::WA_DeleteOnClose);
    QWidget* window = m_subWindow ? static_cast<QWidget*>(m_subWindow) : this;
    if (!window->isVisible())
        window->show();
    if (m_subWindow)
        main->mdiArea()->setActiveSubWindow(m_subWindow);
}

void cDisplayPane::maximise()
{
    if (m_subWindow && !m_subWindow->isMaximized())
        m_subWindow->showMaximized();
}

// ---------------------------------------------------------------- keys and mouse

void cDisplayPane::runCommand(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: designRecordCommand(m_kind); break;
    case Qt::Key_Insert: newRecordCommand(m_kind); break;
    case Qt::Key_Delete: deleteRecordCommand(m_kind); break;
    default: return;
    }
    if (frmMain* main = mainWindow())
        main->layoutMain();
}

bool cDisplayPane::eventFilter(QObject* watched, QEvent* event)
{
    const bool view = watched == m_list || watched == m_icons;
    const bool viewport = watched == m_list->viewport() || watched == m_icons->viewport();
    switch (event->type()) {
    case QEvent::KeyPress:
        if (view) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Insert || key == Qt::Key_Delete) {
                runCommand(key);
                return true;
            }
        }
        break;
    case QEvent::KeyRelease:
        if (view) {
            auto* keyEvent = static_cast<QKeyEvent*>(event);
            if (!keyEvent->isAutoRepeat() && (keyEvent->key() == Qt::Key_Up || keyEvent->key() == Qt::Key_Down))
                rowChosen();
        }
        break;
    case QEvent::MouseButtonDblClick:
        if (viewport && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            runCommand(Qt::Key_Return);
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (viewport && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
            if (frmMain* main = mainWindow())
                main->popupFromList(m_kind, static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
            return true;
        }
        break;
    case QEvent::ContextMenu:
        // The pop-up opens on the release of the right button.
        return viewport || view;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
