#pragma once
#include "base/detail_screen.h"
#include <QDialog>
#include <QHash>
#include <cstdint>

class cScoringGrid;
class cScoringType;
class cValidateOnLeave;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

// The scoring method screen. Tab "Scoring Method" edits the record handed in (a working copy);
// tab "Scoring per Place" and tab "Top Scoring" edit the method's rows of scoring_points and
// scoring_top_points, each saved as a whole grid. Leaving a tab saves it.
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
    using FieldCheck = bool (*)(frmScoring*, QLineEdit*);

    void buildMethodTab(QWidget* page);
    QWidget* buildGridTab(QWidget* page, cScoringGrid* grid, QPushButton* clear);
    bool active() const;
    void markChanged(Tab tab);
    void updateApply();
    void nameChanged(const QString& text);
    bool checkBonus(QLineEdit* field, void (cScoringType::*store)(int16_t));
    bool checkWholeOrBlank(QLineEdit* field);
    bool checkSignedNumber(QLineEdit* field);
    bool invalidEntry(QLineEdit* field);
    bool validateFocusedField();
    void installCheck(QLineEdit* field, FieldCheck check);
    void clearGrid(cScoringGrid* grid);
    void placeRowCreated(int row);
    void topRowCreated(int row);
    void gridEnter(cScoringGrid* grid, int row);
    void loadScoringRows();
    void loadTopScoringRows();
    void tabChanged(int index);
    bool leaveTab(Tab tab);
    void keepTab(Tab tab);
    void clearScoringClicked();
    void clearTopScoringClicked();
    void applyClicked();
    void okClicked();

    cScoringType* m_method = nullptr;
    bool m_methodChanged = false;
    bool m_pointsChanged = false;
    bool m_topChanged = false;
    bool m_pointsLoaded = false;
    bool m_topLoaded = false;
    bool m_filling = false;
    int m_currentTab = kMethodTab;
    cRefusedClick m_refusedClick;   // a button whose press a refused field undid
    QLineEdit* m_refusedField = nullptr;     // the field whose rule refused it last, if any
    QHash<QLineEdit*, cValidateOnLeave*> m_checks;

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtScoringTypeName = nullptr;
    QLineEdit* txtLapsLedBonus = nullptr;
    QLineEdit* txtMostLapsLedBonus = nullptr;
    QLineEdit* txtFastQualBonus = nullptr;
    cScoringGrid* m_placeGrid = nullptr;   // txtPlace, txtPoints, txtQualPoints; VScroll1
    cScoringGrid* m_topGrid = nullptr;     // txtGroupNmbr, TxtGroupTop, txtGroupPoints; VScroll2
    QPushButton* cmdClearScoring = nullptr;
    QPushButton* cmdClearTopScoring = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
