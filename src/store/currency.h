#pragma once
#include <QString>
#include <cstdint>

// Money: 64-bit fixed point with four decimals.
class Currency {
public:
    Currency() = default;
    static Currency fromRaw(int64_t tenThousandths) { Currency c; c.m_raw = tenThousandths; return c; }
    static Currency fromDouble(double value);   // rounds to four decimals; out of range is "Overflow"
    // Accepts plain numbers and currency text ("$1,000.50", "1000.5", "(5.00)"); nullopt-like false on failure.
    static bool parse(const QString& text, Currency& out);

    int64_t raw() const { return m_raw; }
    double toDouble() const { return static_cast<double>(m_raw) / 10000.0; }

    // General number form for statements: no quotes, no separators, no trailing zeros ("1000.5", "-3").
    QString toSqlText() const;
    // Currency text of the system locale; under the C/POSIX locale the United States form "$1,000.00".
    QString toCurrencyText() const;

    friend bool operator==(Currency a, Currency b) { return a.m_raw == b.m_raw; }
    friend auto operator<=>(Currency a, Currency b) { return a.m_raw <=> b.m_raw; }
    friend Currency operator+(Currency a, Currency b) { return fromRaw(a.m_raw + b.m_raw); }
    friend Currency operator-(Currency a, Currency b) { return fromRaw(a.m_raw - b.m_raw); }
    Currency& operator+=(Currency b) { m_raw += b.m_raw; return *this; }
    Currency& operator-=(Currency b) { m_raw -= b.m_raw; return *this; }

private:
    int64_t m_raw = 0;
};
