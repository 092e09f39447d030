#include "store/currency.h"
#include "base/runtime_error.h"

#include <QLocale>
#include <cmath>

Currency Currency::fromDouble(double value)
{
    const double scaled = std::round(value * 10000.0);
    if (!std::isfinite(scaled) || scaled > 9.2e18 || scaled < -9.2e18)
        throw cRuntimeError::overflow();
    return fromRaw(static_cast<int64_t>(scaled));
}

bool Currency::parse(const QString& text, Currency& out)
{
    QString t = text.trimmed();
    if (t.isEmpty())
        return false;
    bool negative = false;
    if (t.startsWith(u'(') && t.endsWith(u')')) {
        negative = true;
        t = t.mid(1, t.size() - 2).trimmed();
    }
    if (t.startsWith(u'-')) {
        negative = !negative;
        t = t.mid(1).trimmed();
    }
    const QLocale locale;
    t.remove(locale.currencySymbol());
    t.remove(u'$');
    t.remove(locale.groupSeparator());
    if (locale.groupSeparator() != u",")
        t.remove(u',');
    t = t.trimmed();
    if (t.isEmpty())
        return false;
    bool ok = false;
    double value = t.toDouble(&ok);
    if (!ok)
        value = locale.toDouble(t, &ok);
    if (!ok || !std::isfinite(value))
        return false;
    try {
        out = fromDouble(negative ? -value : value);
    } catch (const cRuntimeError&) {
        return false;
    }
    return true;
}

QString Currency::toSqlText() const
{
    const int64_t whole = m_raw / 10000;
    int64_t frac = std::llabs(m_raw % 10000);
    QString text = QString::number(whole);
    if (m_raw < 0 && whole == 0)
        text = QStringLiteral("-0");
    if (frac == 0)
        return text;
    QString digits = QString::number(frac).rightJustified(4, u'0');
    while (digits.endsWith(u'0'))
        digits.chop(1);
    return text + u'.' + digits;
}

QString Currency::toCurrencyText() const
{
    const QLocale locale;
    if (locale.language() == QLocale::C)
        return QLocale(QLocale::English, QLocale::UnitedStates).toCurrencyString(toDouble(), QStringLiteral("$"), 2);
    return locale.toCurrencyString(toDouble(), locale.currencySymbol(), 2);
}
