#pragma once
#include "league/record.h"

#include <QString>
#include <cstdint>

// A group of cars or drivers (row of group_dm). maxNmbr is how many of the group one team may
// hold; below 0 (the program stores -1) means no limit, 0 is a real limit of none.
class cGroup {
public:
    void setGroupName(const QString& value) { m_groupName = value; }
    QString groupName() const { return m_groupName; }
    void setGroupNmbr(int16_t value) { m_groupNmbr = value; }
    int16_t groupNmbr() const { return m_groupNmbr; }
    void setMaxNmbr(int16_t value) { m_maxNmbr = value; }
    int16_t maxNmbr() const { return m_maxNmbr; }

    bool deleteRow();
    bool CommitChanges();   // inserts when the key is below 1, else updates
    bool updateRow();
    bool insertRow();       // allocates the key into the record first
    // 1 when found. When not found, groupNmbr and maxNmbr become -1 (no group, no limit) and
    // the name stays; a car without a group comes here with -1 and so counts as unlimited.
    int32_t load(int16_t groupNmbr);
    cGroup copy() const;

private:
    IDatabase m_db;
    QString m_groupName;
    int16_t m_groupNmbr = 0;
    int16_t m_maxNmbr = 0;
};

class cGroupCollection : public tRecordList<cGroup> {
public:
    cGroup& Add(int16_t groupNmbr, const QString& groupName, int16_t maxNmbr, const QString& sKey = {});
    int32_t load();   // a Null max_nmbr is read as -1
    // The name of a group, loading the list first when it is empty; "" when none matches.
    QString getGroupName(const cVariant& groupNmbr);

private:
    void fill();
    IDatabase m_db;
};
