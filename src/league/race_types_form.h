#pragma once
#include "league/reference_list_form.h"

#include <memory>

class cRaceType;
class cRaceTypeCollection;

// The list of race types. Race types below number 500 came with the data file: they can be
// renamed but not deleted.
class frmRaceTypes : public frmReferenceList {
    Q_OBJECT
public:
    explicit frmRaceTypes(QWidget* parent = nullptr);
    ~frmRaceTypes() override;

    // Reloads the list, sorted by name; the row whose name equals selectName is selected.
    void refreshList(const QString& selectName = {}) { refreshRows(selectName); }
    void addRaceType();
    void updateRaceType();
    void deleteRaceType();

protected:
    void refreshRows(const QString& selectName) override;
    void addRecord() override { addRaceType(); }
    void updateRecord() override { updateRaceType(); }
    void deleteRecord() override { deleteRaceType(); }

private:
    cRaceType* selectedRaceType() const;   // the record of the selected row

    std::unique_ptr<cRaceTypeCollection> m_raceTypes;   // the records the rows stand for
};
