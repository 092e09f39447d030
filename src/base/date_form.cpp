#include "base/date_form.h"

#include <QCalendarWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmDate::frmDate(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmDate"_s);
    setWindowTitle(u"Select Date"_s);

    m_calendar = new QCalendarWidget(this);
    m_calendar->setObjectName(u"MonthView1"_s);
    m_calendar->setGridVisible(true);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setSelectedDate(QDate::currentDate());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_calendar);

    // Moving through the month with the keys only selects; a click or Enter chooses.
    connect(m_calendar, &QCalendarWidget::clicked, this, &QDialog::accept);
    connect(m_calendar, &QCalendarWidget::activated, this, &QDialog::accept);
}

void frmDate::setSelectedDate(const QDate& date)
{
    if (date.isValid())
        m_calendar->setSelectedDate(date);
}

QDate frmDate::selectedDate() const
{
    return m_calendar->selectedDate();
}
