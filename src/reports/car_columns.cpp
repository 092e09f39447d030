#include "reports/car_columns.h"
#include "reports/report_page.h"
#include "reports/roster_columns.h"

using namespace Qt::StringLiterals;

std::optional<QString> carHeading(int16_t column, CarColumns known)
{
    switch (column) {
    case 2: return u"<BR>Car#"_s;
    case 3: return u"<BR>Driver"_s;
    case 4: return u"<BR>Sponsor"_s;
    case 12: return u"<BR>Salary"_s;
    case 23: return u"<BR>Make"_s;
    case 24: return u"<BR>Owner"_s;
    case 40: return known == CarColumns::WithGroup ? std::optional(u"<BR>Group"_s) : std::nullopt;
    default: return std::nullopt;
    }
}

std::optional<cReportRun::Cell> carCell(const IDatabase& rows, int16_t column, CarColumns known)
{
    switch (column) {
    case 2: return cReportRun::Cell{fieldText(rows, u"car_txt"_s), u"center"_s};
    case 3: return cReportRun::Cell{fieldText(rows, u"driver_name"_s), u"left"_s};
    case 4: return cReportRun::Cell{fieldText(rows, u"sponsor"_s), u"left"_s};
    case 12: return cReportRun::Cell{currencyText(rows.fields(u"salary"_s)), u"right"_s};
    case 23: return cReportRun::Cell{fieldText(rows, u"car_make"_s), u"left"_s};
    case 24: return cReportRun::Cell{fieldText(rows, u"car_owner"_s), u"left"_s};
    case 40:
        if (known == CarColumns::WithGroup)
            return cReportRun::Cell{groupNameOf(rows), u"left"_s};
        return std::nullopt;
    default: return std::nullopt;
    }
}
