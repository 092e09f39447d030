#pragma once
#include <QDialog>
#include <cstdint>

class cDetailScreen;
class cLinkLabel;
class cReportFormatTab;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

// "Report Details": per report, which columns it shows in which order (the column tab) and how
// its pages look (the format tab). Apply, OK and the question on leaving save the tab that is
// open; cmdApply is enabled exactly while that tab holds something unsaved.
class frmReportDetails : public QDialog {
    Q_OBJECT
public:
    explicit frmReportDetails(QWidget* parent = nullptr);
    ~frmReportDetails() override;

    // Lists the reports, none of them selected, and opens the column tab. Handlers stay quiet
    // while the screen is hidden, so it is left clean.
    void fill();
    void showWith();

    // Saves the tab that is open; true when saved.
    bool save();

    // Cancel, Escape and the window's close button: asks when something is unsaved.
    void reject() override;

private:
    void buildColumnTab(QWidget* page);
    QTreeWidget* makeColumnList(QWidget* page, const QString& name, const QString& caption);
    bool active() const;
    void markChanged();
    QString questionTitle() const;
    void showTab(int index);
    void showColumns();
    void askToSave();
    void reportChanged(int index);
    void tabChanged(int index);
    void moveColumn(QTreeWidget* from, QTreeWidget* to, QTreeWidgetItem* item);
    void addColumn();
    void removeColumn();
    bool saveColumns();

    cDetailScreen* m_screen = nullptr;
    int16_t m_reportNmbr = 0;   // the report shown; 0 while none is selected
    QString m_reportName;
    int m_shownTab = 0;          // the tab whose contents a save writes
    bool m_filling = false;

    QComboBox* cmbReports = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QTreeWidget* lvAvailable = nullptr;
    QTreeWidget* lvCurrent = nullptr;
    cLinkLabel* lblAdd = nullptr;
    cLinkLabel* lblRemove = nullptr;
    cReportFormatTab* m_format = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
