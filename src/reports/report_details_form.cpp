#include "reports/report_details_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "reports/report_format_tab.h"
#include "reports/report_settings.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnTab = 0;
constexpr int kFormatTab = 1;
// A list item's key, "Column" followed by the column number.
constexpr int kKeyRole = Qt::UserRole;
const QString kKeyPrefix = u"Column"_s;

QTreeWidgetItem* columnItem(int16_t columnNmbr, const QString& columnName)
{
    auto* item = new QTreeWidgetItem(QStringList{columnName});
    item->setData(0, kKeyRole, kKeyPrefix + QString::number(columnNmbr));
    return item;
}

int16_t columnNmbrOf(const QTreeWidgetItem* item)
{
    return static_cast<int16_t>(item->data(0, kKeyRole).toString().mid(kKeyPrefix.size()).toInt());
}

} // namespace

frmReportDetails::frmReportDetails(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmReportDetails"_s);
    setWindowTitle(u"Report Details"_s);

    cmbReports = new QComboBox(this);
    cmbReports->setObjectName(u"cmbReports"_s);
    cmbReports->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbReports->setMinimumContentsLength(24);
    auto* lblReports = new QLabel(u"&Report:"_s, this);
    lblReports->setBuddy(cmbReports);
    auto* reportRow = new QHBoxLayout;
    reportRow->addWidget(lblReports);
    reportRow->addWidget(cmbReports);
    reportRow->addStretch();

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    auto* columnPage = new QWidget(SSTab1);
    buildColumnTab(columnPage);
    m_format = new cReportFormatTab(SSTab1);
    SSTab1->addTab(columnPage, u"Co&lumns"_s);
    SSTab1->addTab(m_format, u"&Formatting"_s);

    const cButtonRow buttons = makeButtonRow(this, {.okName = u"cmdOk"_s});
    cmdOk = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(reportRow);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(buttons.layout);

    m_screen = new cDetailScreen(this, cmdApply,
                                 {.save = [this] { return save(); },
                                  .title = [this] { return questionTitle(); },
                                  .close = [this] { QDialog::reject(); }},
                                 YesOnCancel::SaveAndStay);

    connect(cmbReports, &QComboBox::currentIndexChanged, this, &frmReportDetails::reportChanged);
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmReportDetails::tabChanged);
    connect(m_format, &cReportFormatTab::changed, this, &frmReportDetails::markChanged);
    connect(cmdApply, &QPushButton::clicked, m_screen, &cDetailScreen::apply);
    connect(cmdOk, &QPushButton::clicked, m_screen, &cDetailScreen::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &frmReportDetails::reject);
}

frmReportDetails::~frmReportDetails() = default;

void frmReportDetails::buildColumnTab(QWidget* page)
{
    lvAvailable = makeColumnList(page, u"lvAvailable"_s, u"Available Columns"_s);
    lvCurrent = makeColumnList(page, u"lvCurrent"_s, u"Current Columns"_s);
    lblAdd = new cLinkLabel(u"Add >>"_s, page);
    lblAdd->setObjectName(u"lblAdd"_s);
    lblRemove = new cLinkLabel(u"<< Remove"_s, page);
    lblRemove->setObjectName(u"lblRemove"_s);
    auto* instructions =
        new QLabel(u"Add the columns to the report in the order you want them to appear on the report."_s, page);
    instructions->setObjectName(u"lblInstructions"_s);
    instructions->setWordWrap(true);

    auto* moves = new QVBoxLayout;
    moves->addStretch();
    moves->addWidget(lblAdd, 0, Qt::AlignHCenter);
    moves->addSpacing(12);
    moves->addWidget(lblRemove, 0, Qt::AlignHCenter);
    moves->addStretch();

    auto* grid = new QGridLayout(page);
    grid->addWidget(lvAvailable, 0, 0);
    grid->addLayout(moves, 0, 1);
    grid->addWidget(lvCurrent, 0, 2);
    grid->addWidget(instructions, 1, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(0, 1);

    connect(lvAvailable, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { moveColumn(lvAvailable, lvCurrent, item); });
    connect(lvCurrent, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { moveColumn(lvCurrent, lvAvailable, item); });
    connect(lblAdd, &cLinkLabel::activated, this, &frmReportDetails::addColumn);
    connect(lblRemove, &cLinkLabel::activated, this, &frmReportDetails::removeColumn);
}

QTreeWidget* frmReportDetails::makeColumnList(QWidget* page, const QString& name, const QString& caption)
{
    auto* list = new QTreeWidget(page);
    list->setObjectName(name);
    list->setHeaderLabels({caption});
    list->setRootIsDecorated(false);
    list->setSortingEnabled(false);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->header()->setSectionsClickable(false);
    list->setMinimumWidth(200);
    return list;
}

void frmReportDetails::fill()
{
    m_filling = true;
    cReportsCollection reports;
    reports.load();
    fillNumberCombo(cmbReports, reports, [](const cReports& r) { return r.reportNmbr(); },
                    [](const cReports& r) { return r.reportName(); });
    m_reportNmbr = 0;
    m_reportName.clear();
    SSTab1->setCurrentIndex(kColumnTab);
    showTab(kColumnTab);
    m_filling = false;
}

void frmReportDetails::showWith()
{
    fill();
    exec();
}

bool frmReportDetails::active() const
{
    return isVisible() && !m_filling;
}

// The question is titled with the report's name; with none selected, with the screen's.
QString frmReportDetails::questionTitle() const
{
    return m_reportName.isEmpty() ? windowTitle() : m_reportName;
}

void frmReportDetails::markChanged()
{
    if (active())
        m_screen->markChanged();
}

void frmReportDetails::showTab(int index)
{
    const bool wasFilling = m_filling;
    m_filling = true;
    m_shownTab = index;
    if (index == kFormatTab)
        m_format->showReport(m_reportNmbr);
    else
        showColumns();
    m_screen->markSaved();
    m_filling = wasFilling;
}

void frmReportDetails::showColumns()
{
    lvAvailable->clear();
    lvCurrent->clear();
    cAvailableReportColumnsCollection available;
    available.loadNotUsed(m_reportNmbr);
    for (const cAvailableReportColumns& column : available)
        lvAvailable->addTopLevelItem(columnItem(column.columnNmbr(), column.columnName()));
    cReportColumnsCollection current;
    current.load(m_reportNmbr);
    for (const cReportColumns& column : current)
        lvCurrent->addTopLevelItem(columnItem(column.columnNmbr(), column.columnName()));
}

// Leaving a tab or a report with something unsaved: Yes saves what the open tab holds. Whatever
// the answer, the other tab or report is shown next.
void frmReportDetails::askToSave()
{
    if (!m_screen->applyEnabled())
        return;
    const Answer answer =
        messageBox(u"Do you want to save changes"_s, questionTitle(), Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Yes)
        m_screen->apply();
}

void frmReportDetails::reportChanged(int index)
{
    if (!active())
        return;
    askToSave();
    m_reportNmbr = comboNumber(cmbReports, index, 0);
    m_reportName = index >= 0 ? cmbReports->itemText(index) : QString();
    showTab(SSTab1->currentIndex());
}

void frmReportDetails::tabChanged(int index)
{
    if (!active())
        return;
    askToSave();
    showTab(index);
}

// Moves a column to the end of the other list, and selects the one that took its place, so
// that the next click moves the next column.
void frmReportDetails::moveColumn(QTreeWidget* from, QTreeWidget* to, QTreeWidgetItem* item)
{
    if (!active() || !item)
        return;
    const int row = from->indexOfTopLevelItem(item);
    if (row < 0)
        return;
    from->takeTopLevelItem(row);
    to->addTopLevelItem(item);
    to->setCurrentItem(item);
    to->scrollToItem(item);
    from->setCurrentItem(from->topLevelItem(std::min(row, from->topLevelItemCount() - 1)));
    markChanged();
}

void frmReportDetails::addColumn()
{
    moveColumn(lvAvailable, lvCurrent, lvAvailable->selectedItems().value(0));
}

void frmReportDetails::removeColumn()
{
    moveColumn(lvCurrent, lvAvailable, lvCurrent->selectedItems().value(0));
}

bool frmReportDetails::save()
{
    if (m_shownTab == kFormatTab)
        return m_format->saveReport(m_reportNmbr);
    return saveColumns();
}

// The current list in its order replaces the report's columns, all or nothing.
bool frmReportDetails::saveColumns()
{
    cReportColumnsCollection columns;
    int16_t order = 0;
    for (int i = 0; i < lvCurrent->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lvCurrent->topLevelItem(i);
        columns.Add(m_reportNmbr, columnNmbrOf(item), ++order, item->text(0));
    }
    if (columns.Count() == 0) {
        // The store keeps the old columns rather than leave a report with none; say so, or OK
        // would seem to do nothing.
        messageBox(u"A report needs at least one column. Its columns were not changed."_s, u"Lapkeeper"_s,
                   Icon::Exclamation);
        return false;
    }
    return columns.insertReportColumns();
}

void frmReportDetails::reject()
{
    m_screen->cancel();
}
