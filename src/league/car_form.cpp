#include "league/car_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car.h"
#include "league/group.h"
#include "league/race_type.h"
#include "league/team_car.h"
#include "store/currency.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;

// Runs a routine on a click on a widget that has no click of its own (a label), and on the
// focus leaving one (the salary's lost focus).
class cEventHook : public QObject {
public:
    cEventHook(QWidget* target, QEvent::Type type, std::function<void()> action)
        : QObject(target), m_type(type), m_action(std::move(action))
    {
        target->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == m_type)
            m_action();
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

int16_t itemNumber(const QComboBox* combo, int index)
{
    return static_cast<int16_t>(combo->itemData(index).toInt());
}

// Radio buttons of one kind group: none may be chosen on a new record.
void setChecked(QRadioButton* option, bool checked)
{
    const bool exclusive = option->autoExclusive();
    option->setAutoExclusive(false);
    option->setChecked(checked);
    option->setAutoExclusive(exclusive);
}

} // namespace

frmCar::frmCar(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmCar"_s);
    setWindowTitle(u"Car/Driver"_s);

    auto line = [this](const QString& name) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(name);
        selectTextOnFocus(edit);
        return edit;
    };
    txtCarNumber = line(u"txtCarNumber"_s);
    txtCarNumber->setMaxLength(10);
    txtDriver = line(u"txtDriver"_s);
    txtSponsor = line(u"txtSponsor"_s);
    txtOwner = line(u"txtOwner"_s);
    txtMake = line(u"txtMake"_s);
    txtSalary = line(u"txtSalary"_s);
    txtSalary->setAlignment(Qt::AlignRight);
    cmbRaceType = new QComboBox(this);
    cmbRaceType->setObjectName(u"cmbRaceType"_s);
    cmbGroup = new QComboBox(this);
    cmbGroup->setObjectName(u"cmbGroup"_s);

    auto* kind = new QGroupBox(this);
    kind->setObjectName(u"fraCarType"_s);
    OptCar = new QRadioButton(u"Car"_s, kind);
    OptCar->setObjectName(u"OptCar"_s);
    OptDriver = new QRadioButton(u"Driver"_s, kind);
    OptDriver->setObjectName(u"OptDriver"_s);
    optBonus = new QRadioButton(u"Top Bonus"_s, kind);
    optBonus->setObjectName(u"optBonus"_s);
    auto* kinds = new QHBoxLayout(kind);
    kinds->addWidget(OptCar);
    kinds->addWidget(OptDriver);
    kinds->addWidget(optBonus);
    kinds->addStretch();

    lblCarNmbr = new QLabel(u"Car Number:"_s, this);
    lblCarNmbr->setObjectName(u"lblCarNmbr"_s);
    lblCarNmbr->setBuddy(txtCarNumber);

    auto* form = new QFormLayout;
    form->addRow(kind);
    form->addRow(lblCarNmbr, txtCarNumber);
    form->addRow(u"Driver:"_s, txtDriver);
    form->addRow(u"Sponsor:"_s, txtSponsor);
    form->addRow(u"Owner:"_s, txtOwner);
    form->addRow(u"Make:"_s, txtMake);
    form->addRow(u"Race Type:"_s, cmbRaceType);
    form->addRow(u"Salary:"_s, txtSalary);
    form->addRow(u"Group:"_s, cmbGroup);

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addLayout(buttons.layout);
    setMinimumWidth(380);

    m_detail = new cDetailScreen(this, cmdApply,
                                 {[this] { return validateCar(); },
                                  [this] { return m_car->carTxt() + u"   "_s + m_car->driverName(); },
                                  [this] { QDialog::accept(); }});

    connect(txtCarNumber, &QLineEdit::textChanged, this, &frmCar::carNumberChanged);
    connect(txtDriver, &QLineEdit::textChanged, this, &frmCar::driverChanged);
    connect(txtMake, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (isVisible()) {
            m_car->setCarMake(text);
            markRecordChanged();
        }
    });
    connect(txtSponsor, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (isVisible()) {
            m_car->setSponsor(text);
            markRecordChanged();
        }
    });
    connect(txtOwner, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (isVisible()) {
            m_car->setCarOwner(text);
            markRecordChanged();
        }
    });
    connect(txtSalary, &QLineEdit::textChanged, this, [this] {
        m_refusedClick.clear();
        markRecordChanged();
    });
    connect(OptCar, &QRadioButton::clicked, this, [this] { kindClicked(1); });
    connect(OptDriver, &QRadioButton::clicked, this, [this] { kindClicked(2); });
    connect(optBonus, &QRadioButton::clicked, this, [this] { kindClicked(3); });
    connect(cmbRaceType, &QComboBox::activated, this, &frmCar::raceTypeActivated);
    connect(cmbGroup, &QComboBox::activated, this, &frmCar::groupActivated);
    connect(cmdApply, &QPushButton::clicked, this, [this] {
        if (!m_refusedClick.swallow(cmdApply))
            applyCar();
    });
    connect(cmdOK, &QPushButton::clicked, this, &frmCar::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmCar::reject);

    cValidateOnLeave::install(txtCarNumber, [this] { return carNumberLeft(); });
    cValidateOnLeave::install(txtDriver, [this] { return driverLeft(); });
    cValidateOnLeave::install(txtSalary, [this] { return salaryLeft(); });
    new cEventHook(txtSalary, QEvent::FocusOut, [this] { salaryFocusLost(); });
    new cEventHook(lblCarNmbr, QEvent::MouseButtonRelease, [this] { showCarNumber(); });
}

frmCar::~frmCar() = default;

void frmCar::showWith(cCar& car)
{
    fill(car);
    exec();
}

void frmCar::fill(cCar& car)
{
    m_car = &car;
    txtCarNumber->setText(car.carTxt());
    txtDriver->setText(car.driverName());
    txtSponsor->setText(car.sponsor());
    txtOwner->setText(car.carOwner());
    txtMake->setText(car.carMake());
    txtSalary->setText(car.salary().toCurrencyText());
    fillLists();
    showCarKind();
    m_detail->markSaved();
}

void frmCar::fillLists()
{
    cRaceTypeCollection raceTypes;
    raceTypes.load();
    fillNumberCombo(cmbRaceType, raceTypes, [](const cRaceType& r) { return r.raceTypeNmbr(); },
                    [](const cRaceType& r) { return r.raceTypeName(); });
    selectComboNumber(cmbRaceType, m_car->raceTypeNmbr(),
                      !raceTypes.getRaceTypeName(cVariant(int(m_car->raceTypeNmbr()))).isEmpty());
    m_raceTypeIndex = cmbRaceType->currentIndex();

    cGroupCollection groups;
    groups.load();
    fillNumberCombo(cmbGroup, groups, [](const cGroup& g) { return g.groupNmbr(); },
                    [](const cGroup& g) { return g.groupName(); });
    // The blank entry takes a car out of its group.
    cmbGroup->addItem(QString(), -1);
    const cVariant group = m_car->groupNmbr();
    selectComboNumber(cmbGroup, group.isNull() ? -1 : group.toInt16(), !groups.getGroupName(group).isEmpty());
}

// The kind of a saved entry is fixed, and so are a car's number and a driver's name.
void frmCar::showCarKind()
{
    switch (m_car->carTypeNmbr()) {
    case 1:
        setChecked(OptCar, true);
        OptDriver->setEnabled(false);
        OptCar->setEnabled(false);
        txtCarNumber->setEnabled(false);
        break;
    case 2:
        setChecked(OptDriver, true);
        OptDriver->setEnabled(false);
        OptCar->setEnabled(false);
        txtDriver->setEnabled(false);
        break;
    case 3:
        setChecked(optBonus, true);
        optBonus->setEnabled(false);
        OptDriver->setEnabled(false);
        OptCar->setEnabled(false);
        txtDriver->setEnabled(true);
        break;
    default:
        return;
    }
    refreshCaption();
}

void frmCar::refreshCaption()
{
    switch (m_car->carTypeNmbr()) {
    case 2:
        setWindowTitle(u"Driver - "_s + m_car->driverName() + u" "_s + m_car->carTxt());
        break;
    case 3:
        setWindowTitle(u"Bonus - "_s + m_car->carTxt() + u"  "_s + m_car->driverName());
        break;
    default:
        setWindowTitle(u"Car - "_s + m_car->carTxt() + u"  "_s + m_car->driverName());
        break;
    }
}

void frmCar::markRecordChanged()
{
    m_detail->markChanged();
}

void frmCar::carNumberChanged(const QString& text)
{
    if (!isVisible())
        return;
    m_refusedClick.clear();
    m_car->setCarTxt(text);
    markRecordChanged();
    textCaption();
}

void frmCar::driverChanged(const QString& text)
{
    if (!isVisible())
        return;
    m_refusedClick.clear();
    m_car->setDriverName(text);
    markRecordChanged();
    textCaption();
}

// While typing, the caption takes the driver form when OptDriver is chosen, else the car form.
void frmCar::textCaption()
{
    if (OptDriver->isChecked())
        setWindowTitle(u"Driver - "_s + m_car->driverName() + u" "_s + m_car->carTxt());
    else
        setWindowTitle(u"Car - "_s + m_car->carTxt() + u"  "_s + m_car->driverName());
}

void frmCar::kindClicked(int16_t carTypeNmbr)
{
    m_car->setCarTypeNmbr(carTypeNmbr);
    markRecordChanged();
}

// A car that stands on a roster of its race type keeps the race type.
void frmCar::raceTypeActivated(int index)
{
    if (index < 0 || itemNumber(cmbRaceType, index) == m_car->raceTypeNmbr()) {
        m_raceTypeIndex = index;
        return;
    }
    cTeamCarCollection rosters;
    if (rosters.raceTypeExists(m_car->raceTypeNmbr(), std::nullopt, m_car->carNmbr())) {
        messageBox(u"This Car is a member of at least one Team for the current Race Type.\n"_s
                   u"Can not change Race Type."_s,
                   kTitle, Icon::Critical);
        cmbRaceType->setCurrentIndex(m_raceTypeIndex);
        return;
    }
    m_car->setRaceTypeNmbr(itemNumber(cmbRaceType, index));
    m_raceTypeIndex = index;
    markRecordChanged();
}

void frmCar::groupActivated(int index)
{
    if (index < 0)
        return;
    const int16_t chosen = itemNumber(cmbGroup, index);
    if (sameNumber(m_car->groupNmbr(), chosen))
        return;
    m_car->setGroupNmbr(cVariant(int(chosen)));
    markRecordChanged();
}

bool frmCar::checkDuplicateCar()
{
    if (!m_car->carTxtExists(txtCarNumber->text(), m_car->carNmbr(),
                             itemNumber(cmbRaceType, cmbRaceType->currentIndex()), m_car->carTypeNmbr()))
        return true;
    m_refusedClick.note();
    messageBox(u"Duplicate Car"_s, kTitle, Icon::Critical);
    return false;
}

bool frmCar::checkDuplicateDriver()
{
    if (!m_car->driverExists(txtDriver->text(), m_car->carNmbr(),
                             itemNumber(cmbRaceType, cmbRaceType->currentIndex()), m_car->carTypeNmbr()))
        return true;
    m_refusedClick.note();
    messageBox(u"Duplicate Driver"_s, kTitle, Icon::Critical);
    return false;
}

bool frmCar::carNumberLeft()
{
    m_refusedClick.clear();
    if (OptCar->isChecked() && cmbRaceType->currentIndex() >= 0)
        return checkDuplicateCar();
    return true;
}

bool frmCar::driverLeft()
{
    m_refusedClick.clear();
    if (OptDriver->isChecked() && cmbRaceType->currentIndex() >= 0)
        return checkDuplicateDriver();
    return true;
}

bool frmCar::salaryLeft()
{
    m_refusedClick.clear();
    Currency salary;
    if (Currency::parse(txtSalary->text(), salary))
        return true;
    m_refusedClick.note();
    messageBox(u"Invalid Salary amount"_s, kTitle, Icon::Critical);
    txtSalary->selectAll();
    return false;
}

// A number is stored as the salary and shown again as currency.
void frmCar::salaryFocusLost()
{
    if (!isVisible() || !m_car)
        return;
    Currency salary;
    if (!Currency::parse(txtSalary->text(), salary))
        return;
    m_car->setSalary(salary);
    txtSalary->setText(salary.toCurrencyText());
}

// The checks of a save, in their order; each failure shows one message and puts the focus on
// its field.
bool frmCar::validateCar()
{
    const auto refuse = [](const QString& text, QWidget* field) { return refuseField(text, field); };
    if (cmbRaceType->currentIndex() < 0)
        return refuse(u"Race Type is a required field"_s, cmbRaceType);
    if (!optBonus->isChecked() && txtCarNumber->text().isEmpty())
        return refuse(u"Car Number is a required field"_s, txtCarNumber);
    if (OptCar->isChecked() && !checkDuplicateCar()) {
        txtCarNumber->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (!optBonus->isChecked() && txtDriver->text().isEmpty())
        return refuse(u"Driver is a required field"_s, txtDriver);
    if (OptDriver->isChecked() && !checkDuplicateDriver()) {
        txtDriver->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (optBonus->isChecked()) {
        // The saved bonus entry itself has optBonus disabled and passes.
        cCarCollection bonuses;
        if (bonuses.load(m_car->raceTypeNmbr(), m_car->carTypeNmbr()) > 0 && optBonus->isEnabled())
            return refuse(u"You can only have one Bonus type per Race Type."_s, nullptr);
    }
    if (!OptCar->isChecked() && !OptDriver->isChecked() && !optBonus->isChecked())
        return refuse(u"You must define this as a Car or Driver"_s, nullptr);
    if (OptDriver->isChecked() && m_car->carNmbr() < 1) {
        const Answer answer = messageBox(u"Driver name can not be changed once the Driver is saved.\n"_s
                                         u"Are you sure the name is spelled correctly?"_s,
                                         kTitle, Icon::Question, Buttons::YesNoCancel);
        if (answer != Answer::Yes) {
            txtDriver->setFocus(Qt::OtherFocusReason);
            return false;
        }
    }
    Currency salary;
    if (!Currency::parse(txtSalary->text(), salary))
        return refuse(u"Invalid Salary amount"_s, txtSalary);
    // A save from the keyboard need not have left the salary field: store what it shows.
    m_car->setSalary(salary);
    const bool saved = m_car->CommitChanges();
    if (saved)
        showCarKind();
    return saved;
}

bool frmCar::applyCar()
{
    return m_detail->apply();
}

void frmCar::okClicked()
{
    if (m_refusedClick.swallow(cmdOK))
        return;
    if (cmdApply->isEnabled() && !applyCar())
        return;
    QDialog::accept();
}

// Yes saves and leaves the screen open, so the operator sees the result; No closes.
void frmCar::reject()
{
    const bool changed = m_car && m_detail->isChanged();
    if (cancelClosesScreen(changed, changed ? m_car->carTxt() + u"   "_s + m_car->driverName() : QString(),
                           [this] { return applyCar(); }, YesOnCancel::SaveAndStay))
        QDialog::reject();
}

void frmCar::showCarNumber()
{
    if (m_car)
        messageBox(u"Car number is "_s + QString::number(m_car->carNmbr()));
}

