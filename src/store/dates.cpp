#include "store/dates.h"

#include <QRegularExpression>

QString shortDate(const QDate& date)
{
    return date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd")) : QString();
}

namespace {
int fullYear(const QString& digits)
{
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}
} // namespace

QDate parseDate(const QString& text)
{
    const QString t = text.trimmed();
    static const QRegularExpression yearFirst(QStringLiteral(R"(^(\d{4})[-/.](\d{1,2})[-/.](\d{1,2})$)"));
    static const QRegularExpression monthFirst(QStringLiteral(R"(^(\d{1,2})[-/.](\d{1,2})[-/.](\d{2}|\d{4})$)"));
    if (auto m = yearFirst.match(t); m.hasMatch())
        return QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    if (auto m = monthFirst.match(t); m.hasMatch())
        return QDate(fullYear(m.captured(3)), m.captured(1).toInt(), m.captured(2).toInt());
    return {};
}
