#pragma once
#include <QWidget>
#include <cstdint>
#include <functional>
#include <vector>

class cRaces;
class cRowGrid;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QScrollBar;

// The tab "Head to Head" of the race screen: per league, who plays whom in this race, as a grid
// of pairs with one team chooser (cmbTeam) over the field being edited. A pair of a team and a
// bye is stored with 0 for the bye; a row of two byes is not stored.
class cRaceHeadHeadTab : public QWidget {
    Q_OBJECT
public:
    struct Host {
        std::function<void()> pairingsChanged;   // a pair was edited
        std::function<bool()> unsaved;           // the screen counts the pairs as changed
        std::function<void()> pairingsSaved;     // the pairs shown were saved on a league change
    };

    cRaceHeadHeadTab(Host host, QWidget* parent);
    ~cRaceHeadHeadTab() override;

    void setRace(cRaces& race);
    // Entering the tab: the leagues of the race's series and kind, the first one's pairs.
    void enter();
    // The pairs of the league shown, replacing that league's pairs of this race.
    bool save();
    // Copies the chooser into its field and closes it.
    void leaveTeamChooser();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // One row of the pairings grid; the team numbers are the tags of the two fields (0 a bye).
    struct cPairRow {
        QLineEdit* txtTeam1 = nullptr;
        QLabel* lblVS = nullptr;
        QLineEdit* txtTeam2 = nullptr;
        int16_t team1Tag = 0;
        int16_t team2Tag = 0;
    };

    void markChanged();
    void leagueActivated(int index);
    void fillTeamList(int16_t leagueNmbr);
    cPairRow& addPairRow();
    void removePairRowsFrom(int index);
    int pairRowOf(const QObject* field) const;
    void enterTeamChooser(int row, int column);
    void placeTeamChooser();
    void addPairRow(int row);

    Host m_host;
    cRaces* m_race = nullptr;
    bool m_filling = false;
    bool m_leavingChooser = false;
    int m_teamRow = -1;          // the pairs row that cmbTeam covers
    int m_teamColumn = 0;        // 1 or 2
    int16_t m_pairLeague = 0;    // the league whose pairs the grid shows
    std::vector<cPairRow> m_pairs;

    QFrame* Frame2 = nullptr;
    QComboBox* cmbLeague = nullptr;
    cRowGrid* m_pairGrid = nullptr;
    QScrollBar* VScroll2 = nullptr;
    QComboBox* cmbTeam = nullptr;
};
