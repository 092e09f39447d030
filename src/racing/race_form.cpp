#include "racing/race_form.h"
#include "base/app_globals.h"
#include "base/date_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car_type.h"
#include "league/race_type.h"
#include "racing/posting.h"
#include "racing/race_head_head_tab.h"
#include "racing/race_results_tab.h"
#include "racing/races.h"
#include "racing/results.h"
#include "store/dates.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;
bool gHeadToHeadTabEnabled = false;

std::function<void()>& newCarCommand()
{
    static std::function<void()> command;
    return command;
}

} // namespace

void frmRace::setHeadToHeadTabEnabled(bool enabled)
{
    gHeadToHeadTabEnabled = enabled;
}

bool frmRace::headToHeadTabEnabled()
{
    return gHeadToHeadTabEnabled;
}

void frmRace::setNewCarCommand(std::function<void()> command)
{
    newCarCommand() = std::move(command);
}

bool frmRace::refuse(const QString& text, QWidget* focus)
{
    return refuseField(text, focus);
}

int16_t frmRace::itemNumber(const QComboBox* combo, int index)
{
    return static_cast<int16_t>(combo->itemData(index).toInt());
}

frmRace::frmRace(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmRace"_s);
    setWindowTitle(u"Race - "_s);

    SSTab1 = new QTabBar(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->setDrawBase(false);
    SSTab1->setExpanding(false);
    m_pages = new QStackedWidget(this);
    m_pages->setFrameShape(QFrame::StyledPanel);
    SSTab1->addTab(u"Race"_s);
    m_pages->addWidget(buildRaceTab());
    SSTab1->addTab(u"Results"_s);
    m_results = new cRaceResultsTab(m_refusedClick,
                                    {[this] { markResultsChanged(); }, [this] { markRaceChanged(); },
                                     [this] { return cmbRaceType->currentText(); },
                                     [this] { m_resultsChanged = false; },
                                     [] {
                                         if (!newCarCommand())
                                             return false;
                                         newCarCommand()();
                                         return true;
                                     }},
                                    this);
    m_pages->addWidget(m_results);
    SSTab1->addTab(u"Head to Head"_s);
    m_headHead = new cRaceHeadHeadTab({[this] { markPairingsChanged(); }, [this] { return m_pairingsChanged; },
                                       [this] {
                                           m_pairingsChanged = false;
                                           cmdApply->setEnabled(anythingChanged());
                                       }},
                                      this);
    m_pages->addWidget(m_headHead);
    // The pairings tab stays off unless the one setting switches it on.
    SSTab1->setTabEnabled(kTabHeadHead, headToHeadTabEnabled());

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;
    pbStatus = new QProgressBar(this);
    pbStatus->setObjectName(u"pbStatus"_s);
    pbStatus->setRange(0, 100);
    pbStatus->setTextVisible(false);
    pbStatus->hide();

    buttons.layout->insertWidget(0, pbStatus, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(SSTab1);
    layout->addWidget(m_pages, 1);
    layout->addSpacing(8);
    layout->addLayout(buttons.layout);

    connect(SSTab1, &QTabBar::currentChanged, this, &frmRace::tabChanging);
    connect(cmdOK, &QPushButton::clicked, this, &frmRace::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmRace::reject);
    connect(cmdApply, &QPushButton::clicked, this, [this] {
        if (!m_refusedClick.swallow(cmdApply) && finishPendingField())
            saveRaceForm();
    });
    connect(m_results, &cRaceResultsTab::postResultsRequested, this, &frmRace::postResultsClicked);
}

frmRace::~frmRace() = default;

QWidget* frmRace::buildRaceTab()
{
    auto* page = new QWidget(this);
    auto line = [page](const QString& name) {
        auto* edit = new QLineEdit(page);
        edit->setObjectName(name);
        selectTextOnFocus(edit);
        return edit;
    };
    txtRaceName = line(u"txtRaceName"_s);
    txtTrackName = line(u"txtTrackName"_s);
    txtRaceDate = line(u"txtRaceDate"_s);
    cmdRaceDate = new QPushButton(u" . . . "_s, page);
    cmdRaceDate->setObjectName(u"cmdRaceDate"_s);
    cmdRaceDate->setAutoDefault(false);
    cmbRaceType = new QComboBox(page);
    cmbRaceType->setObjectName(u"cmbRaceType"_s);
    cmbCarType = new QComboBox(page);
    cmbCarType->setObjectName(u"cmbCarType"_s);

    lblRaceName = new QLabel(u"Race Name:"_s, page);
    lblRaceName->setObjectName(u"lblRaceName"_s);
    lblRaceName->setBuddy(txtRaceName);
    lblRaceName->installEventFilter(this);

    txtRaceDate->setMaximumWidth(txtRaceDate->fontMetrics().horizontalAdvance(u"00/00/00000"_s) + 16);
    cmdRaceDate->setMaximumWidth(cmdRaceDate->fontMetrics().horizontalAdvance(cmdRaceDate->text()) + 16);
    auto* dateRow = new QHBoxLayout;
    dateRow->addWidget(txtRaceDate);
    dateRow->addWidget(cmdRaceDate);
    dateRow->addStretch();

    auto* form = new QFormLayout;
    form->addRow(lblRaceName, txtRaceName);
    form->addRow(u"Track Name:"_s, txtTrackName);
    form->addRow(u"Race Date:"_s, dateRow);
    form->addRow(u"Race Type:"_s, cmbRaceType);
    form->addRow(u"Scoring By:"_s, cmbCarType);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(form);
    layout->addStretch();

    connect(txtRaceName, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_race->setRaceName(text);
        refreshCaption();
        markRaceChanged();
    });
    connect(txtTrackName, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_race->setTrackName(text);
        markRaceChanged();
    });
    connect(txtRaceDate, &QLineEdit::textChanged, this, &frmRace::markRaceChanged);
    connect(cmdRaceDate, &QPushButton::clicked, this, &frmRace::raceDateClicked);
    connect(cmbRaceType, &QComboBox::activated, this, &frmRace::raceTypeActivated);
    connect(cmbCarType, &QComboBox::activated, this, &frmRace::carTypeActivated);
    cValidateOnLeave::install(txtRaceDate, [this] { return raceDateLeft(); });
    return page;
}

void frmRace::showWith(cRaces& race)
{
    fill(race);
    exec();
}

void frmRace::fill(cRaces& race)
{
    m_race = &race;
    m_filling = true;
    m_results->setRace(race);
    m_headHead->setRace(race);
    txtRaceName->setText(race.raceName());
    txtTrackName->setText(race.trackName());
    txtRaceDate->setText(race.raceDate().isValid() ? shortDate(race.raceDate()) : QString());
    fillRaceTypes();
    fillCarTypes();
    refreshCaption();
    m_undoingTab = true;
    SSTab1->setCurrentIndex(kTabRace);
    m_undoingTab = false;
    m_refusedClick.clear();
    m_currentTab = kTabRace;
    m_pages->setCurrentIndex(kTabRace);
    cmdOK->setDefault(true);
    m_filling = false;
    clearMarks();
}

void frmRace::fillRaceTypes()
{
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    fillNumberCombo(cmbRaceType, raceTypes, [](const cRaceType& r) { return r.raceTypeNmbr(); },
                    [](const cRaceType& r) { return r.raceTypeName(); });
    selectComboNumber(cmbRaceType, m_race->raceTypeNmbr(),
                      !raceTypes.getRaceTypeName(cVariant(int(m_race->raceTypeNmbr()))).isEmpty());
}

void frmRace::fillCarTypes()
{
    cCarTypeCollection carTypes;
    carTypes.loadNoBonus();
    fillNumberCombo(cmbCarType, carTypes, [](const cCarType& c) { return c.carTypeNmbr(); },
                    [](const cCarType& c) { return c.carTypeName(); });
    selectComboNumber(cmbCarType, m_race->carTypeNmbr(), !carTypes.getCarTypeName(m_race->carTypeNmbr()).isEmpty());
}

void frmRace::refreshCaption()
{
    setWindowTitle(u"Race - "_s + m_race->raceName());
}

void frmRace::markRaceChanged()
{
    if (!isVisible() || m_filling)
        return;
    m_raceChanged = true;
    cmdApply->setEnabled(true);
}

void frmRace::markResultsChanged()
{
    if (!isVisible() || m_filling)
        return;
    m_resultsChanged = true;
    cmdApply->setEnabled(true);
}

void frmRace::markPairingsChanged()
{
    if (!isVisible() || m_filling)
        return;
    m_pairingsChanged = true;
    cmdApply->setEnabled(true);
}

void frmRace::clearMarks()
{
    m_raceChanged = false;
    m_resultsChanged = false;
    m_pairingsChanged = false;
    cmdApply->setEnabled(false);
}

bool frmRace::anythingChanged() const
{
    return m_raceChanged || m_resultsChanged || m_pairingsChanged;
}

// A date is kept in the short form; blank passes here and is refused by the save.
bool frmRace::raceDateLeft()
{
    const QString text = txtRaceDate->text().trimmed();
    if (text.isEmpty())
        return true;
    const QDate date = parseDate(text);
    if (!date.isValid()) {
        m_refusedClick.note();
        messageBox(u"Invalid Entry"_s, kTitle, Icon::Critical);
        return false;
    }
    m_refusedClick.clear();
    txtRaceDate->setText(shortDate(date));
    m_race->setRaceDate(date);
    markRaceChanged();
    return true;
}

void frmRace::raceDateClicked()
{
    frmDate picker(this);
    const QDate current = parseDate(txtRaceDate->text().trimmed());
    picker.setSelectedDate(current.isValid() ? current : QDate::currentDate());
    picker.adjustSize();
    picker.move(txtRaceDate->mapToGlobal(QPoint(txtRaceDate->width() + cmdRaceDate->width(), 0)));
    picker.exec();
    if (!picker.dateChosen())
        return;
    txtRaceDate->setText(shortDate(picker.selectedDate()));
    raceDateLeft();
}

// Race type and Score By decide which cars a result may hold, so they are fixed once results
// are stored. The combo keeps showing the choice; the record keeps its value.
void frmRace::raceTypeActivated(int index)
{
    if (index < 0)
        return;
    cResultsCollection results;
    if (results.load(m_race->raceNmbr()) > 0) {
        messageBox(u"Can not change Race Type while Results exist for the Race"_s, kTitle, Icon::Critical);
        return;
    }
    m_race->setRaceTypeNmbr(itemNumber(cmbRaceType, index));
    markRaceChanged();
    m_results->raceKindChanged();
}

void frmRace::carTypeActivated(int index)
{
    if (index < 0)
        return;
    cResultsCollection results;
    if (results.load(m_race->raceNmbr()) > 0) {
        messageBox(u"Can not change Scoring By while Results exist for the Race"_s, kTitle, Icon::Critical);
        return;
    }
    m_race->setCarTypeNmbr(itemNumber(cmbCarType, index));
    markRaceChanged();
    m_results->raceKindChanged();
}

void frmRace::showRaceNumber()
{
    messageBox(u"Race number is "_s + QString::number(m_race->raceNmbr()));
}

// A save by the tab bar, a shortcut or the Yes of Cancel leaves the focus in the field being
// typed, so the field's rule runs first, exactly as leaving the field would run it.
bool frmRace::finishPendingField()
{
    QWidget* focused = focusWidget();
    if (!focused || !isAncestorOf(focused))
        return true;
    auto* check = focused->findChild<cValidateOnLeave*>(QString(), Qt::FindDirectChildrenOnly);
    return !check || check->validateNow();
}

bool frmRace::saveRaceForm()
{
    if (!m_results->leaveCarChooser())
        return false;
    m_headHead->leaveTeamChooser();
    if (m_raceChanged && !saveRaceChanges())
        return false;
    if (m_resultsChanged && !saveResultRows())
        return false;
    if (m_pairingsChanged && !savePairings())
        return false;
    clearMarks();
    return true;
}

bool frmRace::saveRaceChanges()
{
    if (txtRaceName->text().trimmed().isEmpty())
        return refuse(u"Race Name is a required field"_s, txtRaceName);
    if (cmbRaceType->currentIndex() < 0 || cmbRaceType->currentText().trimmed().isEmpty())
        return refuse(u"Race Type is a required field"_s, cmbRaceType);
    if (cmbCarType->currentIndex() < 0 || cmbCarType->currentText().trimmed().isEmpty())
        return refuse(u"Scoring By is a required field"_s, cmbCarType);
    const QString dateText = txtRaceDate->text().trimmed();
    if (dateText.isEmpty())
        return refuse(u"Race Date is a required field"_s, txtRaceDate);
    const QDate date = parseDate(dateText);
    if (!date.isValid())
        return refuse(u"A valid Race Date is a required field"_s, txtRaceDate);
    // Only a new race is tested: an existing race may be moved onto a date that is taken.
    if (m_race->raceNmbr() < 1) {
        cRacesCollection races;
        if (races.raceDateExistsForRaceType(date, m_race->raceTypeNmbr(), m_race->carTypeNmbr()))
            return refuse(u"A Race already exists for this Date.\n"_s
                          u"Only one Race can exist per date per Race Type and Scoring By."_s,
                          txtRaceDate);
    }
    m_filling = true;
    txtRaceDate->setText(shortDate(date));
    m_filling = false;
    m_race->setRaceDate(date);
    return m_race->CommitChanges();
}

bool frmRace::saveResultRows()
{
    return m_results->save();
}

bool frmRace::savePairings()
{
    return m_headHead->save();
}

void frmRace::tabChanging(int index)
{
    if (m_undoingTab || index == m_currentTab)
        return;
    if (!finishPendingField() || !leaveTab(m_currentTab)) {
        m_undoingTab = true;
        SSTab1->setCurrentIndex(m_currentTab);
        m_undoingTab = false;
        return;
    }
    m_currentTab = index;
    enterTab(index);
    m_pages->setCurrentIndex(index);
    // Enter in a grid adds a row; only the tab "Race" closes the screen with it.
    cmdOK->setDefault(index == kTabRace);
    cmdOK->setAutoDefault(index == kTabRace);
}

bool frmRace::leaveTab(int tab)
{
    switch (tab) {
    case kTabRace:
        if (txtRaceName->text().trimmed().isEmpty())
            return refuse(u"Race Name is a required field"_s, txtRaceName);
        if (m_raceChanged) {
            if (!saveRaceChanges())
                return false;
            m_raceChanged = false;
            cmdApply->setEnabled(anythingChanged());
        }
        return true;
    case kTabResults:
        if (!m_results->leaveCarChooser())
            return false;
        if (m_resultsChanged && !saveResultRows())
            return false;
        if (m_raceChanged && !saveRaceChanges())
            return false;
        clearMarks();
        return true;
    case kTabHeadHead:
        m_headHead->leaveTeamChooser();
        if (m_pairingsChanged) {
            if (!savePairings())
                return false;
            m_pairingsChanged = false;
            cmdApply->setEnabled(anythingChanged());
        }
        return true;
    default:
        return true;
    }
}

void frmRace::enterTab(int tab)
{
    const bool applyBefore = cmdApply->isEnabled();
    if (tab == kTabResults) {
        m_results->enter();
        m_resultsChanged = false;
    } else if (tab == kTabHeadHead) {
        m_pairingsChanged = false;
        m_headHead->enter();
        m_pairingsChanged = false;
    } else {
        return;
    }
    // Filling a tab is no change: cmdApply keeps the state it had.
    cmdApply->setEnabled(applyBefore);
}

void frmRace::okClicked()
{
    if (m_refusedClick.swallow(cmdOK))
        return;
    // A field typed into counts before the question whether anything is unsaved.
    if (!finishPendingField())
        return;
    if (cmdApply->isEnabled() && !saveRaceForm())
        return;
    closeForm(true);
}

void frmRace::reject()
{
    // A choice still open in a chooser counts as typed, so the question below knows of it.
    m_results->leaveCarChooser(false);
    m_headHead->leaveTeamChooser();
    const bool changed = m_raceChanged || m_resultsChanged;
    if (cancelClosesScreen(changed, changed ? m_race->raceName() : QString(),
                           [this] { return finishPendingField() && saveRaceForm(); },
                           YesOnCancel::SaveAndCloseIfSaved))
        closeForm(false);
}

void frmRace::postResultsClicked()
{
    if (m_refusedClick.swallow(m_results->postResultsButton()) || !finishPendingField() || !saveRaceForm())
        return;
    pbStatus->setValue(0);
    pbStatus->show();
    presenter().setProgressBar(pbStatus);
    setMousePointer(kPointerHourglass);
    const auto restore = qScopeGuard([this] {
        presenter().setProgressBar(nullptr);
        pbStatus->hide();
        setMousePointer(kPointerDefault);
    });
    postResults(*m_race);
}

void frmRace::closeForm(bool accepted)
{
    m_results->releaseCars();
    setStatusText();
    if (accepted)
        QDialog::accept();
    else
        QDialog::reject();
}

bool frmRace::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lblRaceName && event->type() == QEvent::MouseButtonRelease && isVisible())
        showRaceNumber();
    return false;
}
