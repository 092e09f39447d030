#pragma once
#include <QDate>
#include <QDialog>

class QCalendarWidget;

// A small calendar window: choosing a date (a click, or Enter) hides it, and the caller reads
// selectedDate(). Closing it otherwise leaves the result rejected.
class frmDate : public QDialog {
    Q_OBJECT
public:
    explicit frmDate(QWidget* parent = nullptr);

    void setSelectedDate(const QDate& date);
    QDate selectedDate() const;
    bool dateChosen() const { return result() == QDialog::Accepted; }

private:
    QCalendarWidget* m_calendar = nullptr;
};
