#include "store/variant.h"
#include "base/runtime_error.h"
#include "store/dates.h"

#include <cmath>

namespace {
bool textToNumber(const QString& text, double& out)
{
    bool ok = false;
    out = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(out);
}

// Whole-number conversion rounds half to even, as the program's integer conversions do.
template <typename T>
T toWhole(double value)
{
    const double rounded = std::nearbyint(value);
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<T>::min() || rounded > std::numeric_limits<T>::max())
        throw cRuntimeError::overflow();
    return static_cast<T>(rounded);
}
} // namespace

bool cVariant::isNumeric() const
{
    if (std::holds_alternative<int64_t>(m_value) || std::holds_alternative<double>(m_value))
        return true;
    double unused = 0;
    return isText() && textToNumber(std::get<QString>(m_value), unused);
}

double cVariant::numeric() const
{
    if (isNull())
        throw cRuntimeError::invalidUseOfNull();
    if (const auto* i = std::get_if<int64_t>(&m_value))
        return static_cast<double>(*i);
    if (const auto* d = std::get_if<double>(&m_value))
        return *d;
    double out = 0;
    if (!textToNumber(std::get<QString>(m_value), out))
        throw cRuntimeError::typeMismatch();
    return out;
}

int16_t cVariant::toInt16() const
{
    if (const auto* i = std::get_if<int64_t>(&m_value))
        return checkedNarrow<int16_t>(*i);
    return toWhole<int16_t>(numeric());
}

int32_t cVariant::toInt32() const
{
    if (const auto* i = std::get_if<int64_t>(&m_value))
        return checkedNarrow<int32_t>(*i);
    return toWhole<int32_t>(numeric());
}

uint8_t cVariant::toByte() const
{
    if (const auto* i = std::get_if<int64_t>(&m_value))
        return checkedNarrow<uint8_t>(*i);
    return toWhole<uint8_t>(numeric());
}

double cVariant::toDouble() const
{
    return numeric();
}

Currency cVariant::toCurrency() const
{
    if (const auto* i = std::get_if<int64_t>(&m_value)) {
        if (*i > 922337203685477 || *i < -922337203685477)
            throw cRuntimeError::overflow();
        return Currency::fromRaw(*i * 10000);
    }
    return Currency::fromDouble(numeric());
}

QString cVariant::toText() const
{
    if (isNull())
        throw cRuntimeError::invalidUseOfNull();
    return toTextOrEmpty();
}

QString cVariant::toTextOrEmpty() const
{
    if (const auto* s = std::get_if<QString>(&m_value))
        return *s;
    if (const auto* i = std::get_if<int64_t>(&m_value))
        return QString::number(*i);
    if (const auto* d = std::get_if<double>(&m_value))
        return QString::number(*d, 'g', 15);
    return {};
}

QDate cVariant::toDate() const
{
    if (isNull())
        throw cRuntimeError::invalidUseOfNull();
    const QDate date = parseDate(toTextOrEmpty());
    if (!date.isValid())
        throw cRuntimeError::typeMismatch();
    return date;
}
