#pragma once
#include "shell/display_pane.h"

#include <memory>

class cCar;
class cCarCollection;
class cCarTypeCollection;
class cGroupCollection;
class cRaceTypeCollection;
class QComboBox;
class QLineEdit;
class QPushButton;

// The cars and drivers (and the top bonus entries) in a list, with a small editor above it that
// works on one working copy of a row: a click on a row (or the up and down keys) takes the row
// into the editor, offering first to save what is unsaved there.
class frmDisplayCars : public cDisplayPane, public tPaneInstance<frmDisplayCars> {
    Q_OBJECT
public:
    frmDisplayCars();
    ~frmDisplayCars() override;

    // Reloads and shows the pane; selection is a carNmbr, -1 for none.
    void display(int16_t selection);

    // The editor's fields into the working car, the checks in their order, then the save and a
    // refresh on the row that was selected. True when stored.
    bool saveCar();

protected:
    void rowChosen() override;

private:
    void buildEditor();
    QLineEdit* field(const QString& name);
    QComboBox* combo(const QString& name);
    void fillCombos();
    void editorChanged();
    bool unsaved() const;
    bool askToSave();
    void showWorkingCar();
    static void selectByName(QComboBox* combo, const QString& name);
    bool refuse(const QString& message, QWidget* field);
    bool checkDuplicateCar();
    bool checkDuplicateDriver();

    void addClicked();
    void updateClicked();
    void deleteClicked();
    void cancelClicked();

    std::unique_ptr<cCarCollection> m_cars;   // the rows' tags point into it
    std::unique_ptr<cCar> m_car;              // the working car of the editor
    std::unique_ptr<cRaceTypeCollection> m_raceTypes;
    std::unique_ptr<cCarTypeCollection> m_carTypes;
    std::unique_ptr<cGroupCollection> m_groups;
    bool m_filling = false;

    QLineEdit* txtCarNumber = nullptr;
    QLineEdit* txtDriver = nullptr;
    QLineEdit* txtSponsor = nullptr;
    QLineEdit* txtOwner = nullptr;
    QLineEdit* txtMake = nullptr;
    QLineEdit* txtSalary = nullptr;
    QComboBox* cmbRaceType = nullptr;
    QComboBox* cmbGroup = nullptr;
    QComboBox* cmbCarType = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdCancel = nullptr;
};
