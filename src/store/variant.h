#pragma once
#include "store/currency.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <variant>

// A value read from a column: Null, a whole number, a floating number or a text.
// Conversions follow the program's rules: Null is "Invalid use of Null", a number
// out of range "Overflow", a text that is no number "Type mismatch".
class cVariant {
public:
    cVariant() = default;
    cVariant(int64_t v) : m_value(v) {}
    cVariant(int v) : m_value(static_cast<int64_t>(v)) {}
    cVariant(double v) : m_value(v) {}
    cVariant(QString v) : m_value(std::move(v)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }
    bool isText() const { return std::holds_alternative<QString>(m_value); }
    // A number, or a text that reads as one (the program's IsNumeric).
    bool isNumeric() const;

    int16_t toInt16() const;
    int32_t toInt32() const;
    uint8_t toByte() const;
    double toDouble() const;
    Currency toCurrency() const;
    QString toText() const;       // Null is an error; numbers give their decimal text
    QString toTextOrEmpty() const; // Null reads as the empty text
    QDate toDate() const;          // Null is an error; a text that is no date "Type mismatch"

    friend bool operator==(const cVariant& a, const cVariant& b) { return a.m_value == b.m_value; }

private:
    double numeric() const;        // the value as a number, with the Null and mismatch rules
    std::variant<std::monostate, int64_t, double, QString> m_value;
};
