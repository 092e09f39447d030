#include "base/detail_screen.h"
#include "base/messages.h"
#include "base/run_trapped.h"
#include "racing/scoring_form.h"
#include "racing/scoring_grid_form.h"
#include "racing/scoring_method.h"
#include "racing/scoring_points.h"
#include "store/variant.h"

#include <QPushButton>
#include <QApplication>
#include <QLineEdit>

// The two grids of the scoring screen: "Scoring per Place" (place, finishing points, starting
// points) and "Top Scoring" (number of cars, top places, points), each saved as a whole grid.

using namespace Qt::StringLiterals;

namespace {

bool isBlankText(const QString& text)
{
    return text.trimmed().isEmpty();
}

enum PlaceColumn { kPlace = 0, kPoints = 1, kQualPoints = 2 };
enum TopColumn { kGroupNmbr = 0, kGroupTop = 1, kGroupPoints = 2 };

// A grid field as a number for saving; blank reads as 0. Checked narrowing happens in the caller.
cVariant typedNumber(const QString& text)
{
    return isBlankText(text) ? cVariant(0) : cVariant(text.trimmed());
}

// Whether the first field of a grid row keeps the row: a number above 0.
bool keepsRow(const QString& first)
{
    const cVariant typed(first.trimmed());
    return !isBlankText(first) && typed.isNumeric() && typed.toDouble() > 0;
}

} // namespace

// Empties a grid, forgetting the rules of its fields first.
void frmScoring::clearGrid(cScoringGrid* grid)
{
    for (int row = 0; row < grid->rowCount(); ++row)
        for (int column = 0; column < 3; ++column) {
            QLineEdit* edit = grid->field(row, column);
            m_checks.remove(edit);
            if (m_refusedField == edit)
                m_refusedField = nullptr;
        }
    grid->clearRows();
}

void frmScoring::placeRowCreated(int row)
{
    installCheck(m_placeGrid->field(row, kPlace), [](frmScoring* s, QLineEdit* f) { return s->checkWholeOrBlank(f); });
    for (int column : {kPoints, kQualPoints})
        installCheck(m_placeGrid->field(row, column),
                     [](frmScoring* s, QLineEdit* f) { return s->checkSignedNumber(f); });
}

void frmScoring::topRowCreated(int row)
{
    for (int column : {kGroupNmbr, kGroupTop, kGroupPoints})
        installCheck(m_topGrid->field(row, column), [](frmScoring* s, QLineEdit* f) { return s->checkWholeOrBlank(f); });
}

// ---------------------------------------------------------------- grids

void frmScoring::gridEnter(cScoringGrid* grid, int row)
{
    if (!validateFocusedField())
        return;
    if (row == grid->rowCount() - 1) {
        if (grid == m_placeGrid)
            addScoringRow();
        else
            addTopScoringRow();
    }
    const int next = row + 1;
    grid->showRow(next);
    QLineEdit* target = grid->field(next, grid == m_placeGrid ? int(kPoints) : int(kGroupNmbr));
    target->setFocus(Qt::OtherFocusReason);
    target->selectAll();
}

void frmScoring::addScoringRow()
{
    int lastPlace = 0;
    if (m_placeGrid->rowCount() > 0) {
        const cVariant last(m_placeGrid->text(m_placeGrid->rowCount() - 1, kPlace).trimmed());
        if (last.isNumeric())
            lastPlace = static_cast<int>(last.toDouble());
    }
    m_placeGrid->addRow({QString::number(lastPlace + 1), u"0"_s, u"0"_s});
}

void frmScoring::addTopScoringRow()
{
    m_topGrid->addRow({u"0"_s, u"0"_s, u"0"_s});
}

void frmScoring::loadScoringRows()
{
    const bool filling = m_filling;
    m_filling = true;
    clearGrid(m_placeGrid);
    cScoringPointsCollection rows;
    rows.load(m_method->scoringTypeNmbr());
    for (const cScoringPoints& row : rows)
        m_placeGrid->addRow({QString::number(row.place()), QString::number(row.points()),
                             QString::number(row.qualPoints())});
    if (rows.Count() == 0)
        m_placeGrid->addRow({u"1"_s, u"0"_s, u"0"_s});
    m_pointsLoaded = true;
    m_filling = filling;
}

void frmScoring::loadTopScoringRows()
{
    const bool filling = m_filling;
    m_filling = true;
    clearGrid(m_topGrid);
    cScoringTopPointsCollection rows;
    rows.load(m_method->scoringTypeNmbr());
    for (const cScoringTopPoints& row : rows)
        m_topGrid->addRow({QString::number(row.nmbr()), QString::number(row.top()), QString::number(row.points())});
    if (rows.Count() == 0)
        addTopScoringRow();
    m_topLoaded = true;
    m_filling = filling;
}

bool frmScoring::saveScoringRows()
{
    cScoringPointsCollection rows;
    // Converting a typed value beyond its column's width is the run-time error "Overflow".
    const bool converted = runTrapped([&] {
        for (int r = 0; r < m_placeGrid->rowCount(); ++r) {
            if (!keepsRow(m_placeGrid->text(r, kPlace)))
                continue;
            rows.Add(m_method->scoringTypeNmbr(), typedNumber(m_placeGrid->text(r, kPlace)).toInt16(),
                     typedNumber(m_placeGrid->text(r, kPoints)).toInt32(),
                     typedNumber(m_placeGrid->text(r, kQualPoints)).toInt16());
        }
        return true;
    });
    return converted && rows.insertScoringPoints();
}

bool frmScoring::saveTopScoringRows()
{
    cScoringTopPointsCollection rows;
    const bool converted = runTrapped([&] {
        for (int r = 0; r < m_topGrid->rowCount(); ++r) {
            if (!keepsRow(m_topGrid->text(r, kGroupNmbr)))
                continue;
            rows.Add(m_method->scoringTypeNmbr(), typedNumber(m_topGrid->text(r, kGroupNmbr)).toInt16(),
                     typedNumber(m_topGrid->text(r, kGroupPoints)).toInt16(),
                     typedNumber(m_topGrid->text(r, kGroupTop)).toInt16());
        }
        return true;
    });
    return converted && rows.insertScoringTopPoints();
}

// Saves the method and then its unsaved per-place rows; with the method saved, the per-place
// rows alone; else the top rows. Unsaved top rows wait while either of the others is saved.
// ---------------------------------------------------------------- clearing

void frmScoring::clearScoringClicked()
{
    if (m_refusedClick.swallow(cmdClearScoring) || !m_method)
        return;
    const QString name = m_method->scoringTypeName();
    if (messageBox(u"Are you sure you want to delete Scoring per Place for "_s + name + u"?"_s, name, Icon::Question,
                   Buttons::YesNoCancel) != Answer::Yes)
        return;
    cScoringPointsCollection().deleteScoringPoints(m_method->scoringTypeNmbr());
    m_filling = true;
    clearGrid(m_placeGrid);
    m_placeGrid->addRow({QString(), u"0"_s, u"0"_s});
    m_filling = false;
    m_pointsChanged = false;
    updateApply();
    m_placeGrid->field(0, kPlace)->setFocus(Qt::OtherFocusReason);
}

void frmScoring::clearTopScoringClicked()
{
    if (m_refusedClick.swallow(cmdClearTopScoring) || !m_method)
        return;
    const QString name = m_method->scoringTypeName();
    if (messageBox(u"Are you sure you want to delete Top Scoring "_s + name + u"?"_s, name, Icon::Question,
                   Buttons::YesNoCancel) != Answer::Yes)
        return;
    cScoringTopPointsCollection().deleteScoringTopPoints(m_method->scoringTypeNmbr());
    m_filling = true;
    clearGrid(m_topGrid);
    addTopScoringRow();
    m_filling = false;
    m_topChanged = false;
    updateApply();
    m_topGrid->field(0, kGroupNmbr)->setFocus(Qt::OtherFocusReason);
}
