#include "league/league.h"

using namespace Qt::StringLiterals;

int32_t cLeague::load(int16_t leagueNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM leagues"_s
                            u" WHERE league_nmbr = "_s + sqlNumber(leagueNmbr)) || m_db.eof())
        return 0;
    m_leagueNmbr = m_db.fields(u"league_nmbr"_s).toInt16();
    m_leagueName = m_db.fields(u"league_name"_s).toText();
    m_leagueShortName = m_db.fields(u"league_short_name"_s).toText();
    m_raceTypeNmbr = m_db.fields(u"race_type_nmbr"_s).toInt16();
    m_scoringOptionNmbr = m_db.fields(u"scoring_option_nmbr"_s).toInt16();
    m_scoringTypeNmbr = m_db.fields(u"scoring_type_nmbr"_s).toInt16();
    m_salaryCap = m_db.fields(u"salary_cap"_s).toCurrency();
    m_dropLowest = m_db.fields(u"drop_lowest"_s).toInt16();
    m_carTypeNmbr = m_db.fields(u"car_type_nmbr"_s).toInt16();
    return 1;
}

QString cLeague::nameOf() const
{
    return u"LEAGUE"_s;
}

cLeague cLeague::copy() const
{
    cLeague working;
    working.m_leagueNmbr = m_leagueNmbr;
    working.m_leagueName = m_leagueName;
    working.m_leagueShortName = m_leagueShortName;
    working.m_raceTypeNmbr = m_raceTypeNmbr;
    working.m_scoringOptionNmbr = m_scoringOptionNmbr;
    working.m_scoringTypeNmbr = m_scoringTypeNmbr;
    working.m_salaryCap = m_salaryCap;
    working.m_dropLowest = m_dropLowest;
    working.m_carTypeNmbr = m_carTypeNmbr;
    return working;
}

bool cLeague::CommitChanges()
{
    return m_leagueNmbr < 1 ? insertRow() : updateRow();
}

bool cLeague::updateRow()
{
    return m_db.execute(u"UPDATE leagues "_s
                        u" set league_name = '"_s + sqlText(m_leagueName) + u"'"_s +
                        u" ,league_short_name = '"_s + sqlText(m_leagueShortName) + u"'"_s +
                        u" ,race_type_nmbr = "_s + sqlNumber(m_raceTypeNmbr) +
                        u" ,scoring_option_nmbr = "_s + sqlNumber(m_scoringOptionNmbr) +
                        u" ,scoring_type_nmbr = "_s + sqlNumber(m_scoringTypeNmbr) +
                        u" ,salary_cap = "_s + sqlCurrency(m_salaryCap) +
                        u" ,drop_lowest = "_s + sqlNumber(m_dropLowest) +
                        u" ,car_type_nmbr = "_s + sqlNumber(m_carTypeNmbr) +
                        u" WHERE league_nmbr = "_s + sqlNumber(m_leagueNmbr));
}

bool cLeague::insertRow()
{
    m_leagueNmbr = nextKey(m_db, u"leagues"_s, u"league_nmbr"_s);
    return m_db.execute(u"INSERT INTO leagues "_s
                        u" (league_nmbr,"_s
                        u" league_name,"_s
                        u" league_short_name,"_s
                        u" race_type_nmbr,"_s
                        u" scoring_option_nmbr,"_s
                        u" scoring_type_nmbr,"_s
                        u" salary_cap,"_s
                        u" drop_lowest,"_s
                        u" car_type_nmbr)"_s
                        u" VALUES "_s
                        u"("_s + sqlNumber(m_leagueNmbr) + u","_s +
                        u"'"_s + sqlText(m_leagueName) + u"',"_s +
                        u"'"_s + sqlText(m_leagueShortName) + u"',"_s +
                        sqlNumber(m_raceTypeNmbr) + u","_s +
                        sqlNumber(m_scoringOptionNmbr) + u","_s +
                        sqlNumber(m_scoringTypeNmbr) + u","_s +
                        sqlCurrency(m_salaryCap) + u","_s +
                        sqlNumber(m_dropLowest) + u","_s +
                        sqlNumber(m_carTypeNmbr) + u")"_s);
}

bool cLeague::deleteRow()
{
    // No declared relationships: the league's dependent rows go by explicit statements, and
    // its head-to-head pairings are left where they are.
    const QString where = u" WHERE league_nmbr = "_s + sqlNumber(m_leagueNmbr);
    return m_db.execute(u"DELETE FROM league_teams"_s + where) &&
           m_db.execute(u"DELETE FROM team_results"_s + where) &&
           m_db.execute(u"DELETE FROM team_results_summary"_s + where) &&
           m_db.execute(u"DELETE FROM leagues "_s + where);
}

cLeague& cLeagueCollection::Add(int16_t leagueNmbr, const QString& leagueName, const QString& leagueShortName,
                                int16_t scoringTypeNmbr, int16_t raceTypeNmbr, int16_t scoringOptionNmbr,
                                Currency salaryCap, int16_t dropLowest, int16_t carTypeNmbr, const QString& sKey)
{
    auto record = std::make_unique<cLeague>();
    record->setLeagueNmbr(leagueNmbr);
    record->setLeagueName(leagueName);
    record->setLeagueShortName(leagueShortName);
    record->setScoringTypeNmbr(scoringTypeNmbr);
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setScoringOptionNmbr(scoringOptionNmbr);
    record->setSalaryCap(salaryCap);
    record->setDropLowest(dropLowest);
    record->setCarTypeNmbr(carTypeNmbr);
    return append(std::move(record), sKey);
}

int32_t cLeagueCollection::load(std::optional<int16_t> raceTypeNmbr, std::optional<int16_t> carTypeNmbr)
{
    QString statement = u"SELECT *"_s
                        u" FROM leagues"_s;
    if (raceTypeNmbr && carTypeNmbr)
        statement += u" WHERE race_type_nmbr = "_s + sqlNumber(*raceTypeNmbr) +
                     u" AND car_type_nmbr = "_s + sqlNumber(*carTypeNmbr);
    else if (raceTypeNmbr)
        statement += u" WHERE race_type_nmbr = "_s + sqlNumber(*raceTypeNmbr);
    else if (carTypeNmbr)
        statement += u" WHERE car_type_nmbr = "_s + sqlNumber(*carTypeNmbr);
    return loadFrom(statement);
}

int32_t cLeagueCollection::loadForTeam(int16_t teamNmbr)
{
    return loadFrom(u"SELECT leagues.*"_s
                    u" FROM leagues,league_teams"_s
                    u" WHERE leagues.league_nmbr = league_teams.league_nmbr"_s
                    u" AND league_teams.team_nmbr = "_s + sqlNumber(teamNmbr));
}

bool cLeagueCollection::raceTypeNmbrExists(const cVariant& raceTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cLeague& league : *this)
        if (sameNumber(raceTypeNmbr, league.raceTypeNmbr()))
            return true;
    return false;
}

bool cLeagueCollection::scoringTypeNmbrExists(const cVariant& scoringTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cLeague& league : *this)
        if (sameNumber(scoringTypeNmbr, league.scoringTypeNmbr()))
            return true;
    return false;
}

int32_t cLeagueCollection::loadFrom(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cLeagueCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"league_nmbr"_s).toInt16(), m_db.fields(u"league_name"_s).toText(),
            m_db.fields(u"league_short_name"_s).toText(), m_db.fields(u"scoring_type_nmbr"_s).toInt16(),
            m_db.fields(u"race_type_nmbr"_s).toInt16(), m_db.fields(u"scoring_option_nmbr"_s).toInt16(),
            m_db.fields(u"salary_cap"_s).toCurrency(), m_db.fields(u"drop_lowest"_s).toInt16(),
            m_db.fields(u"car_type_nmbr"_s).toInt16());
        m_db.MoveNext();
    }
}
