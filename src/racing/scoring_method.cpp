#include "racing/scoring_method.h"

using namespace Qt::StringLiterals;

cScoringType cScoringType::copy() const
{
    cScoringType working;
    working.m_scoringTypeNmbr = m_scoringTypeNmbr;
    working.m_scoringTypeName = m_scoringTypeName;
    working.m_lapsLedBonus = m_lapsLedBonus;
    working.m_mostLapsLedBonus = m_mostLapsLedBonus;
    working.m_fastQualBonus = m_fastQualBonus;
    return working;
}

bool cScoringType::deleteRow()
{
    return m_db.execute(u"DELETE FROM scoring_type  WHERE scoring_type_nmbr = "_s + sqlNumber(m_scoringTypeNmbr));
}

bool cScoringType::CommitChanges()
{
    return m_scoringTypeNmbr < 1 ? insertRow() : updateRow();
}

bool cScoringType::updateRow()
{
    return m_db.execute(u"UPDATE scoring_type  set scoring_type_name = '"_s + sqlText(m_scoringTypeName) +
                        u"' ,laps_led_bonus = "_s + sqlNumber(m_lapsLedBonus) +
                        u" ,most_laps_led_bonus = "_s + sqlNumber(m_mostLapsLedBonus) +
                        u" ,fast_qual_bonus = "_s + sqlNumber(m_fastQualBonus) +
                        u" WHERE scoring_type_nmbr = "_s + sqlNumber(m_scoringTypeNmbr));
}

bool cScoringType::insertRow()
{
    m_scoringTypeNmbr = nextKey(m_db, u"scoring_type"_s, u"scoring_type_nmbr"_s);
    return m_db.execute(u"INSERT INTO scoring_type  (scoring_type_nmbr, scoring_type_name, laps_led_bonus, "_s
                        u"most_laps_led_bonus, fast_qual_bonus) VALUES ("_s +
                        sqlNumber(m_scoringTypeNmbr) + u",'"_s + sqlText(m_scoringTypeName) + u"',"_s + sqlNumber(m_lapsLedBonus) +
                        u","_s + sqlNumber(m_mostLapsLedBonus) + u","_s + sqlNumber(m_fastQualBonus) + u")"_s);
}

int32_t cScoringType::load(int16_t scoringTypeNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM scoring_type"_s
                            u" WHERE scoring_type_nmbr = "_s + sqlNumber(scoringTypeNmbr)) ||
        m_db.eof())
        return 0;
    m_scoringTypeNmbr = m_db.fields(u"scoring_type_nmbr"_s).toInt16();
    m_scoringTypeName = m_db.fields(u"scoring_type_name"_s).toText();
    m_lapsLedBonus = m_db.fields(u"laps_led_bonus"_s).toInt16();
    m_mostLapsLedBonus = m_db.fields(u"most_laps_led_bonus"_s).toInt16();
    m_fastQualBonus = m_db.fields(u"fast_qual_bonus"_s).toInt16();
    return 1;
}

cScoringType& cScoringTypeCollection::Add(int16_t scoringTypeNmbr, const QString& scoringTypeName,
                                          int16_t lapsLedBonus, int16_t mostLapsLedBonus, int16_t fastQualBonus,
                                          const QString& sKey)
{
    auto record = std::make_unique<cScoringType>();
    record->setScoringTypeNmbr(scoringTypeNmbr);
    record->setScoringTypeName(scoringTypeName);
    record->setLapsLedBonus(lapsLedBonus);
    record->setMostLapsLedBonus(mostLapsLedBonus);
    record->setFastQualBonus(fastQualBonus);
    return append(std::move(record), sKey);
}

int32_t cScoringTypeCollection::load()
{
    if (m_db.OpenResultSet(u"SELECT *"_s
                           u" FROM scoring_type"_s) && !m_db.eof())
        fill();
    return loadedCount();
}

void cScoringTypeCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"scoring_type_nmbr"_s).toInt16(), m_db.fields(u"scoring_type_name"_s).toText(),
            m_db.fields(u"laps_led_bonus"_s).toInt16(), m_db.fields(u"most_laps_led_bonus"_s).toInt16(),
            m_db.fields(u"fast_qual_bonus"_s).toInt16());
        m_db.MoveNext();
    }
}

QString cScoringTypeCollection::getScoringTypeName(int16_t scoringTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cScoringType& method : *this)
        if (method.scoringTypeNmbr() == scoringTypeNmbr)
            return method.scoringTypeName();
    return {};
}

cScoringOption& cScoringOptionCollection::Add(int16_t scoringOptionNmbr, const QString& scoringOptionName,
                                              const QString& sKey)
{
    auto record = std::make_unique<cScoringOption>();
    record->setScoringOptionNmbr(scoringOptionNmbr);
    record->setScoringOptionName(scoringOptionName);
    return append(std::move(record), sKey);
}

int32_t cScoringOptionCollection::load()
{
    if (m_db.OpenResultSet(u"SELECT *"_s
                           u" FROM scoring_option_dm"_s) && !m_db.eof())
        fill();
    return loadedCount();
}

void cScoringOptionCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"scoring_option_nmbr"_s).toInt16(), m_db.fields(u"scoring_option_name"_s).toText());
        m_db.MoveNext();
    }
}

QString cScoringOptionCollection::getScoringOptionName(int16_t scoringOptionNmbr)
{
    if (Count() == 0)
        load();
    for (const cScoringOption& option : *this)
        if (option.scoringOptionNmbr() == scoringOptionNmbr)
            return option.scoringOptionName();
    return {};
}
