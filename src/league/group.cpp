#include "league/group.h"

using namespace Qt::StringLiterals;

bool cGroup::deleteRow()
{
    return m_db.execute(u"DELETE FROM group_dm "_s
                        u" WHERE group_nmbr = "_s + QString::number(m_groupNmbr));
}

bool cGroup::CommitChanges()
{
    return m_groupNmbr < 1 ? insertRow() : updateRow();
}

bool cGroup::updateRow()
{
    return m_db.execute(u"UPDATE group_dm "_s
                        u" set group_name = '"_s + sqlText(m_groupName) + u"',"_s +
                        u" max_nmbr = "_s + QString::number(m_maxNmbr) +
                        u" WHERE group_nmbr = "_s + QString::number(m_groupNmbr));
}

bool cGroup::insertRow()
{
    m_groupNmbr = nextKey(m_db, u"group_dm"_s, u"group_nmbr"_s);
    return m_db.execute(u"INSERT INTO group_dm "_s
                        u" (group_nmbr, "_s
                        u" max_nmbr, "_s
                        u" group_name) "_s
                        u" VALUES "_s
                        u"("_s + QString::number(m_groupNmbr) + u","_s + QString::number(m_maxNmbr) + u","_s +
                        u"'"_s + sqlText(m_groupName) + u"')"_s);
}

int32_t cGroup::load(int16_t groupNmbr)
{
    if (m_db.OpenResultSet(u" SELECT * FROM group_dm "_s
                           u" WHERE group_nmbr = "_s + QString::number(groupNmbr)) && !m_db.eof()) {
        // max_nmbr is read as it stands: the program only ever stores a number there.
        m_groupName = m_db.fields(u"group_name"_s).toText();
        m_groupNmbr = m_db.fields(u"group_nmbr"_s).toInt16();
        m_maxNmbr = m_db.fields(u"max_nmbr"_s).toInt16();
        return 1;
    }
    m_groupNmbr = -1;
    m_maxNmbr = -1;
    return 0;
}

cGroup cGroup::copy() const
{
    cGroup working;
    working.m_groupName = m_groupName;
    working.m_groupNmbr = m_groupNmbr;
    working.m_maxNmbr = m_maxNmbr;
    return working;
}

cGroup& cGroupCollection::Add(int16_t groupNmbr, const QString& groupName, int16_t maxNmbr, const QString& sKey)
{
    auto record = std::make_unique<cGroup>();
    record->setGroupNmbr(groupNmbr);
    record->setGroupName(groupName);
    record->setMaxNmbr(maxNmbr);
    return append(std::move(record), sKey);
}

int32_t cGroupCollection::load()
{
    if (m_db.OpenResultSet(u"SELECT *"_s
                           u" FROM group_dm"_s) && !m_db.eof())
        fill();
    return loadedCount();
}

void cGroupCollection::fill()
{
    while (!m_db.eof()) {
        const cVariant& maxNmbr = m_db.fields(u"max_nmbr"_s);
        Add(m_db.fields(u"group_nmbr"_s).toInt16(), m_db.fields(u"group_name"_s).toText(),
            maxNmbr.isNull() ? int16_t(-1) : maxNmbr.toInt16());
        m_db.MoveNext();
    }
}

QString cGroupCollection::getGroupName(const cVariant& groupNmbr)
{
    if (Count() == 0)
        load();
    for (const cGroup& group : *this)
        if (sameNumber(groupNmbr, group.groupNmbr()))
            return group.groupName();
    return {};
}
