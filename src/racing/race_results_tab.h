#pragma once
#include "league/car.h"

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class cRaces;
class cRefusedClick;
class cRowGrid;
class QCheckBox;
class QComboBox;
class QFrame;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

// The tab "Results" of the race screen: the race's status, its result as a grid of rows with
// one car chooser (cmbCarNmbr) over the row being edited, the field rules of the rows, and the
// commands on the race's results and posting. The race screen owns the save flow; this tab
// tells it of changes and answers for the rows.
class cRaceResultsTab : public QWidget {
    Q_OBJECT
public:
    // What the tab needs of the screen around it.
    struct Host {
        std::function<void()> resultsChanged;     // a row was edited
        std::function<void()> raceChanged;        // the race's status was chosen
        std::function<QString()> raceTypeText;    // the race type as the screen shows it
        std::function<void()> reloaded;           // the rows were filled from the data file
        std::function<bool()> newCar;             // runs the program's new-car command; false: there is none
    };

    cRaceResultsTab(cRefusedClick& refusedClick, Host host, QWidget* parent);
    ~cRaceResultsTab() override;

    // A new race record: the car list of its series and kind, the grid to be loaded again.
    void setRace(cRaces& race);
    // The race's series or kind changed: the car list follows it.
    void raceKindChanged();
    // Entering the tab: the status list, the rows of the race unless loaded already.
    void enter();
    // The grid as a list of results (rows without a place or a car are left out), checked and
    // written in one transaction; the race's posting goes with it.
    bool save();
    // Copies the chooser into its row and closes it; with checkDuplicates a car already in
    // another row is refused (message, chooser open again, false).
    bool leaveCarChooser(bool checkDuplicates = true);
    // The car list is dropped when the screen closes.
    void releaseCars();

    QPushButton* postResultsButton() const { return cmdPostResults; }

signals:
    // Post Results was clicked; the screen saves, then posts.
    void postResultsRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // One row of the results grid. The car's number is the tag of txtCarNmbr.
    struct cResultRow {
        QLineEdit* txtPlace = nullptr;
        QLineEdit* txtCarNmbr = nullptr;
        QLineEdit* txtLapsLed = nullptr;
        QCheckBox* chkFastQual = nullptr;
        QLineEdit* txtQualified = nullptr;
        QLineEdit* txtAdjustment = nullptr;
        int16_t carTag = 0;
    };

    void markChanged();
    void loadResultRows();
    void fillCarList();
    cResultRow& addRow(int16_t place);
    void removeRowsFrom(int index);
    int resultRowOf(const QObject* field) const;
    void installRowRules(cResultRow& row);
    bool placeLeft(QLineEdit* field);
    bool numberLeft(QLineEdit* field);
    bool passed();
    bool invalidEntry(QLineEdit* field);
    void enterCarChooser(int row);
    void placeCarChooser();
    bool typeIntoCarChooser(const QKeyEvent& key);
    void addResultRow(int row);
    void raceStatusActivated(int index);
    void clearPostingClicked();
    void clearResultsClicked();
    void getResultsClicked();
    void addNewCarClicked();

    cRefusedClick& m_refusedClick;
    Host m_host;
    cRaces* m_race = nullptr;
    std::unique_ptr<cCarCollection> m_cars;
    bool m_resultsLoaded = false;
    bool m_filling = false;          // the program is filling a control: no change counts
    bool m_leavingChooser = false;   // the chooser is being closed: focus moves open nothing
    int m_carRow = -1;               // the results row that cmbCarNmbr covers
    QString m_typedCar;              // typed into the chooser since it opened or a pick was made
    std::vector<cResultRow> m_rows;

    QFrame* fraResults = nullptr;
    QComboBox* cmbRaceStatus = nullptr;
    QPushButton* cmdGetResults = nullptr;
    QPushButton* cmdPostResults = nullptr;
    QPushButton* cmdClearPosting = nullptr;
    QPushButton* cmdClearResults = nullptr;
    QPushButton* cmdAddNewCar = nullptr;
    QLabel* lblhitEnter = nullptr;
    cRowGrid* m_resultGrid = nullptr;
    QScrollBar* VScroll1 = nullptr;
    QComboBox* cmbCarNmbr = nullptr;
};
