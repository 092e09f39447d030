#pragma once
#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// "Select Report Folder": chooses the report folder (mode 1) or the backup folder (any other
// mode). Ok makes a missing folder and keeps the typed path in the global; Cancel, or closing
// the window, puts back the path it had when the window opened.
class frmBrowser : public QDialog {
    Q_OBJECT
public:
    explicit frmBrowser(int mode = 1, QWidget* parent = nullptr);

    int mode() const { return m_mode; }
    void done(int result) override;

private:
    QString& pathGlobal();
    void loadDrives();
    void showFolder(const QString& path);
    void populate(QTreeWidgetItem* item);
    QTreeWidgetItem* addFolderItem(QTreeWidgetItem* parent, const QString& path, const QString& name);
    void driveChosen(int index);
    void folderChosen(QTreeWidgetItem* item);
    void okClicked();

    int m_mode = 1;
    QString m_pathAtLoad;
    bool m_filling = false;
    QComboBox* m_drives = nullptr;
    QTreeWidget* m_paths = nullptr;
    QLineEdit* m_pathName = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
};
