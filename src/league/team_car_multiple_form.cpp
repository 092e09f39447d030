#include "league/team_car_multiple_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car.h"
#include "league/team.h"
#include "league/team_car.h"
#include "store/dates.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QString kTitle = u"Lapkeeper"_s;
constexpr int kVisibleRows = 7;
enum Column { kCar, kEfctv, kTerm, kSalary, kGroup };
}

frmTeamCarMultiple::frmTeamCarMultiple(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmTeamCarMultiple"_s);
    setWindowTitle(u"Add Car/Driver"_s);

    m_grid = new QTableWidget(0, 5, this);
    m_grid->setObjectName(u"grdRows"_s);
    m_grid->setHorizontalHeaderLabels(
        {u"Car/Driver"_s, u"Effective Date"_s, u"Termination Date"_s, u"Salary"_s, u"Group"_s});
    m_grid->verticalHeader()->setVisible(false);
    m_grid->verticalScrollBar()->setObjectName(u"VScroll1"_s);
    m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_grid->setSelectionMode(QAbstractItemView::NoSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->setFocusPolicy(Qt::NoFocus);
    m_grid->setShowGrid(false);
    QHeaderView* header = m_grid->horizontalHeader();
    header->setSectionResizeMode(kCar, QHeaderView::Stretch);
    for (int column : {kEfctv, kTerm, kSalary, kGroup})
        header->setSectionResizeMode(column, QHeaderView::Interactive);
    const int dateWidth = fontMetrics().horizontalAdvance(u"Termination Date"_s) + 24;
    header->resizeSection(kEfctv, dateWidth);
    header->resizeSection(kTerm, dateWidth);
    header->resizeSection(kSalary, fontMetrics().horizontalAdvance(u"$9,999,999.00"_s) + 16);
    header->resizeSection(kGroup, fontMetrics().horizontalAdvance(u"Group name"_s) + 24);

    auto* note = new QLabel(u"Hit enter to add row"_s, this);
    note->setObjectName(u"lblNote"_s);

    lvwLeagues = newAvailableSalaryList(this);
    lvwLeagues->setMinimumHeight(100);

    // Enter belongs to the grid (next row); no button presses itself on it.
    const cButtonRow buttons = makeButtonRow(this, {.okIsDefault = false});
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;
    buttons.layout->insertWidget(0, note);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(m_grid, 1);
    layout->addWidget(lvwLeagues);
    layout->addLayout(buttons.layout);
    setMinimumWidth(dateWidth * 2 + 420);

    connect(cmdApply, &QPushButton::clicked, this, &frmTeamCarMultiple::applyClicked);
    connect(cmdOK, &QPushButton::clicked, this, &frmTeamCarMultiple::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmTeamCarMultiple::~frmTeamCarMultiple() = default;

void frmTeamCarMultiple::fill(cTeam& team, Currency totalSalary)
{
    m_team = &team;
    m_totalSalary = totalSalary;
    m_cars = std::make_unique<cCarCollection>();
    m_cars->load(team.raceTypeNmbr(), team.carTypeNmbr());
    setWindowTitle(u"Add Car/Driver for "_s + team.teamName());

    m_grid->setRowCount(0);
    m_rows.clear();
    m_dates = cDateFieldGuard();
    for (int i = 0; i < kVisibleRows; ++i)
        addRow();
    // Seven rows show at a time; the scroll bar reaches the rest.
    const int rowHeight = m_grid->rowHeight(0);
    m_grid->setMinimumHeight(m_grid->horizontalHeader()->sizeHint().height() + kVisibleRows * rowHeight +
                             2 * m_grid->frameWidth());
    fillAvailableSalary(lvwLeagues, team.teamNmbr(), m_totalSalary);
    m_dates.clear();
    cmdApply->setEnabled(false);
}

void frmTeamCarMultiple::showWith(cTeam& team, Currency totalSalary)
{
    fill(team, totalSalary);
    exec();
}

void frmTeamCarMultiple::addRow()
{
    const int index = static_cast<int>(m_rows.size());
    Row row;
    row.cmbCar = new QComboBox(m_grid);
    row.cmbCar->setObjectName(u"cmbCar"_s);
    fillCarChoices(row.cmbCar, *m_cars);
    auto edit = [this, index](const QString& name, bool input) {
        auto* field = new QLineEdit(m_grid);
        field->setObjectName(name);
        field->setProperty("index", index);
        if (input) {
            field->setPlaceholderText(u"yyyy-mm-dd"_s);
            selectTextOnFocus(field);
            field->installEventFilter(this);
        } else {
            field->setReadOnly(true);
            field->setFocusPolicy(Qt::NoFocus);
        }
        return field;
    };
    row.cmbCar->setProperty("index", index);
    row.cmbCar->installEventFilter(this);
    row.txtEfctvDt = edit(u"txtEfctvDt"_s, true);
    row.txtTermDt = edit(u"txtTermDt"_s, true);
    row.txtSalary = edit(u"txtSalary"_s, false);
    row.txtSalary->setAlignment(Qt::AlignRight);
    row.txtGroup = edit(u"txtGroup"_s, false);

    m_grid->insertRow(index);
    m_grid->setCellWidget(index, kCar, row.cmbCar);
    m_grid->setCellWidget(index, kEfctv, row.txtEfctvDt);
    m_grid->setCellWidget(index, kTerm, row.txtTermDt);
    m_grid->setCellWidget(index, kSalary, row.txtSalary);
    m_grid->setCellWidget(index, kGroup, row.txtGroup);
    m_grid->setRowHeight(index, row.cmbCar->sizeHint().height() + 2);

    connect(row.cmbCar, &QComboBox::activated, this, [this, index](int choice) { carActivated(index, choice); });
    // The dates of a row are only text until the save: there is no record before it.
    const int16_t raceTypeNmbr = m_team ? m_team->raceTypeNmbr() : int16_t(0);
    m_dates.add(row.txtEfctvDt, [field = row.txtEfctvDt, raceTypeNmbr] {
        return checkEffectiveDate(field, raceTypeNmbr) != DateCheck::Refused;
    });
    m_dates.add(row.txtTermDt, [this, index] {
        const Row& r = m_rows[static_cast<size_t>(index)];
        return checkTerminationDate(r.txtTermDt, r.txtEfctvDt, m_team ? m_team->teamNmbr() : int16_t(0),
                                    carOf(index)) != DateCheck::Refused;
    });
    m_rows.push_back(row);
}

int16_t frmTeamCarMultiple::carOf(int row) const
{
    const QComboBox* combo = m_rows[static_cast<size_t>(row)].cmbCar;
    return combo->currentIndex() < 0 ? int16_t(0) : static_cast<int16_t>(combo->currentData().toInt());
}

void frmTeamCarMultiple::carActivated(int row, int index)
{
    if (index < 0)
        return;
    const int16_t carNmbr = carOf(row);
    Row& r = m_rows[static_cast<size_t>(row)];
    r.txtGroup->setText(m_cars->getCarGroupDisplay(carNmbr));
    r.txtSalary->setText(m_cars->getCarSalary(carNmbr).toCurrencyText());
    cmdApply->setEnabled(true);
}

int frmTeamCarMultiple::rowOf(QObject* widget) const
{
    const QVariant index = widget->property("index");
    return index.isValid() ? index.toInt() : -1;
}

bool frmTeamCarMultiple::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int row = rowOf(watched);
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && row >= 0) {
            moveToNextRow(row);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmTeamCarMultiple::moveToNextRow(int row)
{
    if (row + 1 >= rowCount())
        addRow();
    const Row& next = m_rows[static_cast<size_t>(row + 1)];
    m_grid->scrollTo(m_grid->model()->index(row + 1, kCar));
    next.cmbCar->setFocus(Qt::OtherFocusReason);
}

bool frmTeamCarMultiple::saveRows()
{
    double sum = 0;
    for (int i = 0; i < rowCount(); ++i) {
        const Row& row = m_rows[static_cast<size_t>(i)];
        if (row.cmbCar->currentIndex() < 0)
            continue;   // a date without a car is ignored
        if (!isDate(row.txtEfctvDt->text().trimmed())) {
            messageBox(u"Effective date is required"_s, kTitle);
            m_grid->scrollTo(m_grid->model()->index(i, kEfctv));
            row.txtEfctvDt->setFocus(Qt::OtherFocusReason);
            return false;
        }
        Currency salary;
        if (!Currency::parse(row.txtSalary->text(), salary))
            throw cRuntimeError::typeMismatch();
        sum += salary.toDouble();
    }
    // The sum against every league, a league without a cap included; nothing written yet.
    for (int i = 0; i < lvwLeagues->topLevelItemCount(); ++i) {
        Currency available;
        if (!Currency::parse(lvwLeagues->topLevelItem(i)->text(1), available))
            throw cRuntimeError::typeMismatch();
        if (available.toDouble() < sum) {
            messageBox(u"Adding these cars/drivers will exceed at least one leagues salary cap."_s, kTitle);
            return false;
        }
    }
    for (int i = 0; i < rowCount(); ++i) {
        const Row& row = m_rows[static_cast<size_t>(i)];
        if (row.cmbCar->currentIndex() < 0)
            continue;
        Currency salary;
        Currency::parse(row.txtSalary->text(), salary);
        cTeamCar entry;
        entry.setCarNmbr(carOf(i));
        entry.setEfctvDt(row.txtEfctvDt->text());
        entry.setLockedSalary(salary.toDouble());
        entry.setTeamNmbr(m_team->teamNmbr());
        entry.setTermDt(row.txtTermDt->text());   // empty unless the text is a date
        if (!entry.insertRow())
            return false;
    }
    return true;
}

void frmTeamCarMultiple::applyClicked()
{
    if (m_dates.settle())
        saveRows();
}

void frmTeamCarMultiple::okClicked()
{
    if (m_dates.settle() && saveRows())
        accept();
}
