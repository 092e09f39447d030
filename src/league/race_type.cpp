#include "league/race_type.h"

using namespace Qt::StringLiterals;

bool cRaceType::deleteRow()
{
    return m_db.execute(u"DELETE FROM race_type_dm "_s
                        u" WHERE race_type_nmbr = "_s + QString::number(m_raceTypeNmbr));
}

bool cRaceType::CommitChanges()
{
    return m_raceTypeNmbr < 1 ? insertRow() : updateRow();
}

bool cRaceType::updateRow()
{
    return m_db.execute(u"UPDATE race_type_dm "_s
                        u" set race_type_name = '"_s + sqlText(m_raceTypeName) + u"'"_s +
                        u" WHERE race_type_nmbr = "_s + QString::number(m_raceTypeNmbr));
}

bool cRaceType::insertRow()
{
    m_raceTypeNmbr = nextKey(m_db, u"race_type_dm"_s, u"race_type_nmbr"_s);
    return m_db.execute(u"INSERT INTO race_type_dm "_s
                        u" (race_type_nmbr,"_s
                        u" race_type_name)"_s
                        u" VALUES "_s
                        u"("_s + QString::number(m_raceTypeNmbr) + u","_s +
                        u"'"_s + sqlText(m_raceTypeName) + u"')"_s);
}

cRaceType cRaceType::copy() const
{
    cRaceType working;
    working.m_raceTypeName = m_raceTypeName;
    working.m_raceTypeNmbr = m_raceTypeNmbr;
    return working;
}

cRaceType& cRaceTypeCollection::Add(int16_t raceTypeNmbr, const QString& raceTypeName, const QString& sKey)
{
    auto record = std::make_unique<cRaceType>();
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setRaceTypeName(raceTypeName);
    return append(std::move(record), sKey);
}

int32_t cRaceTypeCollection::load()
{
    if (m_db.OpenResultSet(u"SELECT *"_s
                           u" FROM race_type_dm"_s) && !m_db.eof())
        fill();
    return loadedCount();
}

void cRaceTypeCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"race_type_nmbr"_s).toInt16(), m_db.fields(u"race_type_name"_s).toText());
        m_db.MoveNext();
    }
}

QString cRaceTypeCollection::getRaceTypeName(const cVariant& raceTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cRaceType& raceType : *this)
        if (sameNumber(raceTypeNmbr, raceType.raceTypeNmbr()))
            return raceType.raceTypeName();
    return {};
}
