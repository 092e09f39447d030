#pragma once
#include <QList>
#include <QPointer>
#include <QStringList>
#include <QWidget>

class QGridLayout;
class QScrollBar;

// A grid of like rows under a row of headings, of which seven are visible at a time; the scroll
// bar beside it moves the visible span and is enabled from the eighth row on. Rows are lists of
// cell widgets (one per column, nullptr for an empty cell) owned by the grid.
class cRowGrid : public QWidget {
    Q_OBJECT
public:
    static constexpr int kVisibleRows = 7;

    // stretches: one per heading; 0 keeps a column at its natural width.
    cRowGrid(const QStringList& headings, const QList<int>& stretches, QScrollBar* scrollBar, QWidget* parent);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    // Appends a row below the last one and returns its index (from 0).
    int appendRow(const QList<QWidget*>& cells);
    // Deletes the rows from index on.
    void truncate(int keep);
    // The row that holds the cell widget; -1 when none does.
    int rowOf(const QObject* cell) const;
    int firstVisibleRow() const;
    bool isRowVisible(int row) const;
    // Scrolls as little as needed for the row to be in the visible span.
    void ensureVisible(int row);
    // After rows were added or removed: the scroll range, its enabling, which rows show.
    void refresh();

signals:
    // The visible span moved (rows were shown or hidden).
    void scrolled();

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void showSpan();

    QGridLayout* m_layout = nullptr;
    QPointer<QScrollBar> m_scrollBar;
    QList<QList<QWidget*>> m_rows;
    int m_nextGridRow = 1;   // grid rows of deleted rows stay empty; new rows go below
};
