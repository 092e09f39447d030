#include "racing/scoring_grid_form.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

namespace {
constexpr int kFieldWidthChars = 9;
}

cScoringGrid::cScoringGrid(const std::array<Column, 3>& columns, const std::array<Joiner, 2>& joiners,
                           const QString& scrollBarName, QWidget* parent)
    : QWidget(parent), m_columns(columns), m_joiners(joiners)
{
    auto* rows = new QWidget(this);
    m_grid = new QGridLayout(rows);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    for (int column = 0; column < 3; ++column) {
        auto* heading = new QLabel(columns[column].heading, rows);
        heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        m_grid->addWidget(heading, 0, column * 2);
    }
    // Room for the headings and seven rows, whether or not they are filled yet.
    QLineEdit probe;
    const int rowHeight = probe.sizeHint().height() + std::max(0, m_grid->verticalSpacing());
    rows->setMinimumHeight(m_grid->itemAtPosition(0, 0)->widget()->sizeHint().height() + kVisibleRows * rowHeight +
                           std::max(0, m_grid->verticalSpacing()));
    auto* rowsArea = new QVBoxLayout;
    rowsArea->addWidget(rows);
    rowsArea->addStretch();

    m_scroll = new QScrollBar(Qt::Vertical, this);
    m_scroll->setObjectName(scrollBarName);
    m_scroll->setSingleStep(1);
    m_scroll->setPageStep(kVisibleRows);
    connect(m_scroll, &QScrollBar::valueChanged, this, &cScoringGrid::setTopRow);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(rowsArea);
    layout->addWidget(m_scroll);
    layout->addStretch();
    updateScrollBar();
}

QLineEdit* cScoringGrid::field(int row, int column) const
{
    return m_rows.at(static_cast<size_t>(row)).fields.at(static_cast<size_t>(column));
}

QString cScoringGrid::text(int row, int column) const
{
    return field(row, column)->text();
}

bool cScoringGrid::locate(const QWidget* widget, int& row, int& column) const
{
    for (size_t r = 0; r < m_rows.size(); ++r)
        for (size_t c = 0; c < 3; ++c)
            if (m_rows[r].fields[c] == widget) {
                row = static_cast<int>(r);
                column = static_cast<int>(c);
                return true;
            }
    return false;
}

void cScoringGrid::addRow(const QStringList& texts)
{
    QWidget* rows = m_grid->parentWidget();
    const int at = rowCount();
    Row row;
    const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFieldWidthChars;
    for (int column = 0; column < 3; ++column) {
        auto* edit = new QLineEdit(rows);
        edit->setObjectName(m_columns[column].name);
        edit->setAlignment(Qt::AlignRight);
        edit->setFixedWidth(width);
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::textChanged, this, &cScoringGrid::edited);
        m_grid->addWidget(edit, at + 1, column * 2);
        row.fields[column] = edit;
        if (column < 2 && !m_joiners[column].name.isEmpty()) {
            auto* label = new QLabel(m_joiners[column].caption, rows);
            label->setObjectName(m_joiners[column].name);
            label->setAlignment(Qt::AlignCenter);
            m_grid->addWidget(label, at + 1, column * 2 + 1);
            row.joiners[column] = label;
        }
    }
    m_rows.push_back(row);
    emit rowCreated(at);
    for (int column = 0; column < 3 && column < texts.size(); ++column)
        row.fields[column]->setText(texts[column]);
    updateScrollBar();
    setTopRow(m_top);
}

void cScoringGrid::clearRows()
{
    for (Row& row : m_rows) {
        for (QLineEdit* edit : row.fields)
            delete edit;
        for (QLabel* label : row.joiners)
            delete label;
    }
    m_rows.clear();
    m_top = 0;
    updateScrollBar();
}

void cScoringGrid::showRow(int row)
{
    if (row < m_top)
        m_scroll->setValue(row);
    else if (row >= m_top + kVisibleRows)
        m_scroll->setValue(row - kVisibleRows + 1);
}

void cScoringGrid::setTopRow(int top)
{
    m_top = top;
    for (size_t r = 0; r < m_rows.size(); ++r) {
        const bool onView = static_cast<int>(r) >= m_top && static_cast<int>(r) < m_top + kVisibleRows;
        for (QLineEdit* edit : m_rows[r].fields)
            edit->setVisible(onView);
        for (QLabel* label : m_rows[r].joiners)
            if (label)
                label->setVisible(onView);
    }
}

void cScoringGrid::updateScrollBar()
{
    const int hidden = std::max(0, rowCount() - kVisibleRows);
    m_scroll->setRange(0, hidden);
    m_scroll->setEnabled(rowCount() > kVisibleRows);
}

bool cScoringGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        int row = 0;
        int column = 0;
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && locate(qobject_cast<QWidget*>(watched), row, column)) {
            emit enterPressed(row, column);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void cScoringGrid::wheelEvent(QWheelEvent* event)
{
    if (m_scroll->isEnabled()) {
        const int steps = event->angleDelta().y() / 120;
        m_scroll->setValue(m_scroll->value() - steps);
        event->accept();
        return;
    }
    QWidget::wheelEvent(event);
}
