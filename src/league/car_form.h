#pragma once
#include "base/detail_screen.h"
#include <QDialog>

class cCar;
class cDetailScreen;
class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The screen of one car, driver or top bonus entry. It edits the record handed in, field by
// field, and only a save writes the table, so callers hand in a working copy (cCar::copy).
// Once saved, a car keeps its kind and number and a driver its kind and name (showCarKind).
class frmCar : public QDialog {
    Q_OBJECT
public:
    explicit frmCar(QWidget* parent = nullptr);
    ~frmCar() override;

    // Record -> controls. Handlers stay quiet while the screen is hidden, so it is left clean.
    void fill(cCar& car);
    void showWith(cCar& car);

    // Apply, OK and the Yes of Cancel come here: the checks in their order, then the save.
    bool applyCar();

public slots:
    // Cancel, Escape and the close box: asks when something is unsaved.
    void reject() override;

private:
    void fillLists();
    void showCarKind();
    void refreshCaption();
    void textCaption();
    bool validateCar();
    bool checkDuplicateCar();
    bool checkDuplicateDriver();
    bool carNumberLeft();
    bool driverLeft();
    bool salaryLeft();
    void salaryFocusLost();
    void markRecordChanged();

    void carNumberChanged(const QString& text);
    void driverChanged(const QString& text);
    void kindClicked(int16_t carTypeNmbr);
    void raceTypeActivated(int index);
    void groupActivated(int index);
    void okClicked();
    void showCarNumber();

    cCar* m_car = nullptr;
    cDetailScreen* m_detail = nullptr;
    int m_raceTypeIndex = -1;   // the entry of cmbRaceType that the record holds
    cRefusedClick m_refusedClick;   // a button whose press a refused field undid

    QLabel* lblCarNmbr = nullptr;
    QLineEdit* txtCarNumber = nullptr;
    QLineEdit* txtDriver = nullptr;
    QLineEdit* txtSponsor = nullptr;
    QLineEdit* txtOwner = nullptr;
    QLineEdit* txtMake = nullptr;
    QComboBox* cmbRaceType = nullptr;
    QRadioButton* OptCar = nullptr;
    QRadioButton* OptDriver = nullptr;
    QRadioButton* optBonus = nullptr;
    QLineEdit* txtSalary = nullptr;
    QComboBox* cmbGroup = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
