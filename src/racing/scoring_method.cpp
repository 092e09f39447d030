#include "racing/scoring_method.h"

using namespace Qt::StringLiterals;

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

int16_t cScoringTypeCollection::load()
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

int16_t cScoringOptionCollection::load()
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
