#include "store/jet_dialect.h"
#include "store/dates.h"

#include <QRegularExpression>

namespace {

// A copy of the statement of the same length in which the inside of every quoted
// text is blanked out, so that searches never match inside a literal.
QString maskQuoted(const QString& sql)
{
    QString masked = sql;
    QChar quote;
    for (qsizetype i = 0; i < masked.size(); ++i) {
        const QChar c = sql.at(i);
        if (quote.isNull()) {
            if (c == u'\'' || c == u'"')
                quote = c;
        } else if (c == quote) {
            if (i + 1 < sql.size() && sql.at(i + 1) == quote) {
                masked[i] = u'_';
                masked[++i] = u'_';
            } else {
                quote = QChar();
            }
        } else {
            masked[i] = u'_';
        }
    }
    return masked;
}

QString replaceDateLiterals(QString sql)
{
    static const QRegularExpression hashDate(QStringLiteral("#([^#\\n]{1,40})#"));
    const QString masked = maskQuoted(sql);
    QList<QRegularExpressionMatch> matches;
    for (auto it = hashDate.globalMatch(masked); it.hasNext();)
        matches.append(it.next());
    for (auto m = matches.crbegin(); m != matches.crend(); ++m) {
        const QDate date = parseDate(sql.mid(m->capturedStart(1), m->capturedLength(1)));
        if (date.isValid())
            sql.replace(m->capturedStart(), m->capturedLength(), u'\'' + shortDate(date) + u'\'');
    }
    return sql;
}

QString rewriteStatementHead(QString sql)
{
    static const QRegularExpression deleteStar(QStringLiteral(R"(^(\s*DELETE)\s*\*\s*(FROM\b))"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression insertInto(QStringLiteral(R"(^(\s*INSERT)(\s+INTO\b))"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression update(QStringLiteral(R"(^(\s*UPDATE)(\s+)(?!OR\b))"),
                                           QRegularExpression::CaseInsensitiveOption);
    qsizetype start = 0;
    while (start < sql.size() && sql.at(start).isSpace())
        ++start;
    const QStringView head = QStringView(sql).mid(start, 6);
    const bool mayRewrite = head.compare(u"DELETE", Qt::CaseInsensitive) == 0 ||
                            head.compare(u"INSERT", Qt::CaseInsensitive) == 0 ||
                            head.compare(u"UPDATE", Qt::CaseInsensitive) == 0;
    if (!mayRewrite)
        return sql;
    if (auto m = deleteStar.match(sql); m.hasMatch())
        return sql.replace(m.capturedStart(), m.capturedLength(), m.captured(1) + u' ' + m.captured(2));
    if (auto m = insertInto.match(sql); m.hasMatch())
        return sql.insert(m.capturedEnd(1), QStringLiteral(" OR IGNORE"));
    if (auto m = update.match(sql); m.hasMatch())
        return sql.insert(m.capturedEnd(1), QStringLiteral(" OR IGNORE"));
    return sql;
}

// Index of the '(' that encloses position pos at depth 0, or -1.
qsizetype enclosingOpen(const QString& masked, qsizetype pos)
{
    int depth = 0;
    for (qsizetype i = pos - 1; i >= 0; --i) {
        if (masked.at(i) == u')')
            ++depth;
        else if (masked.at(i) == u'(' && depth-- == 0)
            return i;
    }
    return -1;
}

// Index of the first match of word at depth 0 from 'from', stopping at an unmatched ')'.
qsizetype findAtDepthZero(const QString& masked, qsizetype from, const QRegularExpression& word, qsizetype& length)
{
    int depth = 0;
    for (qsizetype i = from; i < masked.size(); ++i) {
        const QChar c = masked.at(i);
        if (c == u'(') {
            ++depth;
        } else if (c == u')') {
            if (depth-- == 0)
                return -1;
        } else if (depth == 0) {
            auto m = word.match(masked, i, QRegularExpression::NormalMatch,
                                QRegularExpression::AnchorAtOffsetMatchOption);
            if (m.hasMatch() && (i == 0 || !masked.at(i - 1).isLetterOrNumber())) {
                length = m.capturedLength();
                return i;
            }
        }
    }
    return -1;
}

qsizetype matchingClose(const QString& masked, qsizetype from)
{
    int depth = 0;
    for (qsizetype i = from; i < masked.size(); ++i) {
        if (masked.at(i) == u'(')
            ++depth;
        else if (masked.at(i) == u')' && depth-- == 0)
            return i;
    }
    return masked.size();
}

// One "(a RIGHT JOIN b ON c)" turned into "(b LEFT JOIN a ON c)"; false when none is left.
bool rewriteOneRightJoin(QString& sql)
{
    static const QRegularExpression rightJoin(QStringLiteral(R"(\bRIGHT\s+(OUTER\s+)?JOIN\b)"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression onWord(QStringLiteral(R"(ON\b)"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression fromWord(QStringLiteral(R"(FROM\b)"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression clauseEnd(QStringLiteral(R"((WHERE|GROUP|ORDER|HAVING|UNION)\b)"),
                                              QRegularExpression::CaseInsensitiveOption);
    const QString masked = maskQuoted(sql);
    const auto join = rightJoin.match(masked);
    if (!join.hasMatch())
        return false;

    qsizetype leftStart = enclosingOpen(masked, join.capturedStart());
    qsizetype rightEnd = 0;
    if (leftStart >= 0) {
        ++leftStart;
        rightEnd = matchingClose(masked, join.capturedEnd());
    } else {
        // Not parenthesised: the left side runs from FROM, the condition to the next clause.
        const qsizetype from = masked.lastIndexOf(fromWord, join.capturedStart());
        if (from < 0)
            return false;
        leftStart = from + 4;
        qsizetype len = 0;
        const qsizetype end = findAtDepthZero(masked, join.capturedEnd(), clauseEnd, len);
        rightEnd = end < 0 ? masked.size() : end;
    }
    qsizetype onLength = 0;
    const qsizetype on = findAtDepthZero(masked, join.capturedEnd(), onWord, onLength);
    if (on < 0 || on > rightEnd)
        return false;

    const QString left = sql.mid(leftStart, join.capturedStart() - leftStart).trimmed();
    const QString right = sql.mid(join.capturedEnd(), on - join.capturedEnd()).trimmed();
    const QString condition = sql.mid(on + onLength, rightEnd - on - onLength).trimmed();
    const bool closesHere = rightEnd < sql.size() && masked.at(rightEnd) == u')';
    const QString rewritten = right + QStringLiteral(" LEFT JOIN ") + left + QStringLiteral(" ON ") + condition +
                              (closesHere ? QString() : QStringLiteral(" "));
    sql.replace(leftStart, rightEnd - leftStart, leftStart > 0 && masked.at(leftStart - 1) == u'(' ? rewritten
                                                                                                   : u' ' + rewritten);
    return true;
}

} // namespace

QString jet_dialect(const QString& statement)
{
    // Most statements need nothing but the head rewrite; the searches below only run when the
    // text holds what they look for.
    QString sql = statement.contains(u'#') ? replaceDateLiterals(statement) : statement;
    sql = rewriteStatementHead(sql);
    if (sql.contains(QStringLiteral("RIGHT"), Qt::CaseInsensitive)) {
        for (int guard = 0; guard < 16 && rewriteOneRightJoin(sql); ++guard) {
        }
    }
    return sql;
}
