#include "shell/cars_pane.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/car.h"
#include "league/car_type.h"
#include "league/group.h"
#include "league/race_type.h"
#include "store/currency.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Lapkeeper"_s;

const cPaneColumn kColumns[] = {
    {u"Car#", 600},   {u"Driver", 2500}, {u"Sponsor", 2000},   {u"Make", 1500},
    {u"Owner", 2500}, {u"Salary", 1500}, {u"Race Type", 1500},
};

} // namespace

frmDisplayCars::frmDisplayCars()
    : cDisplayPane(RecordKind::Car, u"frmDisplayCars"_s, u"Cars/Drivers"_s, nullptr),
      m_car(std::make_unique<cCar>())
{
    buildEditor();
    fillCombos();
    cancelClicked();
    resize(720, 480);
}

frmDisplayCars::~frmDisplayCars() = default;

QLineEdit* frmDisplayCars::field(const QString& name)
{
    auto* edit = new QLineEdit(this);
    edit->setObjectName(name);
    selectTextOnFocus(edit);
    connect(edit, &QLineEdit::textChanged, this, &frmDisplayCars::editorChanged);
    return edit;
}

QComboBox* frmDisplayCars::combo(const QString& name)
{
    auto* box = new QComboBox(this);
    box->setObjectName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(12);
    connect(box, &QComboBox::activated, this, &frmDisplayCars::editorChanged);
    return box;
}

void frmDisplayCars::buildEditor()
{
    txtCarNumber = field(u"txtCarNumber"_s);
    txtCarNumber->setMaxLength(10);
    txtDriver = field(u"txtDriver"_s);
    txtSponsor = field(u"txtSponsor"_s);
    txtOwner = field(u"txtOwner"_s);
    txtMake = field(u"txtMake"_s);
    txtSalary = field(u"txtSalary"_s);
    txtSalary->setAlignment(Qt::AlignRight);
    cmbRaceType = combo(u"cmbRaceType"_s);
    cmbGroup = combo(u"cmbGroup"_s);
    cmbCarType = combo(u"cmbCarType"_s);

    // Three rows of three labelled fields.
    const std::pair<QString, QWidget*> fields[] = {
        {u"Car Number:"_s, txtCarNumber}, {u"Driver:"_s, txtDriver},     {u"Sponsor:"_s, txtSponsor},
        {u"Owner:"_s, txtOwner},          {u"Make:"_s, txtMake},         {u"Salary:"_s, txtSalary},
        {u"Race Type:"_s, cmbRaceType},   {u"Group:"_s, cmbGroup},       {u"Car/Driver:"_s, cmbCarType},
    };
    auto* grid = new QGridLayout;
    for (int i = 0; i < 9; ++i) {
        auto* label = new QLabel(fields[i].first, this);
        label->setBuddy(fields[i].second);
        grid->addWidget(label, i / 3, (i % 3) * 2, Qt::AlignRight);
        grid->addWidget(fields[i].second, i / 3, (i % 3) * 2 + 1);
        grid->setColumnStretch((i % 3) * 2 + 1, 1);
    }

    auto button = [this](const QString& name, const QString& caption, void (frmDisplayCars::*handler)()) {
        QPushButton* push = makeButton(this, name, caption);
        connect(push, &QPushButton::clicked, this, handler);
        return push;
    };
    cmdAdd = button(u"cmdAdd"_s, u"&Add"_s, &frmDisplayCars::addClicked);
    cmdUpdate = button(u"cmdUpdate"_s, u"&Update"_s, &frmDisplayCars::updateClicked);
    cmdDelete = button(u"cmdDelete"_s, u"&Delete"_s, &frmDisplayCars::deleteClicked);
    cmdCancel = button(u"cmdCancel"_s, u"&Cancel"_s, &frmDisplayCars::cancelClicked);
    // Nothing is unsaved in a new editor.
    for (QPushButton* push : {cmdAdd, cmdUpdate, cmdDelete})
        push->setEnabled(false);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* push : {cmdAdd, cmdUpdate, cmdDelete, cmdCancel})
        buttons->addWidget(push);
    buttons->addStretch();

    auto* editor = new QHBoxLayout;
    editor->addLayout(grid, 1);
    editor->addSpacing(8);
    editor->addLayout(buttons);
    m_layout->insertLayout(0, editor);
}

void frmDisplayCars::fillCombos()
{
    m_raceTypes = std::make_unique<cRaceTypeCollection>();
    m_raceTypes->load();
    fillNumberCombo(cmbRaceType, *m_raceTypes, [](const cRaceType& r) { return r.raceTypeNmbr(); },
                    [](const cRaceType& r) { return r.raceTypeName(); });
    m_carTypes = std::make_unique<cCarTypeCollection>();
    m_carTypes->loadNoBonus();
    fillNumberCombo(cmbCarType, *m_carTypes, [](const cCarType& c) { return c.carTypeNmbr(); },
                    [](const cCarType& c) { return c.carTypeName(); });
    m_groups = std::make_unique<cGroupCollection>();
    m_groups->load();
    fillNumberCombo(cmbGroup, *m_groups, [](const cGroup& g) { return g.groupNmbr(); },
                    [](const cGroup& g) { return g.groupName(); });
    cmbGroup->addItem(QString(), -1);
}

// ---------------------------------------------------------------- list

void frmDisplayCars::display(int16_t selection)
{
    auto cars = std::make_unique<cCarCollection>();
    cars->load();
    cRaceTypeCollection raceTypes;
    raceTypes.load();

    beginFill(kColumns);
    for (cCar& car : *cars) {
        addRow({car.carTxt(), car.driverName(), car.sponsor(), car.carMake(), car.carOwner(),
                car.salary().toCurrencyText(), raceTypes.getRaceTypeName(cVariant(int(car.raceTypeNmbr())))},
               &car, car.carNmbr() == selection);
    }
    m_cars = std::move(cars);
    endFill(selection == -1);
}

// ---------------------------------------------------------------- editor

void frmDisplayCars::editorChanged()
{
    if (m_filling)
        return;
    if (m_car->carNmbr() < 1)
        cmdAdd->setEnabled(true);
    else
        cmdUpdate->setEnabled(true);
}

bool frmDisplayCars::unsaved() const
{
    return cmdAdd->isEnabled() || cmdUpdate->isEnabled();
}

// The question before unsaved changes are left. False when the operator cancelled: the list then
// comes back on the working car's row and the edit stays.
bool frmDisplayCars::askToSave()
{
    const Answer answer = messageBox(u"Do you want to save changes"_s, m_car->carTxt() + u"   "_s + m_car->driverName(),
                                     Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Cancel) {
        display(m_car->carNmbr());
        return false;
    }
    if (answer == Answer::Yes) {
        saveCar();
        cmdAdd->setEnabled(false);
        cmdUpdate->setEnabled(false);
    }
    return true;
}

void frmDisplayCars::rowChosen()
{
    if (unsaved() && !askToSave())
        return;
    const cCar* row = selectedRecord<cCar>();
    if (!row)
        return;
    m_car = std::make_unique<cCar>(row->copy());
    showWorkingCar();
}

void frmDisplayCars::selectByName(QComboBox* combo, const QString& name)
{
    combo->setCurrentIndex(name.isEmpty() ? -1 : combo->findText(name, Qt::MatchExactly));
}

void frmDisplayCars::showWorkingCar()
{
    const cCar& car = *m_car;
    m_filling = true;
    txtCarNumber->setText(car.carTxt());
    txtDriver->setText(car.driverName());
    txtSponsor->setText(car.sponsor());
    txtOwner->setText(car.carOwner());
    txtMake->setText(car.carMake());
    txtSalary->setText(car.salary() == Currency() ? u"0"_s : car.salary().toCurrencyText());
    selectByName(cmbRaceType, m_raceTypes->getRaceTypeName(cVariant(int(car.raceTypeNmbr()))));
    selectByName(cmbGroup, m_groups->getGroupName(car.groupNmbr()));
    selectByName(cmbCarType, m_carTypes->getCarTypeName(car.carTypeNmbr()));
    m_filling = false;

    // The identifying text of a saved car or driver is not edited here; a bonus row keeps both.
    txtCarNumber->setEnabled(!car.isCar());
    txtDriver->setEnabled(!car.isDriver());
    const bool saved = car.carNmbr() >= 1;
    cmbCarType->setEnabled(!saved);
    cmbRaceType->setEnabled(!saved);
    cmdUpdate->setEnabled(false);
    cmdAdd->setEnabled(false);
    cmdDelete->setEnabled(true);
}

bool frmDisplayCars::refuse(const QString& message, QWidget* field)
{
    return refuseField(message, field);
}

bool frmDisplayCars::checkDuplicateCar()
{
    if (!m_car->carTxtExists(txtCarNumber->text(), m_car->carNmbr(), m_car->raceTypeNmbr(), m_car->carTypeNmbr()))
        return true;
    messageBox(u"Duplicate Car"_s, kTitle, Icon::Critical);
    return false;
}

bool frmDisplayCars::checkDuplicateDriver()
{
    if (!m_car->driverExists(txtDriver->text(), m_car->carNmbr(), m_car->raceTypeNmbr(), m_car->carTypeNmbr()))
        return true;
    messageBox(u"Duplicate Driver"_s, kTitle, Icon::Critical);
    return false;
}

bool frmDisplayCars::saveCar()
{
    cCar& car = *m_car;
    car.setCarMake(txtMake->text());
    car.setCarTxt(txtCarNumber->text());
    car.setCarOwner(txtOwner->text());
    car.setCarTypeNmbr(comboNumber(cmbCarType, cmbCarType->currentIndex(), 0));
    car.setDriverName(txtDriver->text());
    car.setGroupNmbr(cVariant(int(comboNumber(cmbGroup, cmbGroup->currentIndex(), -1))));
    car.setRaceTypeNmbr(comboNumber(cmbRaceType, cmbRaceType->currentIndex(), -1));
    Currency salary;
    const bool salaryIsNumber = Currency::parse(txtSalary->text(), salary);
    if (salaryIsNumber)
        car.setSalary(salary);
    car.setSponsor(txtSponsor->text());

    if (cmbRaceType->currentIndex() < 0)
        return refuse(u"Race Type is a required field"_s, cmbRaceType);
    if (car.isCar()) {
        if (car.carTxt().isEmpty())
            return refuse(u"Car Number is a required field"_s, txtCarNumber);
        if (!checkDuplicateCar()) {
            txtCarNumber->setFocus(Qt::OtherFocusReason);
            return false;
        }
    }
    if (car.isDriver()) {
        if (car.driverName().isEmpty())
            return refuse(u"Driver is a required field"_s, txtDriver);
        if (!checkDuplicateDriver()) {
            txtDriver->setFocus(Qt::OtherFocusReason);
            return false;
        }
    }
    if (!car.isBonus() && !car.isCar() && !car.isDriver())
        return refuse(u"You must define this as a Car or Driver"_s, cmbCarType);
    if (car.isDriver() && car.carNmbr() < 1) {
        const Answer answer = messageBox(u"Driver name can not be changed once the Driver is saved.\n"_s
                                         u"Are you sure the name is spelled correctly?"_s,
                                         kTitle, Icon::Question, Buttons::YesNoCancel);
        if (answer != Answer::Yes) {
            txtDriver->setFocus(Qt::OtherFocusReason);
            return false;
        }
    }
    if (!salaryIsNumber)
        return refuse(u"Invalid Salary amount"_s, txtSalary);

    const cCar* selected = selectedRecord<cCar>();
    const int16_t selection = selected ? selected->carNmbr() : int16_t(-1);
    const bool stored = car.CommitChanges();
    display(selection);
    return stored;
}

// ---------------------------------------------------------------- buttons

void frmDisplayCars::addClicked()
{
    if (saveCar()) {
        cmdAdd->setEnabled(false);
        cmdDelete->setEnabled(true);
    }
    display(m_car->carNmbr());
}

void frmDisplayCars::updateClicked()
{
    if (saveCar()) {
        cmdUpdate->setEnabled(false);
        cmdDelete->setEnabled(true);
    }
}

// No question and none of the roster or result checks of the delete command.
void frmDisplayCars::deleteClicked()
{
    m_car->deleteRow();
    cancelClicked();
    display(-1);
}

void frmDisplayCars::cancelClicked()
{
    if (unsaved() && !askToSave())
        return;
    m_car = std::make_unique<cCar>();
    m_filling = true;
    for (QLineEdit* edit : {txtCarNumber, txtDriver, txtSponsor, txtOwner, txtMake})
        edit->clear();
    txtSalary->setText(u"0"_s);
    for (QComboBox* box : {cmbRaceType, cmbGroup, cmbCarType})
        box->setCurrentIndex(-1);
    m_filling = false;
    for (QWidget* widget : std::initializer_list<QWidget*>{txtCarNumber, txtDriver, txtSponsor, txtOwner, txtMake,
                                                           txtSalary, cmbRaceType, cmbGroup, cmbCarType})
        widget->setEnabled(true);
    cmdAdd->setEnabled(false);
    cmdUpdate->setEnabled(false);
    cmdDelete->setEnabled(false);
    txtCarNumber->setFocus(Qt::OtherFocusReason);
}
