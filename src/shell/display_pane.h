#pragma once
// The list panes: child windows of the main window that show every record of one kind, one row
// a record, the record itself kept in the row's tag. The record commands act on the selected
// row. Each pane is one instance, made at its first display and gone when it is closed.
#include "base/row_tag.h"
#include "shell/record_kinds.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QMdiSubWindow>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <span>

class QListView;
class QTreeWidget;
class QTreeWidgetItem;
class QVBoxLayout;
class cLeagueCollection;
class cRacesCollection;
class cScoringTypeCollection;
class cTeamCollection;

// One column of a pane: header text and width in twips; a width of 0 hides the column.
struct cPaneColumn {
    const char16_t* header;
    int twips;
};

class cDisplayPane : public QWidget {
    Q_OBJECT
public:
    ~cDisplayPane() override;

    RecordKind kind() const { return m_kind; }

    // Sets the list's view from gViewMode: 1 large icons, 2 list, 4 small icons, else detail.
    Q_INVOKABLE void setView();

    QTreeWidget* list() const { return m_list; }
    // The row that is selected, or nullptr.
    QTreeWidgetItem* selectedRow() const;
    // The role of a row's data that holds its record.
    static constexpr int kRecordRole = Qt::UserRole;
    // The record of the selected row, or nullptr (also when the row holds another kind).
    template <class T>
    T* selectedRecord() const
    {
        return rowRecord<T>(selectedRow(), kRecordRole);
    }

    // The pane's child window in the main window's pane area; nullptr before the first display
    // (or without a main window).
    QMdiSubWindow* subWindow() const { return m_subWindow; }
    // The child window maximised, unless it already is.
    void maximise();

protected:
    cDisplayPane(RecordKind kind, const QString& name, const QString& caption, QWidget* parent);

    // The steps of display around the rows: the list hidden from painting, rows and headers
    // cleared, the headers added; then one addRow per record; then endFill, which shows the pane,
    // keeps the header sort, selects the first row when nothing was asked for and scrolls the
    // selected row into view.
    void beginFill(std::span<const cPaneColumn> columns);
    template <class T>
    QTreeWidgetItem* addRow(const QStringList& texts, T* record, bool selected)
    {
        QTreeWidgetItem* row = addRow(texts, selected);
        setRowRecord(row, kRecordRole, record);
        return row;
    }
    QTreeWidgetItem* addRow(const QStringList& texts, bool selected);
    void endFill(bool selectFirst);

    // The column whose text orders the rows when a header is clicked.
    virtual int sortKeyFor(int column) const { return column; }
    // A row was clicked, or the selection moved with the up or down key.
    virtual void rowChosen() {}

    bool eventFilter(QObject* watched, QEvent* event) override;

    QVBoxLayout* m_layout = nullptr;

private:
    void headerClicked(int column);
    void applySort();
    void showForm();
    void watch(QWidget* view);
    void runCommand(int key);

    RecordKind m_kind;
    QTreeWidget* m_list = nullptr;   // lvwDisplay, the detail view
    QListView* m_icons = nullptr;    // the same rows as icons or as a list
    QPointer<QMdiSubWindow> m_subWindow;
    int m_sortColumn = -1;           // -1: the order of the load
    int m_sortHeader = -1;           // the header that was clicked for it
    QList<QTreeWidgetItem*> m_retiredRows;
};

// The one instance of a pane: made at first use, gone when its window is closed.
template <class T>
class tPaneInstance {
public:
    static T* existing() { return slot(); }
    static T& instance()
    {
        if (!slot())
            slot() = new T;
        return *slot();
    }

private:
    static QPointer<T>& slot()
    {
        static QPointer<T> pane;
        return pane;
    }
};

class frmDisplayLeagues : public cDisplayPane, public tPaneInstance<frmDisplayLeagues> {
    Q_OBJECT
public:
    frmDisplayLeagues();
    ~frmDisplayLeagues() override;
    // Reloads and shows the pane; selection is a leagueNmbr, -1 for none.
    void display(int16_t selection);

private:
    std::unique_ptr<cLeagueCollection> m_leagues;   // the rows' tags point into it
};

class frmDisplayTeams : public cDisplayPane, public tPaneInstance<frmDisplayTeams> {
    Q_OBJECT
public:
    frmDisplayTeams();
    ~frmDisplayTeams() override;
    // selection is a teamName, empty for none.
    void display(const QString& selection);

private:
    std::unique_ptr<cTeamCollection> m_teams;
};

class frmDisplayRaces : public cDisplayPane, public tPaneInstance<frmDisplayRaces> {
    Q_OBJECT
public:
    frmDisplayRaces();
    ~frmDisplayRaces() override;
    // selection is compared with raceNmbr as text, empty for none.
    void display(const QString& selection);

protected:
    // "Race Date" sorts by the hidden "Sort date" column.
    int sortKeyFor(int column) const override;

private:
    std::unique_ptr<cRacesCollection> m_races;
};

class frmDisplayScoring : public cDisplayPane, public tPaneInstance<frmDisplayScoring> {
    Q_OBJECT
public:
    frmDisplayScoring();
    ~frmDisplayScoring() override;
    // selection is a scoringTypeName, empty for none.
    void display(const QString& selection);

private:
    std::unique_ptr<cScoringTypeCollection> m_methods;
};
