// The tab "Results" of the race screen: the grid of result rows with its one car chooser, the
// field rules, and the commands on the race's results and posting.
#include "base/app_globals.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car_form.h"
#include "racing/race_results_tab.h"
#include "racing/race_row_grid_form.h"
#include "racing/races.h"
#include "racing/results.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;

// A grid number as typed: any numeric text, rounded to a whole number; nothing when it is not a
// number or does not fit the column.
std::optional<int16_t> entryNumber(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    const double rounded = std::nearbyint(value);
    if (rounded < std::numeric_limits<int16_t>::min() || rounded > std::numeric_limits<int16_t>::max())
        return std::nullopt;
    return static_cast<int16_t>(rounded);
}

int16_t itemNumber(const QComboBox* combo, int index)
{
    return static_cast<int16_t>(combo->itemData(index).toInt());
}

bool refuse(const QString& text, QWidget* focus)
{
    return refuseField(text, focus);
}

// The field's own leave check, when it has one; true otherwise.
bool runLeaveCheck(QWidget* field)
{
    if (!field)
        return true;
    auto* check = field->findChild<cValidateOnLeave*>(QString(), Qt::FindDirectChildrenOnly);
    return !check || check->validateNow();
}

} // namespace

cRaceResultsTab::cRaceResultsTab(cRefusedClick& refusedClick, Host host, QWidget* parent)
    : QWidget(parent), m_refusedClick(refusedClick), m_host(std::move(host))
{
    fraResults = new QFrame(this);
    fraResults->setObjectName(u"fraResults"_s);

    cmbRaceStatus = new QComboBox(fraResults);
    cmbRaceStatus->setObjectName(u"cmbRaceStatus"_s);
    auto* statusLabel = new QLabel(u"Result Status:"_s, fraResults);
    statusLabel->setBuddy(cmbRaceStatus);

    auto button = [this](const QString& name, const QString& text) { return makeButton(fraResults, name, text); };
    cmdGetResults = button(u"cmdGetResults"_s, u"&Get Results"_s);
    cmdPostResults = button(u"cmdPostResults"_s, u"&Post Results"_s);
    cmdClearPosting = button(u"cmdClearPosting"_s, u"Clear P&osting"_s);
    cmdClearResults = button(u"cmdClearResults"_s, u"Clear &Results"_s);
    cmdAddNewCar = button(u"cmdAddNewCar"_s, u"Add &New Car"_s);

    lblhitEnter = new QLabel(u"Hit Enter to Add Row."_s, fraResults);
    lblhitEnter->setObjectName(u"lblhitEnter"_s);
    // The hint keeps its room while hidden, so the grid does not jump when a chooser opens.
    QSizePolicy hintPolicy = lblhitEnter->sizePolicy();
    hintPolicy.setRetainSizeWhenHidden(true);
    lblhitEnter->setSizePolicy(hintPolicy);
    lblhitEnter->hide();

    VScroll1 = new QScrollBar(Qt::Vertical, fraResults);
    VScroll1->setObjectName(u"VScroll1"_s);
    m_resultGrid = new cRowGrid({u"Place"_s, u"Car/Driver"_s, u"Laps Led"_s, u"Fastest Qualifier?"_s,
                                 u"Qualified"_s, u"Adjustment"_s},
                                {1, 6, 2, 0, 2, 2}, VScroll1, fraResults);
    m_resultGrid->setObjectName(u"grdResults"_s);

    cmbCarNmbr = new QComboBox(m_resultGrid);
    cmbCarNmbr->setObjectName(u"cmbCarNmbr"_s);
    cmbCarNmbr->setMaxVisibleItems(20);
    // A pick from the list names the car by itself; what was typed before it no longer counts.
    connect(cmbCarNmbr, &QComboBox::activated, this, [this] { m_typedCar.clear(); });
    cmbCarNmbr->hide();
    cmbCarNmbr->installEventFilter(this);
    cValidateOnLeave::install(cmbCarNmbr, [this] { return leaveCarChooser(); });

    auto* status = new QHBoxLayout;
    status->addWidget(statusLabel);
    status->addWidget(cmbRaceStatus);
    status->addStretch();

    auto* grid = new QHBoxLayout;
    grid->setSpacing(2);
    grid->addWidget(m_resultGrid, 1);
    grid->addWidget(VScroll1);

    auto* left = new QVBoxLayout;
    left->addLayout(status);
    left->addSpacing(6);
    left->addLayout(grid, 1);
    left->addWidget(lblhitEnter);

    auto* commands = new QVBoxLayout;
    commands->addWidget(cmdGetResults);
    commands->addWidget(cmdPostResults);
    commands->addSpacing(12);
    commands->addWidget(cmdClearPosting);
    commands->addWidget(cmdClearResults);
    commands->addSpacing(12);
    commands->addWidget(cmdAddNewCar);
    commands->addStretch();

    auto* frame = new QHBoxLayout(fraResults);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->addLayout(left, 1);
    frame->addSpacing(6);
    frame->addLayout(commands);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraResults);

    addRow(1);

    connect(m_resultGrid, &cRowGrid::scrolled, this, [this] {
        if (m_carRow >= 0 && cmbCarNmbr->isVisible()) {
            if (m_resultGrid->isRowVisible(m_carRow))
                placeCarChooser();
            else
                leaveCarChooser();
        }
    });
    connect(cmbRaceStatus, &QComboBox::activated, this, &cRaceResultsTab::raceStatusActivated);
    connect(cmdGetResults, &QPushButton::clicked, this, &cRaceResultsTab::getResultsClicked);
    connect(cmdPostResults, &QPushButton::clicked, this, &cRaceResultsTab::postResultsRequested);
    connect(cmdClearPosting, &QPushButton::clicked, this, &cRaceResultsTab::clearPostingClicked);
    connect(cmdClearResults, &QPushButton::clicked, this, &cRaceResultsTab::clearResultsClicked);
    connect(cmdAddNewCar, &QPushButton::clicked, this, &cRaceResultsTab::addNewCarClicked);
}

cRaceResultsTab::~cRaceResultsTab() = default;

void cRaceResultsTab::setRace(cRaces& race)
{
    m_race = &race;
    m_cars = std::make_unique<cCarCollection>();
    m_cars->load(race.raceTypeNmbr(), race.carTypeNmbr());
    m_resultsLoaded = false;
    fraResults->hide();
}

void cRaceResultsTab::raceKindChanged()
{
    m_cars = std::make_unique<cCarCollection>();
    if (m_resultsLoaded)
        fillCarList();
}

void cRaceResultsTab::releaseCars()
{
    m_cars.reset();
}

void cRaceResultsTab::markChanged()
{
    if (!m_filling && m_host.resultsChanged)
        m_host.resultsChanged();
}

cRaceResultsTab::cResultRow& cRaceResultsTab::addRow(int16_t place)
{
    const bool filling = m_filling;
    m_filling = true;
    auto number = [this](const QString& name, const QString& text) {
        auto* edit = new QLineEdit(text, m_resultGrid);
        edit->setObjectName(name);
        edit->setAlignment(Qt::AlignRight);
        edit->setMinimumWidth(fontMetrics().horizontalAdvance(u"-00000"_s) + 12);
        selectTextOnFocus(edit);
        return edit;
    };
    cResultRow row;
    row.txtPlace = number(u"txtPlace"_s, QString::number(place));
    row.txtCarNmbr = new QLineEdit(m_resultGrid);
    row.txtCarNmbr->setObjectName(u"txtCarNmbr"_s);
    // The text comes from the chooser that opens over the field.
    row.txtCarNmbr->setReadOnly(true);
    row.txtLapsLed = number(u"txtLapsLed"_s, u"0"_s);
    row.chkFastQual = new QCheckBox(m_resultGrid);
    row.chkFastQual->setObjectName(u"chkFastQual"_s);
    row.txtQualified = number(u"txtQualified"_s, u"0"_s);
    row.txtAdjustment = number(u"txtAdjustment"_s, u"0"_s);
    m_resultGrid->appendRow({row.txtPlace, row.txtCarNmbr, row.txtLapsLed, row.chkFastQual, row.txtQualified,
                             row.txtAdjustment});
    installRowRules(row);

    QWidget* previous = m_rows.empty() ? nullptr : m_rows.back().txtAdjustment;
    for (QWidget* cell : {static_cast<QWidget*>(row.txtPlace), static_cast<QWidget*>(row.txtCarNmbr),
                          static_cast<QWidget*>(row.txtLapsLed), static_cast<QWidget*>(row.chkFastQual),
                          static_cast<QWidget*>(row.txtQualified), static_cast<QWidget*>(row.txtAdjustment)}) {
        if (previous)
            setTabOrder(previous, cell);
        previous = cell;
    }
    m_rows.push_back(row);
    m_filling = filling;
    return m_rows.back();
}

void cRaceResultsTab::installRowRules(cResultRow& row)
{
    for (QLineEdit* edit : {row.txtPlace, row.txtCarNmbr, row.txtLapsLed, row.txtQualified, row.txtAdjustment}) {
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::textChanged, this, &cRaceResultsTab::markChanged);
    }
    row.chkFastQual->installEventFilter(this);
    connect(row.chkFastQual, &QCheckBox::clicked, this, &cRaceResultsTab::markChanged);
    QLineEdit* place = row.txtPlace;
    cValidateOnLeave::install(place, [this, place] { return placeLeft(place); });
    for (QLineEdit* edit : {row.txtLapsLed, row.txtQualified, row.txtAdjustment})
        cValidateOnLeave::install(edit, [this, edit] { return numberLeft(edit); });
}

void cRaceResultsTab::removeRowsFrom(int index)
{
    if (m_carRow >= index) {
        m_leavingChooser = true;
        cmbCarNmbr->hide();
        lblhitEnter->hide();
        m_leavingChooser = false;
        m_carRow = -1;
    }
    m_resultGrid->truncate(index);
    m_rows.resize(static_cast<size_t>(m_resultGrid->rowCount()));
}

int cRaceResultsTab::resultRowOf(const QObject* field) const
{
    return m_resultGrid->rowOf(field);
}

// A place is a number of 0 or above; blank stands for 0.
bool cRaceResultsTab::placeLeft(QLineEdit* field)
{
    const QString text = field->text().trimmed();
    if (text.isEmpty()) {
        field->setText(u"0"_s);
        return passed();
    }
    const std::optional<int16_t> place = entryNumber(text);
    if (place && *place >= 0)
        return passed();
    return invalidEntry(field);
}

// Laps led, qualifying place and adjustment take any number, negative ones too.
bool cRaceResultsTab::numberLeft(QLineEdit* field)
{
    const QString text = field->text().trimmed();
    if (text.isEmpty()) {
        field->setText(u"0"_s);
        return passed();
    }
    if (entryNumber(text))
        return passed();
    return invalidEntry(field);
}

bool cRaceResultsTab::passed()
{
    m_refusedClick.clear();
    return true;
}

// The button whose press took the focus from the field must not act on this refusal.
bool cRaceResultsTab::invalidEntry(QLineEdit* field)
{
    m_refusedClick.note();
    messageBox(u"Invalid Entry"_s, kTitle, Icon::Critical);
    field->clear();
    return false;
}

void cRaceResultsTab::enter()
{
    m_filling = true;
    cRaceStatusCollection statuses;
    statuses.load();
    fillNumberCombo(cmbRaceStatus, statuses, [](const cRaceStatus& r) { return r.raceStatusNmbr(); },
                    [](const cRaceStatus& r) { return r.raceStatusName(); });
    selectComboNumber(cmbRaceStatus, m_race->raceStatusNmbr(),
                      !statuses.getraceStatusName(m_race->raceStatusNmbr()).isEmpty());
    m_filling = false;

    if (!m_resultsLoaded)
        loadResultRows();
    if (m_host.reloaded)
        m_host.reloaded();
    m_resultGrid->refresh();
    fraResults->show();
    setStatusText();
}

void cRaceResultsTab::loadResultRows()
{
    setStatusText(u"Loading Results "_s + m_race->raceName());
    fillCarList();
    removeRowsFrom(1);
    cResultsCollection results;
    results.load(m_race->raceNmbr());

    m_filling = true;
    cResultRow* first = &m_rows.front();
    first->txtPlace->setText(u"1"_s);
    first->txtCarNmbr->clear();
    first->carTag = 0;
    for (QLineEdit* edit : {first->txtLapsLed, first->txtQualified, first->txtAdjustment})
        edit->setText(u"0"_s);
    first->chkFastQual->setChecked(false);

    bool firstRow = true;
    for (const cResults& result : results) {
        cResultRow& row = firstRow ? m_rows.front() : addRow(result.place());
        firstRow = false;
        row.txtPlace->setText(QString::number(result.place()));
        row.txtCarNmbr->setText(m_cars->getCarDisplay(result.carNmbr()));
        row.carTag = result.carNmbr();
        row.txtLapsLed->setText(QString::number(result.lapsLead()));
        row.chkFastQual->setChecked(result.fastQual() != 0);
        row.txtQualified->setText(QString::number(result.qualified()));
        row.txtAdjustment->setText(QString::number(result.adjustment()));
    }
    m_filling = false;
    m_resultsLoaded = true;
    VScroll1->setValue(0);
    m_resultGrid->refresh();
}

// The chooser lists the cars of the race's series and kind: drivers by name, cars by number.
void cRaceResultsTab::fillCarList()
{
    const bool filling = m_filling;
    m_filling = true;
    cmbCarNmbr->clear();
    cmbCarNmbr->addItem(u" "_s, 0);
    if (!m_cars)
        m_cars = std::make_unique<cCarCollection>();
    if (m_cars->Count() == 0)
        m_cars->load(m_race->raceTypeNmbr(), m_race->carTypeNmbr());
    for (const cCar& car : *m_cars)
        cmbCarNmbr->addItem(car.carTypeNmbr() == 2 ? car.driverName() : car.carTxt(), int(car.carNmbr()));
    m_filling = filling;
}

void cRaceResultsTab::enterCarChooser(int row)
{
    if (m_leavingChooser || row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    if (cmbCarNmbr->isVisible()) {
        if (m_carRow == row)
            return;
        if (!leaveCarChooser())
            return;
    }
    m_resultGrid->ensureVisible(row);
    m_carRow = row;
    const QString text = m_rows[static_cast<size_t>(row)].txtCarNmbr->text().trimmed();
    const bool filling = m_filling;
    m_filling = true;
    // A text that is not in the list (a car of another series) stays as it is unless a car is given.
    cmbCarNmbr->setCurrentIndex(text.isEmpty() ? 0 : cmbCarNmbr->findText(text));
    m_typedCar.clear();
    m_filling = filling;
    placeCarChooser();
    cmbCarNmbr->show();
    cmbCarNmbr->raise();
    cmbCarNmbr->setFocus(Qt::OtherFocusReason);
    lblhitEnter->show();
}

void cRaceResultsTab::placeCarChooser()
{
    if (m_carRow < 0)
        return;
    m_resultGrid->layout()->activate();
    cmbCarNmbr->setGeometry(m_rows[static_cast<size_t>(m_carRow)].txtCarNmbr->geometry());
}

// What the operator typed into the chooser names the row's car exactly (case aside), so that "2"
// is not taken for "24"; without typing, the entry shown is the car. Typed text that names no car
// leaves the row without one, and the box says so.
bool cRaceResultsTab::leaveCarChooser(bool checkDuplicates)
{
    if (m_leavingChooser || m_carRow < 0 || !cmbCarNmbr->isVisible())
        return true;
    m_leavingChooser = true;
    const int rowIndex = m_carRow;
    cResultRow& row = m_rows[static_cast<size_t>(rowIndex)];
    const QString typed = m_typedCar.trimmed();
    const bool wasTyped = !m_typedCar.isEmpty();
    m_typedCar.clear();
    int index = cmbCarNmbr->currentIndex();
    if (wasTyped)
        index = typed.isEmpty() ? 0 : cmbCarNmbr->findText(typed, Qt::MatchFixedString);
    bool unknown = false;
    const int16_t before = row.carTag;
    if (index >= 0) {
        row.carTag = itemNumber(cmbCarNmbr, index);
        row.txtCarNmbr->setText(cmbCarNmbr->itemText(index));
    } else if (wasTyped) {
        row.carTag = 0;
        row.txtCarNmbr->clear();
        unknown = true;
    }
    if (row.carTag != before || unknown)
        markChanged();
    const QString text = row.txtCarNmbr->text().trimmed();
    if (cmbCarNmbr->hasFocus())
        row.txtCarNmbr->setFocus(Qt::OtherFocusReason);
    cmbCarNmbr->hide();
    lblhitEnter->hide();
    m_carRow = -1;
    m_leavingChooser = false;

    if (unknown) {
        messageBox(u"Car "_s + typed + u" was not found for this Race Type and Scoring By"_s, kTitle, Icon::Critical);
        enterCarChooser(rowIndex);
        return false;
    }
    if (!checkDuplicates || text.isEmpty())
        return true;
    for (size_t other = 0; other < m_rows.size(); ++other) {
        if (static_cast<int>(other) != rowIndex && m_rows[other].txtCarNmbr->text().trimmed() == text) {
            messageBox(u"Car "_s + text + u" has already been used"_s, kTitle, Icon::Critical);
            enterCarChooser(rowIndex);
            return false;
        }
    }
    return true;
}

// Enter in a row: on to the next row's car, or a new row below the last with the next place.
void cRaceResultsTab::addResultRow(int row)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    QWidget* focused = QApplication::focusWidget();
    if (focused != cmbCarNmbr && !runLeaveCheck(focused))
        return;
    if (!leaveCarChooser())
        return;
    if (row + 1 < static_cast<int>(m_rows.size())) {
        m_resultGrid->ensureVisible(row + 1);
        m_rows[static_cast<size_t>(row) + 1].txtCarNmbr->setFocus(Qt::OtherFocusReason);
        return;
    }
    const int16_t place = entryNumber(m_rows[static_cast<size_t>(row)].txtPlace->text()).value_or(0);
    cResultRow& added = addRow(place < std::numeric_limits<int16_t>::max() ? int16_t(place + 1) : place);
    QLineEdit* car = added.txtCarNmbr;
    m_resultGrid->ensureVisible(static_cast<int>(m_rows.size()) - 1);
    car->setFocus(Qt::OtherFocusReason);
}

void cRaceResultsTab::raceStatusActivated(int index)
{
    if (index < 0)
        return;
    m_race->setRaceStatusNmbr(itemNumber(cmbRaceStatus, index));
    if (m_host.raceChanged)
        m_host.raceChanged();
}

bool cRaceResultsTab::save()
{
    if (!leaveCarChooser())
        return false;
    cResultsCollection list;
    for (const cResultRow& row : m_rows) {
        if (row.txtPlace->text().trimmed().isEmpty() || row.txtCarNmbr->text().trimmed().isEmpty())
            continue;
        // A field typed into and not left yet has had no check: refuse what would not convert.
        const std::optional<int16_t> place = entryNumber(row.txtPlace->text());
        if (!place || *place < 0)
            return refuse(u"Invalid Entry"_s, row.txtPlace);
        int16_t numbers[3] = {};
        QLineEdit* fields[3] = {row.txtLapsLed, row.txtQualified, row.txtAdjustment};
        for (int i = 0; i < 3; ++i) {
            const QString text = fields[i]->text().trimmed();
            const std::optional<int16_t> value = text.isEmpty() ? std::optional<int16_t>(0) : entryNumber(text);
            if (!value)
                return refuse(u"Invalid Entry"_s, fields[i]);
            numbers[i] = *value;
        }
        list.Add(m_race->raceNmbr(), row.carTag, *place, row.chkFastQual->isChecked() ? 1 : 0, numbers[0],
                 numbers[1], numbers[2]);
    }
    const QString errors = list.validateData();
    if (!errors.isEmpty()) {
        messageBox(errors, u"Errors while save results for "_s + m_race->raceName(), Icon::None, Buttons::Ok);
        return false;
    }
    // Saved results are unposted results until the next Post Results.
    return list.insertResults();
}

void cRaceResultsTab::clearPostingClicked()
{
    const QString name = m_race->raceName();
    if (messageBox(u"Are you sure you want to delete the posting for "_s + name + u"?"_s, name, Icon::Question,
                   Buttons::OkCancel) != Answer::Ok)
        return;
    // Later races keep their posting.
    cResultsCollection results;
    results.deletePosting(m_race->raceNmbr());
}

void cRaceResultsTab::clearResultsClicked()
{
    const QString name = m_race->raceName();
    if (messageBox(u"Are you sure you want to delete results for "_s + name + u"?"_s, name, Icon::Question,
                   Buttons::OkCancel) != Answer::Ok)
        return;
    cResultsCollection results;
    results.deleteResults(m_race->raceNmbr());
    m_resultsLoaded = false;
    enter();
    if (!isVisible())
        return;
    cResultRow& first = m_rows.front();
    const bool filling = m_filling;
    m_filling = true;
    for (QLineEdit* edit : {first.txtPlace, first.txtLapsLed, first.txtQualified, first.txtAdjustment})
        edit->setText(u"0"_s);
    m_filling = filling;
    m_resultGrid->ensureVisible(0);
    first.txtPlace->setFocus(Qt::OtherFocusReason);
}

void cRaceResultsTab::getResultsClicked()
{
    // The series with download files (race types 1 and 6) fetch theirs through the exchange
    // unit, which this screen does not use yet; until then they answer as every other type does.
    messageBox(u"Downloads not available for "_s + (m_host.raceTypeText ? m_host.raceTypeText() : QString()), kTitle, Icon::None, Buttons::Ok);
}

// The program's new-car command (the car screen, then the car pane refreshed); the car list and
// the chooser follow with the new car.
void cRaceResultsTab::addNewCarClicked()
{
    const bool chooserOpen = m_carRow >= 0 && cmbCarNmbr->isVisible();
    const QString text = chooserOpen ? cmbCarNmbr->currentText().trimmed() : QString();
    if (!m_host.newCar || !m_host.newCar()) {
        cCar car;
        frmCar screen(this);
        screen.showWith(car);
    }
    m_cars = std::make_unique<cCarCollection>();
    m_cars->load(m_race->raceTypeNmbr(), m_race->carTypeNmbr());
    fillCarList();
    if (chooserOpen && cmbCarNmbr->isVisible()) {
        const bool filling = m_filling;
        m_filling = true;
        cmbCarNmbr->setCurrentIndex(text.isEmpty() ? 0 : cmbCarNmbr->findText(text));
        m_filling = filling;
    }
    m_resultGrid->update();
}

bool cRaceResultsTab::eventFilter(QObject* watched, QEvent* event)
{
    if (!window()->isVisible())
        return false;

    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == cmbCarNmbr) {
            if (enter) {
                addResultRow(m_carRow);
                return true;
            }
            if (typeIntoCarChooser(*key))
                return true;
            // The chooser stands outside the tab order: Tab goes on from the field it covers.
            if ((key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) && m_carRow >= 0) {
                const cResultRow& row = m_rows[static_cast<size_t>(m_carRow)];
                const bool back = key->key() == Qt::Key_Backtab || (key->modifiers() & Qt::ShiftModifier);
                (back ? static_cast<QWidget*>(row.txtPlace) : row.txtLapsLed)
                    ->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
                return true;
            }
            return false;
        }
        if (enter) {
            if (const int row = resultRowOf(watched); row >= 0) {
                addResultRow(row);
                return true;
            }
        }
        return false;
    }

    // A field takes the focus before it gets the press, so a press opens the chooser only on a
    // field that already had the focus (or that a refusing chooser kept it from).
    if (type == QEvent::FocusIn ||
        (type == QEvent::MouseButtonPress && static_cast<QWidget*>(watched)->hasFocus())) {
        if (const int row = resultRowOf(watched);
            row >= 0 && watched == m_rows[static_cast<size_t>(row)].txtCarNmbr)
            enterCarChooser(row);
    }
    return false;
}

// Typing into the chooser: the typed text is kept, and the entry it names (or the first that
// begins with it) is shown as the operator types. Backspace takes back the last character.
bool cRaceResultsTab::typeIntoCarChooser(const QKeyEvent& key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    if (key.key() == Qt::Key_Backspace) {
        if (m_typedCar.isEmpty())
            m_typedCar = cmbCarNmbr->currentText().trimmed();
        m_typedCar.chop(1);
        if (m_typedCar.isEmpty())
            m_typedCar = u" "_s;   // typed away: blank, which is no car
    } else if (key.text().isEmpty() || !key.text().at(0).isPrint()) {
        return false;
    } else {
        if (m_typedCar.trimmed().isEmpty())
            m_typedCar.clear();
        m_typedCar += key.text();
    }
    const QString typed = m_typedCar.trimmed();
    int index = typed.isEmpty() ? 0 : cmbCarNmbr->findText(typed, Qt::MatchFixedString);
    if (index < 0)
        index = cmbCarNmbr->findText(typed, Qt::MatchStartsWith);
    const bool filling = m_filling;
    m_filling = true;
    if (index >= 0)
        cmbCarNmbr->setCurrentIndex(index);
    m_filling = filling;
    return true;
}
