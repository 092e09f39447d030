#include "league/record.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

QString sqlText(const QString& text)
{
    QString doubled = text;
    return doubled.replace(u'\'', u"''"_s);
}

QString sqlDate(const QDate& date)
{
    return date.isValid() ? u"'"_s + shortDate(date) + u"'"_s : u"NULL"_s;
}

QString sqlDateLiteral(const QDate& date)
{
    return date.isValid() ? u"#"_s + shortDate(date) + u"#"_s : u"NULL"_s;
}

QString sqlCurrency(Currency value)
{
    return value.toSqlText();
}

int16_t nextKey(IDatabase& db, const QString& table, const QString& keyColumn)
{
    const QString alias = u"max_"_s + keyColumn;
    if (!db.OpenResultSet(u"SELECT MAX("_s + keyColumn + u") as "_s + alias + u" FROM "_s + table + u" "_s) || db.eof())
        return kFirstOperatorKey;
    const cVariant& top = db.fields(alias);
    if (top.isNull())
        return kFirstOperatorKey;
    const int16_t highest = top.toInt16();
    if (highest < kFirstOperatorKey)
        return kFirstOperatorKey;
    return checkedNarrow<int16_t>(highest + 1);
}

bool sameNumber(const cVariant& value, int16_t number)
{
    if (value.isNull() || !value.isNumeric())
        return false;
    return value.toDouble() == static_cast<double>(number);
}
