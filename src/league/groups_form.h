#pragma once
#include <QDialog>
#include <memory>

class cGroup;
class cGroupCollection;

class QPushButton;
class QTreeWidget;

// The list of groups with Add, Update and Delete. Every change is saved by the group screen,
// so OK and Cancel only close. Groups below number 500 came with the data file: they can be
// renamed but not deleted.
class frmGroups : public QDialog {
    Q_OBJECT
public:
    explicit frmGroups(QWidget* parent = nullptr);
    ~frmGroups() override;

    // Reloads the list; the row whose name equals selectName is selected.
    void refreshList(const QString& selectName = {});
    void addGroup();
    void updateGroup();
    void deleteGroup();

protected:
    bool event(QEvent* event) override;          // refresh on activation
    bool eventFilter(QObject* watched, QEvent* event) override;   // the Delete key in the list

private:
    cGroup* selectedGroup() const;   // the record of the selected row

    std::unique_ptr<cGroupCollection> m_groups;   // the records the rows stand for
    QTreeWidget* lvwGroups = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
