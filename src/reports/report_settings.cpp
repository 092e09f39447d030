#include "reports/report_settings.h"
#include "store/transaction.h"

using namespace Qt::StringLiterals;

namespace {

int16_t int16OrZero(const cVariant& value)
{
    return value.isNull() ? int16_t(0) : value.toInt16();
}

} // namespace

// ---------------------------------------------------------------- reports

cReports& cReportsCollection::Add(int16_t reportNmbr, const QString& reportId, const QString& reportName,
                                  int16_t fileHandle, const QString& sKey)
{
    auto record = std::make_unique<cReports>();
    record->setReportNmbr(reportNmbr);
    record->setReportId(reportId);
    record->setReportName(reportName);
    record->setFileHandle(fileHandle);
    return append(std::move(record), sKey);
}

int32_t cReportsCollection::load(const std::optional<QString>& reportId)
{
    QString statement = u"SELECT *"_s
                        u" FROM report"_s;
    if (reportId)
        statement += u" WHERE report_id = "_s + *reportId;
    if (m_db.OpenResultSet(statement)) {
        for (; !m_db.eof(); m_db.MoveNext())
            Add(m_db.fields(u"report_nmbr"_s).toInt16(), m_db.fields(u"report_id"_s).toTextOrEmpty(),
                m_db.fields(u"report_name"_s).toTextOrEmpty(), int16OrZero(m_db.fields(u"file_handle"_s)));
    }
    return loadedCount();
}

// ---------------------------------------------------------------- available columns

cAvailableReportColumns& cAvailableReportColumnsCollection::Add(int16_t reportNmbr, int16_t columnNmbr,
                                                                const QString& columnName, const QString& sKey)
{
    auto record = std::make_unique<cAvailableReportColumns>();
    record->setReportNmbr(reportNmbr);
    record->setColumnNmbr(columnNmbr);
    record->setColumnName(columnName);
    return append(std::move(record), sKey);
}

int32_t cAvailableReportColumnsCollection::load(int16_t reportNmbr)
{
    return loadWith(u"SELECT A.column_nmbr,A.report_nmbr, B.column_name "_s
                    u" FROM available_report_columns A, column_dm B"_s
                    u" WHERE report_nmbr = "_s + sqlNumber(reportNmbr) +
                    u" AND A.column_nmbr = B.column_nmbr "_s);
}

int32_t cAvailableReportColumnsCollection::loadNotUsed(int16_t reportNmbr)
{
    return loadWith(u"SELECT A.column_nmbr,A.report_nmbr, B.column_name "_s
                    u" FROM available_report_columns A, column_dm B"_s
                    u" WHERE report_nmbr = "_s + sqlNumber(reportNmbr) +
                    u" AND A.column_nmbr = B.column_nmbr "_s
                    u" AND A.column_nmbr NOT IN "_s
                    u"         (SELECT column_nmbr "_s
                    u"            FROM report_columns "_s
                    u"           WHERE report_nmbr = "_s + sqlNumber(reportNmbr) + u")"_s);
}

int32_t cAvailableReportColumnsCollection::loadWith(const QString& statement)
{
    if (m_db.OpenResultSet(statement)) {
        for (; !m_db.eof(); m_db.MoveNext())
            Add(m_db.fields(u"report_nmbr"_s).toInt16(), m_db.fields(u"column_nmbr"_s).toInt16(),
                m_db.fields(u"column_name"_s).toTextOrEmpty());
    }
    return loadedCount();
}

// ---------------------------------------------------------------- report columns

bool cReportColumns::insertRow()
{
    return m_db.execute(u"INSERT INTO report_columns "_s
                        u" (report_nmbr,"_s
                        u" column_nmbr,"_s
                        u" column_order)"_s
                        u" VALUES "_s
                        u"("_s + sqlNumber(m_reportNmbr) + u","_s + sqlNumber(m_columnNmbr) + u","_s +
                        sqlNumber(m_columnOrder) + u")"_s);
}

cReportColumns& cReportColumnsCollection::Add(int16_t reportNmbr, int16_t columnNmbr, int16_t columnOrder,
                                              const QString& columnName, const QString& sKey)
{
    auto record = std::make_unique<cReportColumns>();
    record->setReportNmbr(reportNmbr);
    record->setColumnNmbr(columnNmbr);
    record->setColumnOrder(columnOrder);
    record->setColumnName(columnName);
    return append(std::move(record), sKey);
}

int32_t cReportColumnsCollection::load(int16_t reportNmbr)
{
    if (m_db.OpenResultSet(u"SELECT A.*, B.column_name "_s
                           u" FROM report_columns A, column_dm B"_s
                           u" WHERE report_nmbr = "_s + sqlNumber(reportNmbr) +
                           u" AND A.column_nmbr = B.column_nmbr "_s
                           u" ORDER BY A.column_order"_s)) {
        for (; !m_db.eof(); m_db.MoveNext())
            Add(m_db.fields(u"report_nmbr"_s).toInt16(), m_db.fields(u"column_nmbr"_s).toInt16(),
                int16OrZero(m_db.fields(u"column_order"_s)), m_db.fields(u"column_name"_s).toTextOrEmpty());
    }
    return loadedCount();
}

bool cReportColumnsCollection::deleteReportColumns(int16_t reportNmbr)
{
    return m_db.execute(u"DELETE FROM report_columns where report_nmbr = "_s + sqlNumber(reportNmbr));
}

bool cReportColumnsCollection::insertReportColumns()
{
    if (Count() == 0)
        return false;
    cTransaction transaction;
    if (!deleteReportColumns(Item(1).reportNmbr()))
        return false;
    for (cReportColumns& column : *this) {
        if (!column.insertRow())
            return false;
    }
    return transaction.commit();
}

// ---------------------------------------------------------------- colours

cColor& cColorCollection::Add(int16_t colorNmbr, const QString& colorName, const QString& colorCd,
                              const QString& sKey)
{
    auto record = std::make_unique<cColor>();
    record->setColorNmbr(colorNmbr);
    record->setColorName(colorName);
    record->setColorCd(colorCd);
    return append(std::move(record), sKey);
}

int32_t cColorCollection::load()
{
    return loadWith(u"SELECT *"_s
                    u" FROM color_dm"_s);
}

int32_t cColorCollection::loadNoDefault()
{
    return loadWith(u"SELECT * "_s
                    u" FROM color_dm "_s
                    u" WHERE color_nmbr <> 0 "_s);
}

int32_t cColorCollection::loadWith(const QString& statement)
{
    if (m_db.OpenResultSet(statement)) {
        for (; !m_db.eof(); m_db.MoveNext())
            Add(m_db.fields(u"color_nmbr"_s).toInt16(), m_db.fields(u"color_name"_s).toTextOrEmpty(),
                m_db.fields(u"color_cd"_s).toTextOrEmpty());
    }
    return loadedCount();
}

// ---------------------------------------------------------------- attributes

bool cReportAttributes::insertRow()
{
    return m_db.execute(u"INSERT INTO report_attributes "_s
                        u" (report_nmbr, "_s
                        u" attribute_nmbr, "_s
                        u" amt, "_s
                        u" string_value) "_s
                        u" VALUES "_s
                        u" ("_s + sqlNumber(m_reportNmbr) + u", "_s + sqlNumber(m_attributeNmbr) + u", "_s +
                        (m_value == 0 ? u" NULL, "_s : sqlNumber(m_value) + u", "_s) +
                        (m_text.isEmpty() ? u" NULL) "_s : u"'"_s + m_text + u"') "_s));
}

bool cReportAttributes::isColor() const
{
    return (m_attributeNmbr >= 1 && m_attributeNmbr <= 8) || (m_attributeNmbr >= 16 && m_attributeNmbr <= 18);
}

cReportAttributes& cReportAttributesCollection::Add(int16_t reportNmbr, int16_t attributeNmbr, int16_t value,
                                                    const QString& color, const QString& text, const QString& sKey)
{
    auto record = std::make_unique<cReportAttributes>();
    record->setReportNmbr(reportNmbr);
    record->setAttributeNmbr(attributeNmbr);
    record->setValue(value);
    record->setColor(color);
    record->setText(text);
    return append(std::move(record), sKey);
}

int32_t cReportAttributesCollection::load(int16_t reportNmbr)
{
    if (m_db.OpenResultSet(u"SELECT report_attributes.*, color_cd "_s
                           u" FROM report_attributes "_s
                           u" LEFT JOIN color_dm "_s
                           u" ON report_attributes.amt = color_dm.color_nmbr "_s
                           u" WHERE report_nmbr = "_s + sqlNumber(reportNmbr))) {
        for (; !m_db.eof(); m_db.MoveNext())
            Add(m_db.fields(u"report_nmbr"_s).toInt16(), m_db.fields(u"attribute_nmbr"_s).toInt16(),
                int16OrZero(m_db.fields(u"amt"_s)), m_db.fields(u"color_cd"_s).toTextOrEmpty(),
                m_db.fields(u"string_value"_s).toTextOrEmpty());
    }
    return loadedCount();
}

int32_t cReportAttributesCollection::loadReportCd(const QString& reportId)
{
    if (m_db.OpenResultSet(u"SELECT report_attributes.report_nmbr "_s
                           u" FROM report_attributes , report "_s
                           u" WHERE report_attributes.report_nmbr = report.report_nmbr "_s
                           u" AND report.report_Id = '"_s + reportId + u"'"_s) &&
        !m_db.eof())
        return load(m_db.fields(u"report_nmbr"_s).toInt16());
    return loadedCount();
}

bool cReportAttributesCollection::Delete(int16_t reportNmbr)
{
    return m_db.execute(u"DELETE * "_s
                        u" FROM report_attributes "_s
                        u" WHERE report_nmbr = "_s + sqlNumber(reportNmbr));
}

bool cReportAttributesCollection::insert(int16_t reportNmbr, int16_t attributeNmbr, int16_t amt)
{
    return m_db.execute(u"INSERT INTO report_attributes "_s
                        u" (report_nmbr, "_s
                        u" attribute_nmbr, "_s
                        u" amt) "_s
                        u" VALUES "_s
                        u" ("_s + sqlNumber(reportNmbr) + u", "_s + sqlNumber(attributeNmbr) + u", "_s +
                        sqlNumber(amt) + u")"_s);
}

const cReportAttributes* cReportAttributesCollection::find(const QString& reportId, ReportAttribute attribute)
{
    if (Count() < 1)
        loadReportCd(reportId);
    for (const cReportAttributes& item : *this) {
        if (item.is(attribute))
            return &item;
    }
    return nullptr;
}

QString cReportAttributesCollection::color(const QString& reportId, ReportAttribute attribute)
{
    const cReportAttributes* item = find(reportId, attribute);
    return item ? item->Color() : QString();
}

QString cReportAttributesCollection::linkColorOf(const QString& reportId, ReportAttribute attribute)
{
    const cReportAttributes* item = find(reportId, attribute);
    return item ? item->Color() : u"0"_s;
}

QString cReportAttributesCollection::number(const QString& reportId, ReportAttribute attribute)
{
    const cReportAttributes* item = find(reportId, attribute);
    return item ? sqlNumber(item->value()) : u"0"_s;
}

QString cReportAttributesCollection::image(const QString& reportId, ReportAttribute attribute)
{
    const cReportAttributes* item = find(reportId, attribute);
    return item ? item->text() : QString();
}

bool cReportAttributesCollection::flag(const QString& reportId, ReportAttribute attribute)
{
    const cReportAttributes* item = find(reportId, attribute);
    return item && item->value() == 1;
}
