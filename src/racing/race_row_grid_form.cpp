#include "racing/race_row_grid_form.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

cRowGrid::cRowGrid(const QStringList& headings, const QList<int>& stretches, QScrollBar* scrollBar, QWidget* parent)
    : QWidget(parent), m_scrollBar(scrollBar)
{
    m_layout = new QGridLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(6);
    m_layout->setVerticalSpacing(3);
    for (int column = 0; column < headings.size(); ++column) {
        auto* heading = new QLabel(headings[column], this);
        heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        m_layout->addWidget(heading, 0, column);
        m_layout->setColumnStretch(column, stretches.value(column));
    }
    // Seven rows and the headings always have their room, so the page does not grow with the rows.
    QLineEdit probe;
    const int rowHeight = probe.sizeHint().height() + m_layout->verticalSpacing();
    setMinimumHeight(fontMetrics().height() + m_layout->verticalSpacing() + kVisibleRows * rowHeight);
    m_layout->setRowStretch(1000, 1);

    m_scrollBar->setOrientation(Qt::Vertical);
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    m_scrollBar->setSingleStep(1);
    m_scrollBar->setPageStep(kVisibleRows);
    connect(m_scrollBar, &QScrollBar::valueChanged, this, [this] {
        showSpan();
        emit scrolled();
    });
    refresh();
}

int cRowGrid::appendRow(const QList<QWidget*>& cells)
{
    for (int column = 0; column < cells.size(); ++column) {
        QWidget* cell = cells[column];
        if (!cell)
            continue;
        cell->setParent(this);
        const Qt::Alignment align = cell->inherits("QLineEdit") ? Qt::Alignment() : Qt::AlignCenter;
        m_layout->addWidget(cell, m_nextGridRow, column, align);
    }
    ++m_nextGridRow;
    m_rows.append(cells);
    refresh();
    return rowCount() - 1;
}

void cRowGrid::truncate(int keep)
{
    while (rowCount() > keep) {
        const QList<QWidget*> cells = m_rows.takeLast();
        for (QWidget* cell : cells)
            delete cell;
    }
    m_nextGridRow = 1 + rowCount();
    refresh();
}

int cRowGrid::rowOf(const QObject* cell) const
{
    if (!cell)
        return -1;
    for (int row = 0; row < rowCount(); ++row)
        for (const QWidget* widget : m_rows[row])
            if (widget && widget == cell)
                return row;
    return -1;
}

int cRowGrid::firstVisibleRow() const
{
    return m_scrollBar->value();
}

bool cRowGrid::isRowVisible(int row) const
{
    return row >= firstVisibleRow() && row < firstVisibleRow() + kVisibleRows;
}

void cRowGrid::ensureVisible(int row)
{
    if (row < firstVisibleRow())
        m_scrollBar->setValue(row);
    else if (row >= firstVisibleRow() + kVisibleRows)
        m_scrollBar->setValue(row - kVisibleRows + 1);
}

void cRowGrid::refresh()
{
    m_scrollBar->setRange(0, std::max(0, rowCount() - kVisibleRows));
    m_scrollBar->setEnabled(rowCount() > kVisibleRows);
    showSpan();
}

void cRowGrid::showSpan()
{
    for (int row = 0; row < rowCount(); ++row) {
        const bool visible = isRowVisible(row);
        for (QWidget* cell : m_rows[row])
            if (cell)
                cell->setVisible(visible);
    }
}

void cRowGrid::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y() / 120;
    if (steps != 0 && m_scrollBar->isEnabled())
        m_scrollBar->setValue(m_scrollBar->value() - steps);
    event->accept();
}
