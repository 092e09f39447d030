#include "racing/head_head.h"
#include "store/transaction.h"

using namespace Qt::StringLiterals;

int32_t cRaceHeadHead::load(int16_t raceNmbr, int16_t teamNmbr1, int16_t teamnmbr2)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM race_head_head"_s
                            u" WHERE race_nmbr = "_s + QString::number(raceNmbr) +
                            u" AND team_nmbr1 = "_s + QString::number(teamNmbr1) +
                            u" AND team_nmbr2 = "_s + QString::number(teamnmbr2)) ||
        m_db.eof())
        return 0;
    m_raceNmbr = m_db.fields(u"race_nmbr"_s).toInt16();
    m_leagueNmbr = m_db.fields(u"league_nmbr"_s).toInt16();
    m_teamNmbr1 = m_db.fields(u"team_nmbr1"_s).toInt16();
    m_teamnmbr2 = m_db.fields(u"team_nmbr2"_s).toInt16();
    return 1;
}

bool cRaceHeadHead::insertRow()
{
    return m_db.execute(u"INSERT INTO race_head_head  (race_nmbr, league_nmbr, team_nmbr1, team_nmbr2) VALUES ("_s +
                        QString::number(m_raceNmbr) + u","_s + QString::number(m_leagueNmbr) + u","_s +
                        QString::number(m_teamNmbr1) + u","_s + QString::number(m_teamnmbr2) + u")"_s);
}

bool cRaceHeadHead::deleteRow()
{
    return m_db.execute(u"DELETE FROM race_head_head  WHERE race_nmbr = "_s + QString::number(m_raceNmbr) +
                        u" AND league_nmbr = "_s + QString::number(m_leagueNmbr) +
                        u" AND team_nmbr1 = "_s + QString::number(m_teamNmbr1) +
                        u" AND team_nmbr2 = "_s + QString::number(m_teamnmbr2));
}

cRaceHeadHead& cRaceHeadHeadCollection::Add(int16_t raceNmbr, int16_t leagueNmbr, int16_t teamNmbr1,
                                            int16_t teamnmbr2, const QString& sKey)
{
    auto record = std::make_unique<cRaceHeadHead>();
    record->setRaceNmbr(raceNmbr);
    record->setLeagueNmbr(leagueNmbr);
    record->setTeamNmbr1(teamNmbr1);
    record->setteamnmbr2(teamnmbr2);
    return append(std::move(record), sKey);
}

int32_t cRaceHeadHeadCollection::load(std::optional<int16_t> leagueNmbr, std::optional<int16_t> raceNmbr)
{
    QString statement = u"SELECT race_head_head.*  FROM race_head_head"_s;
    if (leagueNmbr && raceNmbr)
        statement += u" WHERE league_nmbr = "_s + QString::number(*leagueNmbr) + u" AND race_nmbr = "_s +
                     QString::number(*raceNmbr);
    else if (leagueNmbr)
        statement += u" WHERE League_nmbr = "_s + QString::number(*leagueNmbr);
    else if (raceNmbr)
        statement += u" WHERE race_nmbr = "_s + QString::number(*raceNmbr);
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cRaceHeadHeadCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"race_nmbr"_s).toInt16(), m_db.fields(u"league_nmbr"_s).toInt16(),
            m_db.fields(u"team_nmbr1"_s).toInt16(), m_db.fields(u"team_nmbr2"_s).toInt16());
        m_db.MoveNext();
    }
}

bool cRaceHeadHeadCollection::update()
{
    if (Count() == 0)
        return true;
    return update(Item(1).leagueNmbr(), Item(1).raceNmbr());
}

bool cRaceHeadHeadCollection::update(int16_t leagueNmbr, int16_t raceNmbr)
{
    cTransaction transaction;
    if (!m_db.execute(u"DELETE FROM race_head_head  WHERE league_nmbr = "_s + QString::number(leagueNmbr) +
                      u" AND race_nmbr = "_s + QString::number(raceNmbr)))
        return false;
    for (cRaceHeadHead& pair : *this) {
        if (!pair.insertRow())
            return false;
    }
    transaction.commit();
    return true;
}
