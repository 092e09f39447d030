#pragma once
#include "league/reference_list_form.h"

#include <memory>

class cGroup;
class cGroupCollection;

// The list of groups. Groups below number 500 came with the data file: they can be renamed but
// not deleted.
class frmGroups : public frmReferenceList {
    Q_OBJECT
public:
    explicit frmGroups(QWidget* parent = nullptr);
    ~frmGroups() override;

    // Reloads the list; the row whose name equals selectName is selected.
    void refreshList(const QString& selectName = {}) { refreshRows(selectName); }
    void addGroup();
    void updateGroup();
    void deleteGroup();

protected:
    void refreshRows(const QString& selectName) override;
    void addRecord() override { addGroup(); }
    void updateRecord() override { updateGroup(); }
    void deleteRecord() override { deleteGroup(); }

private:
    cGroup* selectedGroup() const;   // the record of the selected row

    std::unique_ptr<cGroupCollection> m_groups;   // the records the rows stand for
};
