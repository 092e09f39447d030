#include "league/car.h"
#include "league/group.h"

using namespace Qt::StringLiterals;

void cCar::setGroupNmbr(const cVariant& value)
{
    if (value.isNumeric() && value.toDouble() < 0)
        m_groupNmbr = cVariant();
    else
        m_groupNmbr = value;
}

cVariant cCar::groupNmbr() const
{
    return m_groupNmbr.isNull() ? cVariant(-1) : m_groupNmbr;
}

QString cCar::groupSql() const
{
    const cVariant group = groupNmbr();
    return group.isNumeric() ? QString::number(group.toInt16()) : u"NULL"_s;
}

void cCar::readRow()
{
    m_carNmbr = m_db.fields(u"car_nmbr"_s).toInt16();
    m_carTxt = m_db.fields(u"car_txt"_s).toText().trimmed();
    m_carOwner = m_db.fields(u"car_owner"_s).toText();
    // car_make is the one text column that may be Null.
    m_carMake = m_db.fields(u"car_make"_s).toTextOrEmpty();
    m_sponsor = m_db.fields(u"sponsor"_s).toText();
    m_driverName = m_db.fields(u"driver_name"_s).toText();
    m_raceTypeNmbr = m_db.fields(u"race_type_nmbr"_s).toInt16();
    m_carTypeNmbr = m_db.fields(u"car_type_nmbr"_s).toInt16();
    m_salary = m_db.fields(u"salary"_s).toCurrency();
    setGroupNmbr(m_db.fields(u"group_nmbr"_s));
}

int32_t cCar::load(int16_t carNmbr)
{
    if (!m_db.OpenResultSet(u"SELECT *"_s
                            u" FROM cars"_s
                            u" WHERE car_nmbr = "_s + QString::number(carNmbr)) || m_db.eof())
        return 0;
    readRow();
    return 1;
}

QString cCar::nameOf() const
{
    return u"CAR"_s;
}

bool cCar::CommitChanges()
{
    return m_carNmbr < 1 ? insertRow() : updateRow();
}

bool cCar::updateRow()
{
    return m_db.execute(u"UPDATE cars "_s
                        u" set car_txt = '"_s + sqlText(m_carTxt) + u"'"_s +
                        u" ,car_owner = '"_s + sqlText(m_carOwner) + u"'"_s +
                        u" ,driver_name = '"_s + sqlText(m_driverName) + u"'"_s +
                        u" ,car_make = '"_s + sqlText(m_carMake) + u"'"_s +
                        u" ,sponsor = '"_s + sqlText(m_sponsor) + u"'"_s +
                        u" ,race_type_nmbr = "_s + QString::number(m_raceTypeNmbr) +
                        u" ,car_type_nmbr = "_s + QString::number(m_carTypeNmbr) +
                        u" ,group_nmbr = "_s + groupSql() +
                        u" ,salary = "_s + sqlCurrency(m_salary) +
                        u" WHERE car_nmbr = "_s + QString::number(m_carNmbr));
}

bool cCar::updateImportRow()
{
    return m_db.execute(u"UPDATE cars "_s
                        u" set car_txt = '"_s + sqlText(m_carTxt) + u"'"_s +
                        u" ,car_owner = '"_s + sqlText(m_carOwner) + u"'"_s +
                        u" ,driver_name = '"_s + sqlText(m_driverName) + u"'"_s +
                        u" ,car_make = '"_s + sqlText(m_carMake) + u"'"_s +
                        u" ,sponsor = '"_s + sqlText(m_sponsor) + u"'"_s +
                        u" ,race_type_nmbr = "_s + QString::number(m_raceTypeNmbr) +
                        u" ,car_type_nmbr = "_s + QString::number(m_carTypeNmbr) +
                        u" WHERE car_nmbr = "_s + QString::number(m_carNmbr));
}

bool cCar::insertRow()
{
    m_carNmbr = nextKey(m_db, u"cars"_s, u"car_nmbr"_s);
    return insert();
}

bool cCar::insert()
{
    return m_db.execute(u"INSERT INTO cars "_s
                        u" (car_nmbr,"_s
                        u" race_type_nmbr,"_s
                        u" car_type_nmbr,"_s
                        u" car_txt,"_s
                        u" car_owner,"_s
                        u" driver_name,"_s
                        u" car_make,"_s
                        u" sponsor,"_s
                        u" group_nmbr,"_s
                        u" salary)"_s
                        u" VALUES "_s
                        u"("_s + QString::number(m_carNmbr) +
                        u","_s + QString::number(m_raceTypeNmbr) +
                        u","_s + QString::number(m_carTypeNmbr) +
                        u",'"_s + sqlText(m_carTxt) + u"'"_s +
                        u",'"_s + sqlText(m_carOwner) + u"'"_s +
                        u",'"_s + sqlText(m_driverName) + u"'"_s +
                        u",'"_s + sqlText(m_carMake) + u"'"_s +
                        u",'"_s + sqlText(m_sponsor) + u"'"_s +
                        u","_s + groupSql() +
                        u","_s + sqlCurrency(m_salary) + u")"_s);
}

bool cCar::deleteRow()
{
    return m_db.execute(u"DELETE FROM cars "_s
                        u" WHERE car_nmbr = "_s + QString::number(m_carNmbr));
}

cCar cCar::copy() const
{
    cCar working;
    working.m_groupNmbr = m_groupNmbr;
    working.m_raceTypeNmbr = m_raceTypeNmbr;
    working.m_salary = m_salary;
    working.m_carTypeNmbr = m_carTypeNmbr;
    working.m_driverName = m_driverName;
    working.m_sponsor = m_sponsor;
    working.m_carMake = m_carMake;
    working.m_carOwner = m_carOwner;
    working.m_carTxt = m_carTxt;
    working.m_carNmbr = m_carNmbr;
    return working;
}

// The typed text goes in as it stands (no doubling of apostrophes). A statement the engine
// cannot run has shown its box already and finds nothing.
bool cCar::carTxtExists(const QString& carTxt, int16_t carNmbr, int16_t raceTypeNmbr, int16_t carTypeNmbr)
{
    QString statement = u"SELECT *  FROM cars "_s
                        u" WHERE car_txt = '"_s + carTxt + u"'"_s +
                        u" AND race_type_nmbr = "_s + QString::number(raceTypeNmbr) +
                        u" AND car_type_nmbr = "_s + QString::number(carTypeNmbr);
    if (carNmbr > 0)
        statement += u" AND car_nmbr <> "_s + QString::number(carNmbr);
    return m_db.OpenResultSet(statement) && !m_db.eof();
}

bool cCar::driverExists(const QString& driverName, int16_t carNmbr, int16_t raceTypeNmbr, int16_t carTypeNmbr)
{
    QString statement = u"SELECT *  FROM cars "_s
                        u" WHERE driver_name = '"_s + driverName + u"'"_s +
                        u" AND race_type_nmbr = "_s + QString::number(raceTypeNmbr) +
                        u" AND car_type_nmbr = "_s + QString::number(carTypeNmbr);
    if (carNmbr > 0)
        statement += u" AND car_nmbr <> "_s + QString::number(carNmbr);
    return m_db.OpenResultSet(statement) && !m_db.eof();
}

void cCar::getTopBonusCar(int16_t raceTypeNmbr)
{
    if (m_db.OpenResultSet(u"SELECT *  FROM cars "_s
                           u" WHERE car_type_nmbr = 3 "_s
                           u" AND race_type_nmbr = "_s + QString::number(raceTypeNmbr)) && !m_db.eof()) {
        readRow();
        return;
    }
    setCarTxt(u"Top Bonus"_s);
    m_driverName = u"Top Bonus"_s;
    m_carTypeNmbr = 3;
    m_raceTypeNmbr = raceTypeNmbr;
    insertRow();
}

cCar& cCarCollection::Add(int16_t carNmbr, int16_t raceTypeNmbr, const QString& carTxt, const QString& carOwner,
                          const QString& carMake, const QString& sponsor, const QString& driverName,
                          int16_t carTypeNmbr, Currency salary, const cVariant& groupNmbr, const QString& sKey)
{
    auto record = std::make_unique<cCar>();
    record->setCarNmbr(carNmbr);
    record->setRaceTypeNmbr(raceTypeNmbr);
    record->setCarTxt(carTxt);
    record->setCarOwner(carOwner);
    record->setCarMake(carMake);
    record->setSponsor(sponsor);
    record->setDriverName(driverName);
    record->setCarTypeNmbr(carTypeNmbr);
    record->setSalary(salary);
    record->setGroupNmbr(groupNmbr);
    return append(std::move(record), sKey);
}

int32_t cCarCollection::load(std::optional<int16_t> raceTypeNmbr, std::optional<int16_t> carTypeNmbr)
{
    QString statement = u"SELECT *"_s
                        u" FROM cars"_s;
    if (raceTypeNmbr) {
        statement += u" WHERE race_type_nmbr = "_s + QString::number(*raceTypeNmbr);
        if (carTypeNmbr)
            statement += u" AND car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    } else if (carTypeNmbr) {
        statement += u" WHERE car_type_nmbr = "_s + QString::number(*carTypeNmbr);
    }
    if (carTypeNmbr)
        statement += *carTypeNmbr == 1 ? u" ORDER BY car_txt"_s : u" ORDER BY driver_name"_s;
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cCarCollection::fill()
{
    while (!m_db.eof()) {
        const cVariant& group = m_db.fields(u"group_nmbr"_s);
        Add(m_db.fields(u"car_nmbr"_s).toInt16(), m_db.fields(u"race_type_nmbr"_s).toInt16(),
            m_db.fields(u"car_txt"_s).toText(), m_db.fields(u"car_owner"_s).toText(),
            m_db.fields(u"car_make"_s).toTextOrEmpty(), m_db.fields(u"sponsor"_s).toText(),
            m_db.fields(u"driver_name"_s).toText(), m_db.fields(u"car_type_nmbr"_s).toInt16(),
            m_db.fields(u"salary"_s).toCurrency(), group.isNumeric() ? group : cVariant(QString()));
        m_db.MoveNext();
    }
}

const cCar* cCarCollection::find(int16_t carNmbr)
{
    if (Count() == 0)
        load();
    for (const cCar& car : *this)
        if (car.carNmbr() == carNmbr)
            return &car;
    return nullptr;
}

QString cCarCollection::getCarDisplay(int16_t carNmbr)
{
    const cCar* car = find(carNmbr);
    if (!car)
        return {};
    return car->carTypeNmbr() == 2 ? car->driverName() : car->carTxt();
}

Currency cCarCollection::getCarSalary(int16_t carNmbr)
{
    const cCar* car = find(carNmbr);
    return car ? car->salary() : Currency();
}

QString cCarCollection::getCarGroupDisplay(int16_t carNmbr)
{
    const cCar* car = find(carNmbr);
    if (!car || !car->groupNmbr().isNumeric())
        return {};
    cGroup group;
    group.load(car->groupNmbr().toInt16());
    return group.groupName();
}

bool cCarCollection::groupNmbrExists(const cVariant& groupNmbr)
{
    if (Count() == 0)
        load();
    for (const cCar& car : *this) {
        const cVariant group = car.groupNmbr();
        if (group.isNumeric() && sameNumber(groupNmbr, group.toInt16()))
            return true;
    }
    return false;
}
