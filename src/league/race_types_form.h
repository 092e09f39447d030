#pragma once
#include <QDialog>
#include <memory>

class cRaceType;
class cRaceTypeCollection;

class QPushButton;
class QTreeWidget;

// The list of race types with Add, Update and Delete. Every change is saved by the race type
// screen, so OK and Cancel only close. Race types below number 500 came with the data file:
// they can be renamed but not deleted.
class frmRaceTypes : public QDialog {
    Q_OBJECT
public:
    explicit frmRaceTypes(QWidget* parent = nullptr);
    ~frmRaceTypes() override;

    // Reloads the list, sorted by name; the row whose name equals selectName is selected.
    void refreshList(const QString& selectName = {});
    void addRaceType();
    void updateRaceType();
    void deleteRaceType();

protected:
    bool event(QEvent* event) override;          // refresh on activation
    bool eventFilter(QObject* watched, QEvent* event) override;   // the Delete key in the list

private:
    cRaceType* selectedRaceType() const;   // the record of the selected row

    std::unique_ptr<cRaceTypeCollection> m_raceTypes;   // the records the rows stand for
    QTreeWidget* lvwRaceTypes = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
