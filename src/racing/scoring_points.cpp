#include "racing/scoring_points.h"
#include "store/transaction.h"

using namespace Qt::StringLiterals;

namespace {
// Replaces a method's rows in one transaction: delete, then insert each; any failure rolls back.
template <class List, class Delete>
bool replaceInTransaction(List& list, Delete deleteRows)
{
    if (list.Count() == 0)
        return true;
    cTransaction transaction;
    if (!deleteRows(list.Item(1).scoringTypeNmbr()))
        return false;
    for (auto& row : list) {
        if (!row.insertRow())
            return false;
    }
    transaction.commit();
    return true;
}
} // namespace

// ---------------------------------------------------------------- cScoringPoints

bool cScoringPoints::CommitChanges()
{
    const bool found = m_db.OpenResultSet(u" SELECT *  FROM scoring_points  WHERE scoring_type_nmbr = "_s +
                                          sqlNumber(m_scoringTypeNmbr) + u" AND place = "_s + sqlNumber(m_place)) &&
                       !m_db.eof();
    return found ? updateRow() : insertRow();
}

bool cScoringPoints::insertRow()
{
    return m_db.execute(u"INSERT INTO scoring_points  (scoring_type_nmbr, place, points, qual_points) VALUES ("_s +
                        sqlNumber(m_scoringTypeNmbr) + u","_s + sqlNumber(m_place) + u","_s + sqlNumber(m_points) + u","_s + sqlNumber(m_qualPoints) +
                        u")"_s);
}

bool cScoringPoints::updateRow()
{
    return m_db.execute(u"UPDATE scoring_points  set points = "_s + sqlNumber(m_points) + u" ,qual_points = "_s + sqlNumber(m_qualPoints) +
                        u" WHERE scoring_type_nmbr = "_s + sqlNumber(m_scoringTypeNmbr) + u" AND place = "_s + sqlNumber(m_place));
}

bool cScoringPoints::deleteRow()
{
    return m_db.execute(u"DELETE FROM scoring_points  WHERE scoring_type_nmbr = "_s + sqlNumber(m_scoringTypeNmbr) +
                        u" AND place = "_s + sqlNumber(m_place));
}

// ---------------------------------------------------------------- cScoringPointsCollection

cScoringPoints& cScoringPointsCollection::Add(int16_t scoringTypeNmbr, int16_t place, int32_t points,
                                              int16_t qualPoints, const QString& sKey)
{
    auto record = std::make_unique<cScoringPoints>();
    record->setScoringTypeNmbr(scoringTypeNmbr);
    record->setPlace(place);
    record->setPoints(points);
    record->setQualPoints(qualPoints);
    return append(std::move(record), sKey);
}

void cScoringPointsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"scoring_type_nmbr"_s).toInt16(), m_db.fields(u"place"_s).toInt16(),
            m_db.fields(u"points"_s).toInt32(), m_db.fields(u"qual_points"_s).toInt16());
        m_db.MoveNext();
    }
}

int32_t cScoringPointsCollection::loadWith(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

int32_t cScoringPointsCollection::load(std::optional<int16_t> scoringTypeNmbr)
{
    QString sql = u"SELECT *"_s u" FROM scoring_Points"_s;
    if (scoringTypeNmbr)
        sql += u" WHERE scoring_type_nmbr = "_s + sqlNumber(*scoringTypeNmbr);
    return loadWith(sql + u" order by place"_s);
}

int32_t cScoringPointsCollection::loadQual(std::optional<int16_t> scoringTypeNmbr)
{
    QString sql = u"SELECT *"_s u" FROM scoring_Points"_s u" WHERE qual_points <> 0 "_s;
    if (scoringTypeNmbr)
        sql += u" AND scoring_type_nmbr = "_s + sqlNumber(*scoringTypeNmbr);
    return loadWith(sql + u" order by place"_s);
}

bool cScoringPointsCollection::deleteScoringPoints(int16_t scoringTypeNmbr)
{
    return m_db.execute(u"DELETE FROM scoring_points where scoring_type_nmbr = "_s + sqlNumber(scoringTypeNmbr));
}

bool cScoringPointsCollection::insertScoringPoints()
{
    return replaceInTransaction(*this, [this](int16_t type) { return deleteScoringPoints(type); });
}

int16_t cScoringPointsCollection::pointsForPlace(int16_t place) const
{
    for (const cScoringPoints& row : *this)
        if (row.place() == place)
            return checkedNarrow<int16_t>(row.points());
    return 0;
}

int16_t cScoringPointsCollection::qualPointsForPlace(int16_t place) const
{
    for (const cScoringPoints& row : *this)
        if (row.place() == place)
            return row.qualPoints();
    return 0;
}

bool cScoringPointsCollection::usesQualPointsBonus() const
{
    for (const cScoringPoints& row : *this)
        if (row.qualPoints() != 0)
            return true;
    return false;
}

bool cScoringPointsCollection::highScore() const
{
    return pointsForPlace(1) >= pointsForPlace(2);
}

// ---------------------------------------------------------------- cScoringTopPoints

bool cScoringTopPoints::insertRow()
{
    return m_db.execute(u"INSERT INTO scoring_top_points  (scoring_type_nmbr, nmbr_cars, points, top_nmbr) VALUES ("_s +
                        sqlNumber(m_scoringTypeNmbr) + u","_s + sqlNumber(m_nmbr) + u","_s + sqlNumber(m_points) + u","_s + sqlNumber(m_top) + u")"_s);
}

cScoringTopPoints& cScoringTopPointsCollection::Add(int16_t scoringTypeNmbr, int16_t nmbr, int16_t points, int16_t top,
                                                    const QString& sKey)
{
    auto record = std::make_unique<cScoringTopPoints>();
    record->setScoringTypeNmbr(scoringTypeNmbr);
    record->setNmbr(nmbr);
    record->setPoints(points);
    record->setTop(top);
    return append(std::move(record), sKey);
}

void cScoringTopPointsCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"scoring_type_nmbr"_s).toInt16(), m_db.fields(u"nmbr_cars"_s).toInt16(),
            m_db.fields(u"points"_s).toInt16(), m_db.fields(u"top_nmbr"_s).toInt16());
        m_db.MoveNext();
    }
}

int32_t cScoringTopPointsCollection::load(int16_t scoringTypeNmbr)
{
    if (m_db.OpenResultSet(u"SELECT *"_s u" FROM scoring_top_points"_s u" WHERE scoring_type_nmbr = "_s +
                           sqlNumber(scoringTypeNmbr)) &&
        !m_db.eof())
        fill();
    return loadedCount();
}

bool cScoringTopPointsCollection::deleteScoringTopPoints(int16_t scoringTypeNmbr)
{
    return m_db.execute(u"DELETE FROM scoring_top_points where scoring_type_nmbr = "_s + sqlNumber(scoringTypeNmbr));
}

bool cScoringTopPointsCollection::insertScoringTopPoints()
{
    return replaceInTransaction(*this, [this](int16_t type) { return deleteScoringTopPoints(type); });
}
