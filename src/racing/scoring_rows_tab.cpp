#include "racing/scoring_rows_tab.h"
#include "base/messages.h"
#include "base/run_trapped.h"
#include "racing/scoring_field_rules.h"
#include "racing/scoring_grid_form.h"
#include "racing/scoring_method.h"
#include "racing/scoring_points.h"
#include "store/variant.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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

cScoringRowsTab::cScoringRowsTab(Kind kind, cScoringFieldRules& rules, QWidget* parent)
    : QWidget(parent), m_kind(kind), m_rules(rules)
{
    if (kind == Kind::Place) {
        m_grid = new cScoringGrid({{{u"txtPlace"_s, u"Place"_s},
                                    {u"txtPoints"_s, u"Finishing Points"_s},
                                    {u"txtQualPoints"_s, u"Starting Points"_s}}},
                                  {}, u"VScroll1"_s, this);
        m_clear = new QPushButton(u"Clear Scoring"_s, this);
        m_clear->setObjectName(u"cmdClearScoring"_s);
    } else {
        m_grid = new cScoringGrid({{{u"txtGroupNmbr"_s, u"Number"_s},
                                    {u"TxtGroupTop"_s, u"Place"_s},
                                    {u"txtGroupPoints"_s, u"Points"_s}}},
                                  {{{u"lblInTop"_s, u"In top"_s}, {u"lblEqual"_s, u"="_s}}}, u"VScroll2"_s, this);
        m_clear = new QPushButton(u"Clear Scoring"_s, this);
        m_clear->setObjectName(u"cmdClearTopScoring"_s);
    }
    m_clear->setAutoDefault(false);
    auto* hint = new QLabel(u"Select the enter key to add a new row."_s, this);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(hint, 1);
    bottom->addWidget(m_clear);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_grid);
    layout->addStretch();
    layout->addLayout(bottom);

    connect(m_grid, &cScoringGrid::rowCreated, this, &cScoringRowsTab::rowCreated);
    connect(m_grid, &cScoringGrid::edited, this, &cScoringRowsTab::edited);
    connect(m_grid, &cScoringGrid::enterPressed, this, [this](int row, int) { enterPressed(row); });
}

cScoringRowsTab::~cScoringRowsTab() = default;

void cScoringRowsTab::rowCreated(int row)
{
    if (m_kind == Kind::Place) {
        m_rules.installWholeOrBlank(m_grid->field(row, kPlace));
        for (int column : {kPoints, kQualPoints})
            m_rules.installSignedNumber(m_grid->field(row, column));
    } else {
        for (int column : {kGroupNmbr, kGroupTop, kGroupPoints})
            m_rules.installWholeOrBlank(m_grid->field(row, column));
    }
}

// Empties the grid, forgetting the rules of its fields first.
void cScoringRowsTab::clearGrid()
{
    for (int row = 0; row < m_grid->rowCount(); ++row)
        for (int column = 0; column < 3; ++column)
            m_rules.forget(m_grid->field(row, column));
    m_grid->clearRows();
}

void cScoringRowsTab::reset()
{
    clearGrid();
    m_loaded = false;
}

// Enter in a row: on to the next row, adding one after the last.
void cScoringRowsTab::enterPressed(int row)
{
    if (!m_rules.validateFocusedField())
        return;
    if (row == m_grid->rowCount() - 1)
        addRow();
    const int next = row + 1;
    m_grid->showRow(next);
    QLineEdit* target = m_grid->field(next, m_kind == Kind::Place ? int(kPoints) : int(kGroupNmbr));
    target->setFocus(Qt::OtherFocusReason);
    target->selectAll();
}

void cScoringRowsTab::addRow()
{
    if (m_kind == Kind::Top) {
        m_grid->addRow({u"0"_s, u"0"_s, u"0"_s});
        return;
    }
    int lastPlace = 0;
    if (m_grid->rowCount() > 0) {
        const cVariant last(m_grid->text(m_grid->rowCount() - 1, kPlace).trimmed());
        if (last.isNumeric())
            lastPlace = static_cast<int>(last.toDouble());
    }
    m_grid->addRow({QString::number(lastPlace + 1), u"0"_s, u"0"_s});
}

void cScoringRowsTab::load(int16_t scoringTypeNmbr)
{
    clearGrid();
    if (m_kind == Kind::Place) {
        cScoringPointsCollection rows;
        rows.load(scoringTypeNmbr);
        for (const cScoringPoints& row : rows)
            m_grid->addRow({QString::number(row.place()), QString::number(row.points()),
                            QString::number(row.qualPoints())});
        if (rows.Count() == 0)
            m_grid->addRow({u"1"_s, u"0"_s, u"0"_s});
    } else {
        cScoringTopPointsCollection rows;
        rows.load(scoringTypeNmbr);
        for (const cScoringTopPoints& row : rows)
            m_grid->addRow({QString::number(row.nmbr()), QString::number(row.top()), QString::number(row.points())});
        if (rows.Count() == 0)
            addRow();
    }
    m_loaded = true;
}

bool cScoringRowsTab::save(int16_t scoringTypeNmbr)
{
    // Converting a typed value beyond its column's width is the run-time error "Overflow".
    if (m_kind == Kind::Place) {
        cScoringPointsCollection rows;
        const bool converted = runTrapped([&] {
            for (int r = 0; r < m_grid->rowCount(); ++r) {
                if (!keepsRow(m_grid->text(r, kPlace)))
                    continue;
                rows.Add(scoringTypeNmbr, typedNumber(m_grid->text(r, kPlace)).toInt16(),
                         typedNumber(m_grid->text(r, kPoints)).toInt32(),
                         typedNumber(m_grid->text(r, kQualPoints)).toInt16());
            }
            return true;
        });
        return converted && rows.insertScoringPoints();
    }
    cScoringTopPointsCollection rows;
    const bool converted = runTrapped([&] {
        for (int r = 0; r < m_grid->rowCount(); ++r) {
            if (!keepsRow(m_grid->text(r, kGroupNmbr)))
                continue;
            rows.Add(scoringTypeNmbr, typedNumber(m_grid->text(r, kGroupNmbr)).toInt16(),
                     typedNumber(m_grid->text(r, kGroupPoints)).toInt16(),
                     typedNumber(m_grid->text(r, kGroupTop)).toInt16());
        }
        return true;
    });
    return converted && rows.insertScoringTopPoints();
}

bool cScoringRowsTab::clear(const cScoringType& method)
{
    const QString name = method.scoringTypeName();
    const QString question = m_kind == Kind::Place
                                 ? u"Are you sure you want to delete Scoring per Place for "_s + name + u"?"_s
                                 : u"Are you sure you want to delete Top Scoring "_s + name + u"?"_s;
    if (messageBox(question, name, Icon::Question, Buttons::YesNoCancel) != Answer::Yes)
        return false;
    clearGrid();
    if (m_kind == Kind::Place) {
        cScoringPointsCollection().deleteScoringPoints(method.scoringTypeNmbr());
        m_grid->addRow({QString(), u"0"_s, u"0"_s});
    } else {
        cScoringTopPointsCollection().deleteScoringTopPoints(method.scoringTypeNmbr());
        addRow();
    }
    m_grid->field(0, 0)->setFocus(Qt::OtherFocusReason);
    return true;
}
