#include "reports/car_picks.h"
#include "base/runtime_error.h"
#include "league/group.h"
#include "league/record.h"
#include "reports/car_columns.h"
#include "reports/report_page.h"
#include "reports/report_tags.h"

using namespace Qt::StringLiterals;

namespace {

QString carPicksStatement(int16_t leagueNmbr)
{
    return u"SELECT cars.*, league_name, salary_cap"_s
           u" FROM cars, leagues"_s
           u" WHERE cars.race_type_nmbr = leagues.race_type_nmbr"_s
           u" AND leagues.league_nmbr = "_s +
           sqlNumber(leagueNmbr) +
           u" AND cars.car_type_nmbr = leagues.car_type_nmbr "_s
           u" ORDER BY group_nmbr, salary desc, car_txt"_s;
}

// The group of a row; 0 for a car without one (Null, 0 or the -1 a blank choice stores), which
// all sort ahead of the groups and so make one block.
int16_t groupOf(const IDatabase& rows)
{
    const cVariant& number = rows.fields(u"group_nmbr"_s);
    if (number.isNull())
        return 0;
    const int16_t value = number.toInt16();
    return value < 1 ? int16_t(0) : value;
}

class cCarPicksPage {
public:
    cCarPicksPage(cReportRun& run, IDatabase& rows) : m_run(run), m_rows(rows) {}

    void write()
    {
        m_run.writeHead();
        m_run.line(u"<br>"_s);
        m_run.writeHeaderImage();
        m_run.writeTitle(m_rows.fields(u"league_name"_s).toTextOrEmpty());
        if (const cVariant& cap = m_rows.fields(u"salary_cap"_s); !cap.isNull() && cap.toCurrency() != Currency())
            m_run.writeTitle(u"Salary Cap "_s + cap.toCurrency().toCurrencyText(), 2);
        m_run.writeTableTag();
        m_run.writeEmptyRow();

        bool first = true;
        int16_t group = 0;
        int64_t rowCount = 1;
        for (; !m_rows.eof(); m_rows.MoveNext()) {
            if (const int16_t rowGroup = groupOf(m_rows); first || rowGroup != group) {
                writeGroupHead(rowGroup);
                first = false;
                group = rowGroup;
            }
            m_run.writeDataRow(rowCount++, [this](int16_t column) {
                return carCell(m_rows, column, CarColumns::WithoutGroup);
            });
        }
        m_run.line(u"</TABLE>"_s);
        m_run.writeFooter();
        m_run.writeClosing();
    }

private:
    // The group's name and how many of it a team selects, across the table, then the heading
    // row. Cars without a group have both cells empty.
    void writeGroupHead(int16_t groupNmbr)
    {
        QString name;
        QString limit;
        if (groupNmbr > 0) {
            cGroup group;
            group.load(groupNmbr);
            name = group.groupName();
            limit = u"Select "_s + sqlNumber(group.maxNmbr()) + u" From this group."_s;
        }
        writeAcross(name);
        writeAcross(limit);
        m_run.writeHeadingRow([](int16_t column) { return carHeading(column, CarColumns::WithoutGroup); });
    }

    // A row of one centred cell in the heading look, as wide as the column list.
    void writeAcross(const QString& text)
    {
        cReportAttributesCollection& look = m_run.attributes();
        const QString& id = m_run.id();
        m_run.line(tableRowTag(look.headingBackColor(id)));
        m_run.line(headerCell(m_run.headingTextSize(), look.headingTextColor(id), text, u"center"_s,
                              checkedNarrow<int16_t>(m_run.columnCount()), u"nowrap"_s));
        m_run.line(u"</TR>"_s);
    }

    cReportRun& m_run;
    IDatabase& m_rows;
};

} // namespace

QString carPicksReport(int16_t leagueNmbr, bool launch)
{
    return runReportEntry([&] {
        cReportRun run(u"CP"_s);
        IDatabase rows;
        const bool opened = rows.OpenResultSet(carPicksStatement(leagueNmbr));
        run.open(leagueNmbr);
        if (!opened || rows.eof())
            return run.finishEmpty(opened && launch ? noCarsMessage() : QString());
        cCarPicksPage(run, rows).write();
        return run.finish(launch);
    });
}
