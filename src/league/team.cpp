#include "league/team.h"

using namespace Qt::StringLiterals;

namespace {
QString quoted(const QString& text)
{
    return u"'"_s + sqlText(text) + u"'"_s;
}
}

cTeam cTeam::copy() const
{
    cTeam working;
    working.m_addressLine1 = m_addressLine1;
    working.m_addressLine2 = m_addressLine2;
    working.m_city = m_city;
    working.m_state = m_state;
    working.m_zip = m_zip;
    working.m_email = m_email;
    working.m_phone = m_phone;
    working.m_carTypeNmbr = m_carTypeNmbr;
    working.m_raceTypeNmbr = m_raceTypeNmbr;
    working.m_teamOwner = m_teamOwner;
    working.m_teamName = m_teamName;
    working.m_teamNmbr = m_teamNmbr;
    return working;
}

bool cTeam::CommitChanges()
{
    return m_teamNmbr < 1 ? insertRow() : updateRow();
}

bool cTeam::updateRow()
{
    return m_db.execute(u"UPDATE teams "_s
                        u" set team_name = "_s + quoted(m_teamName) +
                        u" ,team_owner = "_s + quoted(m_teamOwner) +
                        u" ,email = "_s + quoted(m_email) +
                        u" ,phone = "_s + quoted(m_phone) +
                        u" ,race_type_nmbr = "_s + QString::number(m_raceTypeNmbr) +
                        u" ,car_type_nmbr = "_s + QString::number(m_carTypeNmbr) +
                        u" ,address_line1 = "_s + quoted(m_addressLine1) +
                        u" ,address_line2 = "_s + quoted(m_addressLine2) +
                        u" ,city = "_s + quoted(m_city) +
                        u" ,state = "_s + quoted(m_state) +
                        u" ,zip = "_s + quoted(m_zip) +
                        u" WHERE team_nmbr = "_s + QString::number(m_teamNmbr));
}

bool cTeam::insertRow()
{
    m_teamNmbr = nextKey(m_db, u"teams"_s, u"team_nmbr"_s);
    return m_db.execute(u"INSERT INTO teams "_s
                        u" (team_nmbr,"_s
                        u" team_name,"_s
                        u" team_owner,"_s
                        u" email,"_s
                        u" phone,"_s
                        u" race_type_nmbr,"_s
                        u" car_type_nmbr,"_s
                        u" address_line1,"_s
                        u" address_line2,"_s
                        u" city,"_s
                        u" state,"_s
                        u" zip)"_s
                        u" VALUES "_s
                        u"("_s + QString::number(m_teamNmbr) + u","_s + quoted(m_teamName) + u","_s +
                        quoted(m_teamOwner) + u","_s + quoted(m_email) + u","_s + quoted(m_phone) + u","_s +
                        QString::number(m_raceTypeNmbr) + u","_s + QString::number(m_carTypeNmbr) + u","_s +
                        quoted(m_addressLine1) + u","_s + quoted(m_addressLine2) + u","_s + quoted(m_city) + u","_s +
                        quoted(m_state) + u","_s + quoted(m_zip) + u")"_s);
}

bool cTeam::deleteRow()
{
    // The roster goes with the team; memberships and results are refused earlier by the command.
    if (!m_db.execute(u"DELETE FROM team_car "_s
                      u" WHERE team_nmbr =  "_s + QString::number(m_teamNmbr)))
        return false;
    return m_db.execute(u"DELETE FROM teams "_s
                        u" WHERE team_nmbr = "_s + QString::number(m_teamNmbr));
}

int32_t cTeam::load(int16_t teamNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT team_nmbr, team_name, team_owner, race_type_nmbr, email, phone, car_type_nmbr"_s
                            u" FROM teams"_s
                            u" WHERE team_nmbr = "_s + QString::number(teamNmbr)) ||
        m_db.eof())
        return 0;
    m_teamNmbr = m_db.fields(u"team_nmbr"_s).toInt16();
    m_teamName = m_db.fields(u"team_name"_s).toText();
    m_teamOwner = m_db.fields(u"team_owner"_s).toTextOrEmpty();
    m_raceTypeNmbr = m_db.fields(u"race_type_nmbr"_s).toInt16();
    m_email = m_db.fields(u"email"_s).toTextOrEmpty();
    m_phone = m_db.fields(u"phone"_s).toTextOrEmpty();
    m_carTypeNmbr = m_db.fields(u"car_type_nmbr"_s).toInt16();
    return 1;
}

cTeam& cTeamCollection::Add(int16_t teamNmbr, const QString& teamName, const QString& teamOwner,
                            int16_t raceTypeNmbr, const QString& email, const QString& phone, int16_t carTypeNmbr,
                            const QString& addressLine1, const QString& addressLine2, const QString& city,
                            const QString& state, const QString& zip, const QString& sKey)
{
    auto record = std::make_unique<cTeam>();
    record->setTeamNmbr(teamNmbr);
    record->setTeamName(teamName);
    record->setTeamOwner(teamOwner);
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setEmail(email);
    record->setPhone(phone);
    record->setCarTypeNmbr(carTypeNmbr);
    record->setAddressLine1(addressLine1);
    record->setAddressLine2(addressLine2);
    record->setCity(city);
    record->setState(state);
    record->setZip(zip);
    return append(std::move(record), sKey);
}

int32_t cTeamCollection::load(std::optional<int16_t> raceTypeNmbr, std::optional<int16_t> carTypeNmbr)
{
    QString statement = u"SELECT *"_s
                        u" FROM teams"_s;
    if (raceTypeNmbr) {
        statement += u" WHERE race_type_nmbr = "_s + QString::number(*raceTypeNmbr);
        if (carTypeNmbr)
            statement += u" AND car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    } else if (carTypeNmbr) {
        statement += u" WHERE car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    }
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cTeamCollection::fill()
{
    // The contact and address columns are free text the operator may leave out: Null reads as "".
    auto text = [this](const QString& column) { return m_db.fields(column).toTextOrEmpty(); };
    while (!m_db.eof()) {
        Add(m_db.fields(u"team_nmbr"_s).toInt16(), m_db.fields(u"team_name"_s).toText(), text(u"team_owner"_s),
            m_db.fields(u"race_type_nmbr"_s).toInt16(), text(u"email"_s), text(u"phone"_s),
            m_db.fields(u"car_type_nmbr"_s).toInt16(), text(u"address_line1"_s), text(u"address_line2"_s),
            text(u"city"_s), text(u"state"_s), text(u"zip"_s));
        m_db.MoveNext();
    }
}
