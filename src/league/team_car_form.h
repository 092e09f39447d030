#pragma once
#include "store/currency.h"

#include <QDate>
#include <QDialog>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class cCarCollection;
class cGroup;
class cTeam;
class cTeamCar;
class cValidateOnLeave;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class QTreeWidget;

// The outcome of checking a typed date when its field is left.
enum class DateCheck { Empty, Accepted, Refused };

// Leaving an effective date: "" passes; a date is rewritten in short form and must lie after the
// last date on which any league of the race type was scored; anything else is "Invalid Entry".
DateCheck checkEffectiveDate(QLineEdit* field, int16_t raceTypeNmbr);
// Leaving a termination date: a date is rewritten in short form, must lie after the car's last
// scored race for the team and must not precede the effective date typed beside it.
DateCheck checkTerminationDate(QLineEdit* field, const QLineEdit* efctvField, int16_t teamNmbr, int16_t carNmbr);

// The available salary of each league the team belongs to, as the roster screens show it:
// cap - total, or 0 when the league has a cap of 0. Each row's tag is the league's number.
void fillAvailableSalary(QTreeWidget* lvwLeagues, int16_t teamNmbr, Currency totalSalary);
// The list of the roster screens: "League Name" and "Available Salary".
QTreeWidget* newAvailableSalaryList(QWidget* parent);
// A combo of the team's possible entries: driverName for a driver, carTxt otherwise, the car's
// number as item data. Nothing chosen.
void fillCarChoices(QComboBox* combo, cCarCollection& cars);

// Date fields checked on leaving. A field edited and not yet checked is "pending"; a button
// that saves first settles them: a pending field is checked now, and a field whose check has
// just refused (the message was shown when the press took the focus) stops the save silently.
class cDateFieldGuard {
public:
    void add(QLineEdit* field, std::function<bool()> check);
    bool settle();
    void clear();   // after filling the screen: nothing pending

private:
    struct Field {
        QPointer<QLineEdit> edit;
        cValidateOnLeave* validator = nullptr;
        bool pending = false;
        bool refused = false;
    };
    std::vector<std::shared_ptr<Field>> m_fields;
};

// Adds, changes and ends one roster entry. Holds the rules of the game: the salary cap of each
// league, the limit of the car's group, and dates that may not rewrite scored history.
class frmTeamCar : public QDialog {
    Q_OBJECT
public:
    explicit frmTeamCar(QWidget* parent = nullptr);
    ~frmTeamCar() override;

    // For a new entry the caller has set only teamNmbr. totalSalary is the team's present
    // payroll as its roster screen last computed it; it is not changed here.
    void fill(cTeamCar& entry, Currency& totalSalary);
    void showWith(cTeamCar& entry, Currency& totalSalary);

    // The checks in their order, then the write; clears the screen for the next entry.
    bool saveEntry();

    // The date picker behind the two calendar buttons; nullopt when nothing was chosen.
    using DatePicker = std::function<std::optional<QDate>(const QDate& start)>;
    void setDatePicker(DatePicker picker) { m_pickDate = std::move(picker); }

private:
    void carActivated(int index);
    bool efctvDtLeft();
    bool termDtLeft();
    void pickDate(QLineEdit* field);
    bool refuse(const QString& message, QWidget* field = nullptr);
    void applyClicked();
    void okClicked();
    void textChanged();

    cTeamCar* m_entry = nullptr;
    std::unique_ptr<cTeam> m_team;
    Currency m_totalSalary;
    std::unique_ptr<cCarCollection> m_cars;
    std::unique_ptr<cGroup> m_group;
    cDateFieldGuard m_dates;
    DatePicker m_pickDate;

    QComboBox* cmbCarTxt = nullptr;
    QLineEdit* txtEfctvDt = nullptr;
    QToolButton* cmdEfctvDate = nullptr;
    QLineEdit* txtTermDt = nullptr;
    QToolButton* cmdTermDate = nullptr;
    QLineEdit* txtSalary = nullptr;
    QLineEdit* txtGroup = nullptr;
    QTreeWidget* lvwLeagues = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};

// The calendar window on a start date (today's when the field holds no date).
std::optional<QDate> pickDateWithCalendar(QWidget* parent, const QDate& start);
