#pragma once
#include "league/record.h"

#include <cstdint>
#include <optional>

// Points of a scoring method by place (row of scoring_points): `points` for the finishing place
// and `qualPoints` for the qualifying position, one row per place.
class cScoringPoints {
public:
    void setPoints(int32_t value) { m_points = value; }
    int32_t points() const { return m_points; }
    void setQualPoints(int16_t value) { m_qualPoints = value; }
    int16_t qualPoints() const { return m_qualPoints; }
    void setPlace(int16_t value) { m_place = value; }
    int16_t place() const { return m_place; }
    void setScoringTypeNmbr(int16_t value) { m_scoringTypeNmbr = value; }
    int16_t scoringTypeNmbr() const { return m_scoringTypeNmbr; }

    QString nameOf() const { return QStringLiteral("SCORING POINTS"); }
    // Updates when the method already has a row for the place, else inserts.
    bool CommitChanges();
    bool updateRow();
    bool insertRow();
    bool deleteRow();

private:
    IDatabase m_db;
    int16_t m_scoringTypeNmbr = 0;
    int16_t m_place = 0;
    int32_t m_points = 0;
    int16_t m_qualPoints = 0;
};

class cScoringPointsCollection : public tRecordList<cScoringPoints> {
public:
    cScoringPoints& Add(int16_t scoringTypeNmbr, int16_t place, int32_t points, int16_t qualPoints,
                        const QString& sKey = {});
    int32_t load(std::optional<int16_t> scoringTypeNmbr = {});
    // Only the rows that pay for the qualifying position.
    int32_t loadQual(std::optional<int16_t> scoringTypeNmbr = {});

    // Replaces the method's rows by the list's in one transaction (nothing when the list is empty).
    bool insertScoringPoints();
    bool deleteScoringPoints(int16_t scoringTypeNmbr);

    // The first row's points for the place, as 16 bits ("Overflow" beyond); 0 when no row.
    int16_t pointsForPlace(int16_t place) const;
    int16_t qualPointsForPlace(int16_t place) const;
    bool usesQualPointsBonus() const;
    // A method is high-score when place 1 pays at least as much as place 2; it decides the
    // direction of team places, standings and drops, and where DNQ rows stand.
    bool highScore() const;

private:
    int32_t loadWith(const QString& statement);
    void fill();
    IDatabase m_db;
};

// A bonus for a team that has exactly `nmbr` cars in the first `top` places
// (row of scoring_top_points).
class cScoringTopPoints {
public:
    void setTop(int16_t value) { m_top = value; }
    int16_t top() const { return m_top; }
    void setPoints(int16_t value) { m_points = value; }
    int16_t points() const { return m_points; }
    void setScoringTypeNmbr(int16_t value) { m_scoringTypeNmbr = value; }
    int16_t scoringTypeNmbr() const { return m_scoringTypeNmbr; }
    void setNmbr(int16_t value) { m_nmbr = value; }
    int16_t nmbr() const { return m_nmbr; }

    bool insertRow();

private:
    IDatabase m_db;
    int16_t m_top = 0;
    int16_t m_points = 0;
    int16_t m_scoringTypeNmbr = 0;
    int16_t m_nmbr = 0;
};

class cScoringTopPointsCollection : public tRecordList<cScoringTopPoints> {
public:
    cScoringTopPoints& Add(int16_t scoringTypeNmbr, int16_t nmbr, int16_t points, int16_t top, const QString& sKey = {});
    int32_t load(int16_t scoringTypeNmbr);
    // Replaces the method's rows by the list's in one transaction (nothing when the list is empty).
    bool insertScoringTopPoints();
    bool deleteScoringTopPoints(int16_t scoringTypeNmbr);

private:
    void fill();
    IDatabase m_db;
};
