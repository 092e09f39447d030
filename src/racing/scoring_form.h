#pragma once
#include <QDialog>
#include <cstdint>

class cScoringFieldRules;
class cScoringRowsTab;
class cScoringType;
class QLineEdit;
class QPushButton;
class QTabWidget;

// The scoring method screen. Tab "Scoring Method" edits the record handed in (a working copy);
// tab "Scoring per Place" and tab "Top Scoring" (cScoringRowsTab) edit the method's rows of
// scoring_points and scoring_top_points, each saved as a whole grid. Leaving a tab saves it.
class frmScoring : public QDialog {
    Q_OBJECT
public:
    explicit frmScoring(QWidget* parent = nullptr);
    ~frmScoring() override;

    // Record -> first tab and caption. Handlers stay quiet while the screen is hidden.
    void fill(cScoringType& method);
    void showWith(cScoringType& method);

    // Apply and OK: saves the method, else the per-place rows, else the top rows. True on success.
    bool saveScoringForm();
    bool saveScoringMethod();
    bool saveScoringRows();
    bool saveTopScoringRows();

    // Appends a grid row: place = last place + 1 with "0" points; a top row of three "0".
    void addScoringRow();
    void addTopScoringRow();

    // Cancel, Escape and the window's close button: asks when the method or its per-place rows
    // are unsaved.
    void reject() override;

private:
    enum Tab { kMethodTab = 0, kPlaceTab = 1, kTopTab = 2 };

    void buildMethodTab(QWidget* page);
    bool active() const;
    void markChanged(Tab tab);
    void updateApply();
    void nameChanged(const QString& text);
    void storeBonus(void (cScoringType::*store)(int16_t), int16_t bonus);
    void tabChanged(int index);
    bool leaveTab(Tab tab);
    void keepTab(Tab tab);
    void clearRowsClicked(cScoringRowsTab* tab, bool& changed);
    void applyClicked();
    void okClicked();

    cScoringType* m_method = nullptr;
    bool m_methodChanged = false;
    bool m_pointsChanged = false;
    bool m_topChanged = false;
    bool m_filling = false;
    int m_currentTab = kMethodTab;
    cScoringFieldRules* m_rules = nullptr;   // the fields' leave rules, of all three tabs

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtScoringTypeName = nullptr;
    QLineEdit* txtLapsLedBonus = nullptr;
    QLineEdit* txtMostLapsLedBonus = nullptr;
    QLineEdit* txtFastQualBonus = nullptr;
    cScoringRowsTab* m_placeTab = nullptr;   // tab "Scoring per Place"
    cScoringRowsTab* m_topTab = nullptr;     // tab "Top Scoring"
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
