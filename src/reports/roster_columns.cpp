#include "reports/roster_columns.h"
#include "reports/report_page.h"
#include "league/group.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

namespace {

QString dateText(const IDatabase& rows, const QString& field)
{
    return shortDate(parseDate(fieldText(rows, field)));
}

} // namespace

std::optional<QString> rosterHeading(int16_t column)
{
    switch (column) {
    case 2: return u"<BR>Car#"_s;
    case 3: return u"<BR>Driver"_s;
    case 10: return u"<BR>Start Date"_s;
    case 5: return u"<BR>Stop Date"_s;
    case 11: return u"Locked<BR>Salary"_s;
    case 12: return u"Current<BR>Salary"_s;
    case 40: return u"<BR>Group"_s;
    default: return std::nullopt;
    }
}

std::optional<cReportRun::Cell> rosterCell(const IDatabase& rows, int16_t column)
{
    switch (column) {
    case 2: return cReportRun::Cell{fieldText(rows, u"car_txt"_s), u"center"_s};
    case 3: return cReportRun::Cell{fieldText(rows, u"driver_name"_s), u"left"_s};
    case 10: return cReportRun::Cell{dateText(rows, u"efctv_dt"_s), u"center"_s};
    case 5: return cReportRun::Cell{dateText(rows, u"term_dt"_s), u"center"_s};
    case 11: return cReportRun::Cell{currencyText(rows.fields(u"locked_salary"_s)), u"right"_s};
    case 12: return cReportRun::Cell{currencyText(rows.fields(u"salary"_s)), u"right"_s};
    case 40: return cReportRun::Cell{groupNameOf(rows), u"left"_s};
    default: return std::nullopt;
    }
}

QString currencyText(const cVariant& value)
{
    return value.isNull() ? QString() : value.toCurrency().toCurrencyText();
}

// A car without a group (Null, or the -1 a blank choice stores) finds no group: an empty name.
QString groupNameOf(const IDatabase& rows)
{
    const cVariant& number = rows.fields(u"group_nmbr"_s);
    cGroup group;
    group.load(number.isNull() ? int16_t(-1) : number.toInt16());
    return group.groupName();
}

QString rosterTeamHead(const IDatabase& rows, const std::vector<int16_t>& columns)
{
    QString head = fieldText(rows, u"team_name"_s);
    if (head.isEmpty())
        head = fieldText(rows, u"team_owner"_s);
    const cVariant& email = rows.fields(u"email"_s);
    const cVariant& phone = rows.fields(u"phone"_s);
    for (const int16_t column : columns) {
        if (column == 38 && !email.isNull())
            head += u"<BR>"_s + u"<A href='mailto:"_s + email.toText() + u"'>"_s + email.toText() + u"</A>"_s;
        else if (column == 39 && !phone.isNull())
            head += u"<BR>"_s + phone.toText();
    }
    return head;
}
