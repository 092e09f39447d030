#pragma once
#include <QStringList>
#include <QWidget>
#include <array>
#include <vector>

class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollBar;

// A grid of like rows of three text fields for the scoring screen, seven rows on view at a time.
// Every row's fields carry the same object names (txtPlace, txtPoints, ...), as a control array
// would. From the eighth row on the scroll bar is enabled and moves the view by one row.
// Rows are only appended, or all cleared, so a row keeps its index for its life.
class cScoringGrid : public QWidget {
    Q_OBJECT
public:
    static constexpr int kVisibleRows = 7;

    struct Column {
        QString name;      // object name of the column's fields
        QString heading;   // caption above the column
    };
    struct Joiner {
        QString name;      // object name of the label between two fields of a row; empty: none
        QString caption;
    };

    cScoringGrid(const std::array<Column, 3>& columns, const std::array<Joiner, 2>& joiners,
                 const QString& scrollBarName, QWidget* parent = nullptr);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    QLineEdit* field(int row, int column) const;
    QString text(int row, int column) const;
    // The row and column of one of the grid's fields; false for any other widget.
    bool locate(const QWidget* widget, int& row, int& column) const;

    // Appends a row with these texts; rowCreated runs before the texts are set.
    void addRow(const QStringList& texts);
    void clearRows();
    // Scrolls so that the row is on view.
    void showRow(int row);
    QScrollBar* scrollBar() const { return m_scroll; }

signals:
    void rowCreated(int row);
    void edited();
    void enterPressed(int row, int column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void setTopRow(int top);
    void updateScrollBar();

    struct Row {
        std::array<QLineEdit*, 3> fields{};
        std::array<QLabel*, 2> joiners{};
    };
    std::array<Column, 3> m_columns;
    std::array<Joiner, 2> m_joiners;
    QGridLayout* m_grid = nullptr;
    QScrollBar* m_scroll = nullptr;
    std::vector<Row> m_rows;
    int m_top = 0;
};
