#pragma once
#include <QByteArray>
#include <QList>
#include <cstdint>
#include <variant>

// An action statement taken apart into its shape, with "?" in place of every literal value,
// and the values in order. Statements of one shape (the per-row updates of posting) then share
// one prepared statement and differ only in the values bound to it.
struct StatementShape {
    using Value = std::variant<int64_t, double, QByteArray>;
    QByteArray text;
    QList<Value> values;
    bool isQuery = false;   // a SELECT: its select list keeps its literals, so column names stay
};

// Shapes a SELECT, INSERT, UPDATE or DELETE (UTF-8, already in the engine's dialect). False for
// any other statement, for text holding more than one statement, and for literals the shape
// cannot take. Numbers of an ORDER BY or GROUP BY list (they name columns) and the literals of a
// SELECT's own select list (they name its columns) stay as they are.
bool shapeStatement(const QByteArray& sql, StatementShape& shape);
