#include "store/statement_shape.h"

#include <cstring>

namespace {

bool isIdentifierStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool isIdentifierChar(char c)
{
    return isIdentifierStart(c) || (c >= '0' && c <= '9') || c == '$';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool sameWord(const char* begin, qsizetype length, const char* word)
{
    if (static_cast<size_t>(length) != std::strlen(word))
        return false;
    for (qsizetype i = 0; i < length; ++i)
        if ((begin[i] & ~0x20) != word[i])
            return false;
    return true;
}

} // namespace

bool shapeStatement(const QByteArray& sql, StatementShape& shape)
{
    const char* s = sql.constData();
    const qsizetype n = sql.size();
    qsizetype i = 0;
    while (i < n && (s[i] == ' ' || s[i] == '\t' || s[i] == '\n' || s[i] == '\r'))
        ++i;
    qsizetype wordEnd = i;
    while (wordEnd < n && isIdentifierStart(s[wordEnd]))
        ++wordEnd;
    const bool isQuery = sameWord(s + i, wordEnd - i, "SELECT");
    if (!isQuery && !sameWord(s + i, wordEnd - i, "INSERT") && !sameWord(s + i, wordEnd - i, "UPDATE") &&
        !sameWord(s + i, wordEnd - i, "DELETE"))
        return false;
    shape.isQuery = isQuery;
    bool inSelectList = isQuery;   // until the FROM of the outer SELECT

    shape.text.clear();
    shape.text.reserve(n);
    shape.values.clear();
    int depth = 0;
    int listDepth = -1;          // depth of an ORDER BY / GROUP BY list, -1 when none is open
    bool lastWordOrderOrGroup = false;
    for (i = 0; i < n;) {
        const char c = s[i];
        if (c == '\'' && inSelectList) {
            const qsizetype end = sql.indexOf('\'', i + 1);
            if (end < 0)
                return false;
            shape.text += sql.mid(i, end + 1 - i);   // a doubled quote is two such pieces in a row
            i = end + 1;
            continue;
        }
        if (c == '\'') {
            QByteArray text;
            ++i;
            for (;;) {
                if (i >= n)
                    return false;   // an unclosed quote: let the engine say so
                if (s[i] == '\'') {
                    if (i + 1 < n && s[i + 1] == '\'') {
                        text += '\'';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                text += s[i++];
            }
            shape.text += '?';
            shape.values.append(text);
            continue;
        }
        if (c == '"' || c == '`' || c == '[') {
            const char close = c == '[' ? ']' : c;
            const qsizetype end = sql.indexOf(close, i + 1);
            if (end < 0)
                return false;
            shape.text += sql.mid(i, end + 1 - i);
            i = end + 1;
            continue;
        }
        if (isIdentifierStart(c)) {
            qsizetype end = i;
            while (end < n && isIdentifierChar(s[end]))
                ++end;
            const bool isBy = sameWord(s + i, end - i, "BY");
            if (isBy && lastWordOrderOrGroup)
                listDepth = depth;
            else if (listDepth == depth &&
                     (sameWord(s + i, end - i, "LIMIT") || sameWord(s + i, end - i, "HAVING") ||
                      sameWord(s + i, end - i, "UNION") || sameWord(s + i, end - i, "EXCEPT") ||
                      sameWord(s + i, end - i, "INTERSECT")))
                listDepth = -1;
            lastWordOrderOrGroup = sameWord(s + i, end - i, "ORDER") || sameWord(s + i, end - i, "GROUP");
            if (depth == 0 && sameWord(s + i, end - i, "FROM"))
                inSelectList = false;
            shape.text += sql.mid(i, end - i);
            i = end;
            continue;
        }
        if (isDigit(c) || (c == '.' && i + 1 < n && isDigit(s[i + 1]))) {
            qsizetype end = i;
            bool real = false;
            while (end < n && (isDigit(s[end]) || s[end] == '.')) {
                real = real || s[end] == '.';
                ++end;
            }
            if (end < n && (isIdentifierChar(s[end]) || s[end] == '.'))
                return false;   // 1e5, 0x10 and the like: leave them to the engine
            const QByteArray literal = sql.mid(i, end - i);
            if (listDepth == depth || inSelectList) {
                shape.text += literal;   // a column position or a select-list literal, not a value
            } else {
                bool ok = false;
                if (!real) {
                    const qlonglong whole = literal.toLongLong(&ok);
                    if (ok)
                        shape.values.append(static_cast<int64_t>(whole));
                }
                if (!ok) {
                    const double value = literal.toDouble(&ok);
                    if (!ok)
                        return false;
                    shape.values.append(value);
                }
                shape.text += '?';
            }
            i = end;
            continue;
        }
        if (c == '(') {
            ++depth;
        } else if (c == ')') {
            if (listDepth == depth)
                listDepth = -1;
            --depth;
        } else if (c == ';') {
            // Only trailing blanks may follow: several statements go to the engine as they are.
            for (qsizetype rest = i + 1; rest < n; ++rest)
                if (s[rest] != ' ' && s[rest] != '\t' && s[rest] != '\n' && s[rest] != '\r')
                    return false;
        } else if ((c == '-' && i + 1 < n && s[i + 1] == '-') || c == '?' || c == ':' || c == '@') {
            return false;   // a comment or a parameter of its own: not worth shaping
        }
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r')
            lastWordOrderOrGroup = false;
        shape.text += c;
        ++i;
    }
    return true;
}
