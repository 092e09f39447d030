#pragma once
#include "base/runtime_error.h"
#include "store/connection.h"
#include "store/currency.h"
#include "store/variant.h"

#include <QDate>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <vector>

// Pieces shared by every record class and its collection.
//
// A record is one row in memory. It owns its own IDatabase, has a plain get/set pair per field
// and no row state: a key below 1 means "not in the table yet", so CommitChanges inserts, else
// it updates. Statements are built by concatenation; values go in only through the helpers below.
//
// Optional filters of a collection's load routines are std::optional<int16_t> arguments, so
// "not passed" (no condition in the WHERE) and "passed as 0" stay different.

// Rows delivered with the data file have keys below this; the operator's rows start here.
// The screens refuse to delete a reference row whose key is below it.
inline constexpr int16_t kFirstOperatorKey = 500;

// A text value for a statement, with every apostrophe doubled. The caller adds the quotes.
QString sqlText(const QString& text);
// A stored date: the short date in single quotes ("'2002-03-17'"). An invalid (absent) date
// gives the keyword NULL, so the statement stays valid and the column is left empty.
QString sqlDate(const QDate& date);
// A date compared in a WHERE clause: the short date between hash signs ("#2002-03-17#").
// An invalid date gives NULL, which no row matches.
QString sqlDateLiteral(const QDate& date);
// A whole number in the general number form ("-12"): keys, codes, places, points.
inline QString sqlNumber(int64_t value) { return QString::number(value); }
// Money in the general number form: no quotes, no separators ("1000.5").
QString sqlCurrency(Currency value);

// The next key of a table with one allocated key column, read with db (which loses its current
// result set): the highest key + 1, but never below kFirstOperatorKey. An empty table, a Null
// maximum or a maximum below 500 gives 500. A maximum of 32767 is the run-time error "Overflow".
int16_t nextKey(IDatabase& db, const QString& table, const QString& keyColumn);

// Whether a variant look-up value names this number. Null, empty text and text that is not a
// number name nothing; a numeric text counts as its number.
bool sameNumber(const cVariant& value, int16_t number);

// Iterates a list of owned records and yields the records themselves (by reference).
template <class T, class Base>
class tRecordIterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = std::remove_const_t<T>;
    using difference_type = std::ptrdiff_t;
    using reference = T&;
    using pointer = T*;

    tRecordIterator() = default;
    explicit tRecordIterator(Base it) : m_it(it) {}
    reference operator*() const { return **m_it; }
    pointer operator->() const { return m_it->get(); }
    tRecordIterator& operator++() { ++m_it; return *this; }
    tRecordIterator operator++(int) { tRecordIterator before = *this; ++m_it; return before; }
    friend bool operator==(const tRecordIterator& a, const tRecordIterator& b) { return a.m_it == b.m_it; }

private:
    Base m_it{};
};

// The list side of a collection: records in the order they were added, reached by position
// (from 1), by key text, or by iteration. Remove takes a record out of the list only.
// A collection derives from it and adds its own Add (which calls append), its loads and look-ups.
template <class T>
class tRecordList {
    using Storage = std::vector<std::unique_ptr<T>>;

public:
    using iterator = tRecordIterator<T, typename Storage::iterator>;
    using const_iterator = tRecordIterator<const T, typename Storage::const_iterator>;

    T& Item(int index) { return *m_items[position(index)]; }
    const T& Item(int index) const { return *m_items[position(index)]; }
    T& Item(const QString& key) { return *m_items[position(key)]; }
    const T& Item(const QString& key) const { return *m_items[position(key)]; }
    int Count() const { return static_cast<int>(m_items.size()); }

    void Remove(int index) { erase(position(index)); }
    void Remove(const QString& key) { erase(position(key)); }

    iterator begin() { return iterator(m_items.begin()); }
    iterator end() { return iterator(m_items.end()); }
    const_iterator begin() const { return const_iterator(m_items.begin()); }
    const_iterator end() const { return const_iterator(m_items.end()); }

protected:
    // Appends a record; a non-empty key must be new to the list (compared without case).
    T& append(std::unique_ptr<T> record, const QString& sKey = {})
    {
        if (!sKey.isEmpty() && find(sKey) >= 0)
            throw cRuntimeError(457, QStringLiteral("This key is already associated with an element of this collection"));
        m_items.push_back(std::move(record));
        m_keys.push_back(sKey);
        return *m_items.back();
    }
    // What a load returns: the count afterwards. Counts are 32-bit: a data file may hold far more
    // rows of a table than a 16-bit number can count.
    int32_t loadedCount() const { return Count(); }

private:
    size_t position(int index) const
    {
        if (index < 1 || index > Count())
            throw cRuntimeError::subscriptOutOfRange();
        return static_cast<size_t>(index - 1);
    }
    size_t position(const QString& key) const
    {
        const qsizetype at = key.isEmpty() ? -1 : find(key);
        if (at < 0)
            throw cRuntimeError(5, QStringLiteral("Invalid procedure call or argument"));
        return static_cast<size_t>(at);
    }
    qsizetype find(const QString& key) const
    {
        for (size_t i = 0; i < m_keys.size(); ++i)
            if (m_keys[i].compare(key, Qt::CaseInsensitive) == 0)
                return static_cast<qsizetype>(i);
        return -1;
    }
    void erase(size_t at)
    {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(at));
        m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(at));
    }

    Storage m_items;              // owned, so a record's address stays put while the list grows
    std::vector<QString> m_keys;  // one per record, empty when added without a key
};
