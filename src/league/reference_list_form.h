#pragma once
#include <QDialog>
#include <QStringList>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// What the lists of groups and of race types share: one tab with the list and Add, Update and
// Delete beside it, OK and Cancel below. Every change is saved by the detail screen, so OK and
// Cancel only close. The list refreshes when the screen is shown; a click on a column header
// sorts by that column; double click updates, the Delete key deletes.
class frmReferenceList : public QDialog {
    Q_OBJECT
public:
    ~frmReferenceList() override;

protected:
    frmReferenceList(QWidget* parent, const QString& formName, const QString& caption, const QString& listName,
                     const QStringList& headers);

    virtual void refreshRows(const QString& selectName) = 0;
    virtual void addRecord() = 0;
    virtual void updateRecord() = 0;
    virtual void deleteRecord() = 0;

    QTreeWidget* list() const { return m_list; }
    // A new row whose record is the index-th of the screen's list (from 1).
    QTreeWidgetItem* addRow(const QStringList& texts, int index);
    // The list position (from 1) of the selected row's record; 0 when no row is selected.
    int selectedIndex() const;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTreeWidget* m_list = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdUpdate = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
