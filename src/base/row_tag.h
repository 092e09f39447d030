#pragma once
// A row of a list keeps a pointer to the record it shows. The pointer is stored with its type, so
// reading it back as another type gives nullptr instead of a wrong object.
#include <QTreeWidgetItem>
#include <QVariant>

template <class T>
void setRowRecord(QTreeWidgetItem* row, int role, T* record)
{
    row->setData(0, role, QVariant::fromValue(record));
}

template <class T>
T* rowRecord(const QTreeWidgetItem* row, int role)
{
    return row ? row->data(0, role).template value<T*>() : nullptr;
}
