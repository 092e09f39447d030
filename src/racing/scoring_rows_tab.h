#pragma once
#include <QWidget>
#include <cstdint>

class cScoringFieldRules;
class cScoringGrid;
class cScoringType;
class QPushButton;

// One grid tab of the scoring screen, saved as a whole grid: "Scoring per Place" (place,
// finishing points, starting points, rows of scoring_points) or "Top Scoring" (number of cars,
// top places, points, rows of scoring_top_points). Rows whose first field is blank or not above
// 0 are left out when saving.
class cScoringRowsTab : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Place, Top };

    cScoringRowsTab(Kind kind, cScoringFieldRules& rules, QWidget* parent);
    ~cScoringRowsTab() override;

    // Drops the rows; the next entry loads them again.
    void reset();
    bool loaded() const { return m_loaded; }
    // The method's rows (by place for the first grid, as stored for the second); one starting
    // row when it has none.
    void load(int16_t scoringTypeNmbr);
    bool save(int16_t scoringTypeNmbr);
    // Appends a row: place = last place + 1 with "0" points; a top row of three "0".
    void addRow();
    // Asks, then deletes the method's rows at once and leaves one starting row; true when done.
    bool clear(const cScoringType& method);

    QPushButton* clearButton() const { return m_clear; }

signals:
    void edited();

private:
    void rowCreated(int row);
    void enterPressed(int row);
    void clearGrid();

    Kind m_kind;
    cScoringFieldRules& m_rules;
    cScoringGrid* m_grid = nullptr;
    QPushButton* m_clear = nullptr;
    bool m_loaded = false;
};
