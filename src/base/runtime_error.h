#pragma once
#include <QString>
#include <exception>
#include <limits>
#include <string>

// The program's run-time error: a number and the system's description.
// Raised where a value cannot be converted, a key overflows or a row is missing;
// caught where the program traps it (posting per league, report entries, import
// lines) and otherwise once at the top of the event loop.
class cRuntimeError : public std::exception {
public:
    cRuntimeError(int number, QString description)
        : m_number(number), m_description(std::move(description)), m_what(m_description.toStdString()) {}

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_what.c_str(); }

    static cRuntimeError overflow() { return {6, QStringLiteral("Overflow")}; }
    static cRuntimeError typeMismatch() { return {13, QStringLiteral("Type mismatch")}; }
    static cRuntimeError invalidUseOfNull() { return {94, QStringLiteral("Invalid use of Null")}; }
    static cRuntimeError noCurrentRecord() { return {3021, QStringLiteral("No current record.")}; }
    static cRuntimeError itemNotFound() { return {3265, QStringLiteral("Item not found in this collection.")}; }
    static cRuntimeError subscriptOutOfRange() { return {9, QStringLiteral("Subscript out of range")}; }

private:
    int m_number;
    QString m_description;
    std::string m_what;
};

// Narrowing with the program's overflow rule.
template <typename To, typename From>
To checkedNarrow(From value)
{
    if (value < static_cast<From>(std::numeric_limits<To>::min()) ||
        value > static_cast<From>(std::numeric_limits<To>::max()))
        throw cRuntimeError::overflow();
    return static_cast<To>(value);
}
