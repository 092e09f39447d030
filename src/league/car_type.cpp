#include "league/car_type.h"

using namespace Qt::StringLiterals;

namespace {
const QString kSelectAll = u"SELECT *"_s u" FROM car_type_dm"_s;
}

cCarType& cCarTypeCollection::Add(int16_t carTypeNmbr, const QString& carTypeName, const QString& sKey)
{
    auto record = std::make_unique<cCarType>();
    record->setCarTypeNmbr(carTypeNmbr);
    record->setCarTypeName(carTypeName);
    return append(std::move(record), sKey);
}

int32_t cCarTypeCollection::load()
{
    return loadFrom(kSelectAll);
}

int32_t cCarTypeCollection::loadNoBonus()
{
    return loadFrom(kSelectAll + u" WHERE car_type_nmbr in (1,2)"_s);
}

int32_t cCarTypeCollection::loadFrom(const QString& statement)
{
    if (m_db.OpenResultSet(statement) && !m_db.eof())
        fill();
    return loadedCount();
}

void cCarTypeCollection::fill()
{
    while (!m_db.eof()) {
        Add(m_db.fields(u"car_type_nmbr"_s).toInt16(), m_db.fields(u"car_type_name"_s).toText());
        m_db.MoveNext();
    }
}

QString cCarTypeCollection::getCarTypeName(int16_t carTypeNmbr)
{
    if (Count() == 0)
        load();
    for (const cCarType& carType : *this)
        if (carType.carTypeNmbr() == carTypeNmbr)
            return carType.carTypeName();
    return {};
}
