#include "league/team_car_form.h"
#include "base/date_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car.h"
#include "league/group.h"
#include "league/league.h"
#include "league/team.h"
#include "league/team_car.h"
#include "racing/races.h"
#include "racing/team_results.h"
#include "store/dates.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QString kTitle = u"Lapkeeper"_s;
constexpr int kLeagueRole = Qt::UserRole;

// Dates are compared as sortable texts, as the roster rules have always done.
QString sortable(const QDate& date)
{
    return date.toString(u"yyyy/MM/dd"_s);
}

bool refuseDate(const QString& message)
{
    messageBox(message, kTitle, Icon::Critical);
    return false;
}
}

DateCheck checkEffectiveDate(QLineEdit* field, int16_t raceTypeNmbr)
{
    const QDate typed = parseDate(field->text().trimmed());
    if (!typed.isValid()) {
        if (field->text().trimmed().isEmpty())
            return DateCheck::Empty;
        refuseDate(u"Invalid Entry"_s);
        return DateCheck::Refused;
    }
    field->setText(shortDate(typed));
    // An entry may only begin after the last day on which any league of the series was scored.
    cRacesCollection posted;
    posted.loadMostCurrentRaceWithPostedResults(raceTypeNmbr);
    for (const cRaces& race : posted) {
        if (sortable(race.raceDate()) >= sortable(typed)) {
            refuseDate(u"Results have been posted for races after this date.\n"_s
                       u"This Car/Driver must be made effective after "_s +
                       shortDate(race.raceDate()) + u"."_s);
            return DateCheck::Refused;
        }
    }
    return DateCheck::Accepted;
}

DateCheck checkTerminationDate(QLineEdit* field, const QLineEdit* efctvField, int16_t teamNmbr, int16_t carNmbr)
{
    const QDate typed = parseDate(field->text().trimmed());
    if (!typed.isValid()) {
        if (field->text().trimmed().isEmpty())
            return DateCheck::Empty;
        refuseDate(u"Invalid Entry"_s);
        return DateCheck::Refused;
    }
    field->setText(shortDate(typed));
    // The scored race's own day is refused too: the termination day no longer counts.
    cTeamResultsCollection results;
    if (results.resultsForCarExistsAfterDate(teamNmbr, carNmbr, typed)) {
        refuseDate(u"Car has been scored for this Team beyond this date.\n"_s
                   u"Termination date must be set beyond latest scored race."_s);
        return DateCheck::Refused;
    }
    const QDate efctv = parseDate(efctvField->text().trimmed());
    if (efctv.isValid() && sortable(typed) < sortable(efctv)) {
        refuseDate(u"Termination Date must be greater then Effective Date"_s);
        return DateCheck::Refused;
    }
    return DateCheck::Accepted;
}

QTreeWidget* newAvailableSalaryList(QWidget* parent)
{
    auto* list = new QTreeWidget(parent);
    list->setObjectName(u"lvwLeagues"_s);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setHeaderLabels({u"League Name"_s, u"Available Salary"_s});
    list->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setFocusPolicy(Qt::NoFocus);
    return list;
}

void fillAvailableSalary(QTreeWidget* lvwLeagues, int16_t teamNmbr, Currency totalSalary)
{
    lvwLeagues->clear();
    cLeagueCollection leagues;
    leagues.loadForTeam(teamNmbr);
    for (const cLeague& league : leagues) {
        // One payroll, held against each league's own cap; a league without a cap shows 0.
        const Currency available = league.salaryCap() != Currency() ? league.salaryCap() - totalSalary : Currency();
        auto* row = new QTreeWidgetItem(lvwLeagues, {league.leagueName(), available.toCurrencyText()});
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        row->setData(0, kLeagueRole, static_cast<int>(league.leagueNmbr()));
    }
}

void fillCarChoices(QComboBox* combo, cCarCollection& cars)
{
    combo->clear();
    for (const cCar& car : cars)
        combo->addItem(car.carTypeNmbr() == 2 ? car.driverName() : car.carTxt(), static_cast<int>(car.carNmbr()));
    combo->setCurrentIndex(-1);
}

std::optional<QDate> pickDateWithCalendar(QWidget* parent, const QDate& start)
{
    frmDate calendar(parent);
    calendar.setSelectedDate(start.isValid() ? start : QDate::currentDate());
    calendar.exec();
    if (!calendar.dateChosen())
        return std::nullopt;
    return calendar.selectedDate();
}

// ---- cDateFieldGuard ----

void cDateFieldGuard::add(QLineEdit* field, std::function<bool()> check)
{
    auto state = std::make_shared<Field>();
    state->edit = field;
    state->validator = cValidateOnLeave::install(field, [state, check = std::move(check)] {
        const bool ok = check();   // may rewrite the text, which marks it pending again
        state->pending = !ok;
        state->refused = !ok;
        return ok;
    });
    QObject::connect(field, &QLineEdit::textChanged, field, [state] {
        if (state->edit && state->edit->isVisible()) {
            state->pending = true;
            state->refused = false;
        }
    });
    m_fields.push_back(std::move(state));
}

bool cDateFieldGuard::settle()
{
    for (const auto& field : m_fields) {
        if (!field->edit || !field->pending)
            continue;
        if (field->refused)
            return false;
        if (!field->validator->validateNow())
            return false;
    }
    return true;
}

void cDateFieldGuard::clear()
{
    for (const auto& field : m_fields) {
        field->pending = false;
        field->refused = false;
    }
}

// ---- frmTeamCar ----

frmTeamCar::frmTeamCar(QWidget* parent)
    : QDialog(parent), m_pickDate([this](const QDate& start) { return pickDateWithCalendar(this, start); })
{
    setObjectName(u"frmTeamCar"_s);
    setWindowTitle(u"Add Car/Driver"_s);

    cmbCarTxt = new QComboBox(this);
    cmbCarTxt->setObjectName(u"cmbCarTxt"_s);
    cmbCarTxt->setMinimumContentsLength(16);
    cmbCarTxt->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

    auto dateField = [this](const QString& name, const QString& buttonName, QLineEdit*& edit, QToolButton*& button) {
        edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setPlaceholderText(u"yyyy-mm-dd"_s);
        selectTextOnFocus(edit);
        button = new QToolButton(this);
        button->setObjectName(buttonName);
        button->setIcon(QIcon::fromTheme(u"x-office-calendar"_s));
        button->setText(u"..."_s);
        button->setToolTip(u"Choose a date"_s);
        auto* row = new QHBoxLayout;
        row->setSpacing(4);
        row->addWidget(edit, 1);
        row->addWidget(button);
        return row;
    };
    QLayout* efctvRow = dateField(u"txtEfctvDt"_s, u"cmdEfctvDate"_s, txtEfctvDt, cmdEfctvDate);
    QLayout* termRow = dateField(u"txtTermDt"_s, u"cmdTermDate"_s, txtTermDt, cmdTermDate);

    auto display = [this](const QString& name) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setReadOnly(true);
        edit->setFocusPolicy(Qt::NoFocus);
        return edit;
    };
    txtSalary = display(u"txtSalary"_s);
    txtSalary->setAlignment(Qt::AlignRight);
    txtGroup = display(u"txtGroup"_s);

    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(u"Car/Driver:"_s, cmbCarTxt);
    form->addRow(u"Effective Date:"_s, efctvRow);
    form->addRow(u"Termination Date:"_s, termRow);
    form->addRow(u"Salary:"_s, txtSalary);
    form->addRow(u"Group:"_s, txtGroup);

    auto* note = new QLabel(
        u"Make sure effective date is prior to the date of the first race this car/driver is to be activated for."_s,
        this);
    note->setObjectName(u"lblNote"_s);
    note->setWordWrap(true);

    lvwLeagues = newAvailableSalaryList(this);
    lvwLeagues->setMinimumHeight(110);

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addWidget(lvwLeagues, 1);
    layout->addLayout(buttons.layout);
    setMinimumWidth(420);

    connect(cmbCarTxt, &QComboBox::activated, this, &frmTeamCar::carActivated);
    connect(txtEfctvDt, &QLineEdit::textChanged, this, &frmTeamCar::textChanged);
    connect(txtTermDt, &QLineEdit::textChanged, this, &frmTeamCar::textChanged);
    m_dates.add(txtEfctvDt, [this] { return efctvDtLeft(); });
    m_dates.add(txtTermDt, [this] { return termDtLeft(); });
    connect(cmdEfctvDate, &QToolButton::clicked, this, [this] { pickDate(txtEfctvDt); });
    connect(cmdTermDate, &QToolButton::clicked, this, [this] { pickDate(txtTermDt); });
    connect(cmdApply, &QPushButton::clicked, this, &frmTeamCar::applyClicked);
    connect(cmdOK, &QPushButton::clicked, this, &frmTeamCar::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmTeamCar::~frmTeamCar() = default;

void frmTeamCar::fill(cTeamCar& entry, Currency& totalSalary)
{
    m_entry = &entry;
    m_totalSalary = totalSalary;
    m_team = std::make_unique<cTeam>();
    m_team->load(entry.teamNmbr());
    m_cars = std::make_unique<cCarCollection>();
    m_cars->load(m_team->raceTypeNmbr(), m_team->carTypeNmbr());
    fillCarChoices(cmbCarTxt, *m_cars);
    cmbCarTxt->setEnabled(true);

    if (entry.carNmbr() < 1) {
        setWindowTitle(u"Add Car/Driver for "_s + m_team->teamName());
    } else {
        cCar car;
        car.load(entry.carNmbr());
        cmbCarTxt->setEnabled(false);
        int index = -1;
        if (car.carTypeNmbr() == 2) {
            index = cmbCarTxt->findData(static_cast<int>(car.carNmbr()));
            setWindowTitle(u"Update Driver "_s + car.driverName() + u" for "_s + m_team->teamName());
        } else if (!car.carTxt().isEmpty()) {
            index = cmbCarTxt->findData(static_cast<int>(car.carNmbr()));
            setWindowTitle(u"Update Car "_s + car.carTxt() + u" for "_s + m_team->teamName());
        }
        // Choosing the entry shows the car's present salary (not the locked one) and its group,
        // and leaves the screen ready to save, so that a termination date set by the roster's
        // Terminate is written by OK alone.
        if (index >= 0) {
            cmbCarTxt->setCurrentIndex(index);
            carActivated(index);
        }
    }
    txtEfctvDt->setText(shortDate(entry.efctvDt()));
    txtTermDt->setText(shortDate(entry.termDt()));
    fillAvailableSalary(lvwLeagues, m_team->teamNmbr(), m_totalSalary);
    m_dates.clear();
    // A new entry starts at the car; a stored one at its end, which is what is usually changed
    // (an old effective date, once left, is held to the posted-race rule again).
    if (cmbCarTxt->isEnabled())
        cmbCarTxt->setFocus(Qt::OtherFocusReason);
    else
        txtTermDt->setFocus(Qt::OtherFocusReason);
}

void frmTeamCar::showWith(cTeamCar& entry, Currency& totalSalary)
{
    fill(entry, totalSalary);
    exec();
}

void frmTeamCar::carActivated(int index)
{
    if (index < 0 || !m_entry)
        return;
    m_entry->setCarNmbr(static_cast<int16_t>(cmbCarTxt->itemData(index).toInt()));
    cCar car;
    car.load(m_entry->carNmbr());
    txtSalary->setText(car.salary().toCurrencyText());
    // A car without a group loads no row: the group is then unlimited (maxNmbr -1).
    const cVariant group = car.groupNmbr();
    m_group = std::make_unique<cGroup>();
    m_group->load(group.isNumeric() ? group.toInt16() : int16_t(-1));
    txtGroup->setText(m_group->groupName());
    cmdApply->setEnabled(true);
}

void frmTeamCar::textChanged()
{
    if (isVisible())
        cmdApply->setEnabled(true);
}

bool frmTeamCar::efctvDtLeft()
{
    const DateCheck result = checkEffectiveDate(txtEfctvDt, m_team ? m_team->raceTypeNmbr() : int16_t(0));
    if (result == DateCheck::Accepted && m_entry)
        m_entry->setEfctvDt(txtEfctvDt->text());
    return result != DateCheck::Refused;
}

bool frmTeamCar::termDtLeft()
{
    if (!m_entry)
        return true;
    const DateCheck result = checkTerminationDate(txtTermDt, txtEfctvDt, m_entry->teamNmbr(), m_entry->carNmbr());
    if (result == DateCheck::Accepted)
        m_entry->setTermDt(txtTermDt->text());
    else if (result == DateCheck::Empty)
        m_entry->setTermDt(QDate());
    return result != DateCheck::Refused;
}

void frmTeamCar::pickDate(QLineEdit* field)
{
    const std::optional<QDate> picked = m_pickDate(parseDate(field->text().trimmed()));
    if (!picked)
        return;
    // The date is checked like a typed one: when the field is left, or at the latest on saving.
    field->setText(shortDate(*picked));
    field->setFocus(Qt::OtherFocusReason);
}

bool frmTeamCar::refuse(const QString& message, QWidget* field)
{
    return refuseField(message, field, true);
}

bool frmTeamCar::saveEntry()
{
    if (cmbCarTxt->currentText().trimmed().isEmpty())
        return refuse(u"Car Number is a required field"_s, cmbCarTxt);
    if (txtEfctvDt->text().trimmed().isEmpty())
        return refuse(u"Effective Date is a required field"_s, txtEfctvDt);

    auto amount = [](const QString& text) {
        Currency value;
        if (!Currency::parse(text, value))
            throw cRuntimeError::typeMismatch();
        return value;
    };
    // Ending or editing a terminated entry adds nothing to the payroll or the group.
    if (!m_entry->termDt().isValid()) {
        for (int i = 0; i < lvwLeagues->topLevelItemCount(); ++i) {
            QTreeWidgetItem* row = lvwLeagues->topLevelItem(i);
            if (amount(row->text(1)) < amount(txtSalary->text())) {
                cLeague league;
                league.load(static_cast<int16_t>(row->data(0, kLeagueRole).toInt()));
                if (league.salaryCap() > Currency())
                    return refuse(u"Adding this Car/Driver will exceed at least one Leagues salary Cap."_s);
            }
            // Only entries without any termination date take a place in the group.
            if (m_group && m_group->maxNmbr() >= 0) {
                cTeamCarCollection sameGroup;
                if (sameGroup.loadGroup(m_entry->teamNmbr(), m_group->groupNmbr()) >= m_group->maxNmbr())
                    return refuse(u"Adding this Car/Driver will exceed the number of Cars/Drivers for Group "_s +
                                  m_group->groupName() + u"."_s);
            }
        }
    }

    const Currency salary = amount(txtSalary->text());
    // A new row locks the car's present salary; an existing one keeps what it locked.
    m_entry->setLockedSalary(salary.toDouble());
    if (!m_entry->CommitChanges())
        return false;

    for (int i = 0; i < lvwLeagues->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = lvwLeagues->topLevelItem(i);
        Currency available;
        if (!Currency::parse(row->text(1), available))
            continue;
        cLeague league;
        league.load(static_cast<int16_t>(row->data(0, kLeagueRole).toInt()));
        if (league.salaryCap() > Currency())
            row->setText(1, (available - salary).toSqlText());
    }

    cmbCarTxt->setCurrentIndex(-1);
    txtEfctvDt->clear();
    txtGroup->clear();
    txtTermDt->clear();
    txtSalary->clear();
    m_dates.clear();
    return true;
}

void frmTeamCar::applyClicked()
{
    if (m_dates.settle())
        saveEntry();
}

void frmTeamCar::okClicked()
{
    if (cmdApply->isEnabled() && (!m_dates.settle() || !saveEntry()))
        return;
    accept();
}
