#pragma once
#include "league/team_car_form.h"
#include "store/currency.h"

#include <QDialog>
#include <memory>
#include <vector>

class cCarCollection;
class cTeam;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTreeWidget;

// Adds several roster entries at once from a grid of rows. Unlike the single-entry screen it
// tests only the sum of the new salaries against every league (a league without a cap then
// refuses any sum above 0), never the group limits, only inserts, and keeps its rows after a
// save.
class frmTeamCarMultiple : public QDialog {
    Q_OBJECT
public:
    explicit frmTeamCarMultiple(QWidget* parent = nullptr);
    ~frmTeamCarMultiple() override;

    void fill(cTeam& team, Currency totalSalary);
    void showWith(cTeam& team, Currency totalSalary);

    // Checks every row with a car, then the sum against each league, then inserts the rows.
    bool saveRows();

    int rowCount() const { return static_cast<int>(m_rows.size()); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row {
        QComboBox* cmbCar = nullptr;
        QLineEdit* txtEfctvDt = nullptr;
        QLineEdit* txtTermDt = nullptr;
        QLineEdit* txtSalary = nullptr;
        QLineEdit* txtGroup = nullptr;
    };
    void addRow();
    void carActivated(int row, int index);
    void moveToNextRow(int row);
    int rowOf(QObject* widget) const;
    int16_t carOf(int row) const;
    void applyClicked();
    void okClicked();

    cTeam* m_team = nullptr;
    Currency m_totalSalary;
    std::unique_ptr<cCarCollection> m_cars;
    std::vector<Row> m_rows;
    cDateFieldGuard m_dates;

    QTableWidget* m_grid = nullptr;
    QTreeWidget* lvwLeagues = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
