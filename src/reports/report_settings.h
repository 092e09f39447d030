#pragma once
// What the reports are and how each one looks: the reports, the columns each may show and does
// show in the operator's order, the colours, and the formatting attributes of a report.
#include "league/record.h"

#include <QString>
#include <cstdint>
#include <optional>

// One report (row of report).
class cReports {
public:
    void setReportNmbr(int16_t value) { m_reportNmbr = value; }
    int16_t reportNmbr() const { return m_reportNmbr; }
    void setFileHandle(int16_t value) { m_fileHandle = value; }
    int16_t fileHandle() const { return m_fileHandle; }
    void setReportName(const QString& value) { m_reportName = value; }
    QString reportName() const { return m_reportName; }
    void setReportId(const QString& value) { m_reportId = value; }
    QString reportId() const { return m_reportId; }

private:
    int16_t m_reportNmbr = 0;
    int16_t m_fileHandle = 0;
    QString m_reportName;
    QString m_reportId;
};

class cReportsCollection : public tRecordList<cReports> {
public:
    cReports& Add(int16_t reportNmbr, const QString& reportId, const QString& reportName, int16_t fileHandle,
                  const QString& sKey = {});
    // Every report, or the one whose id is given. The id goes into the statement as it was
    // passed, without quotes.
    int32_t load(const std::optional<QString>& reportId = {});

private:
    IDatabase m_db;
};

// A column a report can show (row of available_report_columns, with its display name).
class cAvailableReportColumns {
public:
    void setReportNmbr(int16_t value) { m_reportNmbr = value; }
    int16_t reportNmbr() const { return m_reportNmbr; }
    void setColumnNmbr(int16_t value) { m_columnNmbr = value; }
    int16_t columnNmbr() const { return m_columnNmbr; }
    void setColumnName(const QString& value) { m_columnName = value; }
    QString columnName() const { return m_columnName; }

private:
    int16_t m_reportNmbr = 0;
    int16_t m_columnNmbr = 0;
    QString m_columnName;
};

class cAvailableReportColumnsCollection : public tRecordList<cAvailableReportColumns> {
public:
    cAvailableReportColumns& Add(int16_t reportNmbr, int16_t columnNmbr, const QString& columnName,
                                 const QString& sKey = {});
    int32_t load(int16_t reportNmbr);
    // The columns the report can show and does not show yet.
    int32_t loadNotUsed(int16_t reportNmbr);

private:
    int32_t loadWith(const QString& statement);
    IDatabase m_db;
};

// A column a report shows, at its place in the operator's order (row of report_columns).
class cReportColumns {
public:
    void setReportNmbr(int16_t value) { m_reportNmbr = value; }
    int16_t reportNmbr() const { return m_reportNmbr; }
    void setColumnNmbr(int16_t value) { m_columnNmbr = value; }
    int16_t columnNmbr() const { return m_columnNmbr; }
    void setColumnOrder(int16_t value) { m_columnOrder = value; }
    int16_t columnOrder() const { return m_columnOrder; }
    void setColumnName(const QString& value) { m_columnName = value; }
    QString columnName() const { return m_columnName; }

    bool insertRow();

private:
    IDatabase m_db;
    int16_t m_reportNmbr = 0;
    int16_t m_columnNmbr = 0;
    int16_t m_columnOrder = 0;
    QString m_columnName;
};

class cReportColumnsCollection : public tRecordList<cReportColumns> {
public:
    cReportColumns& Add(int16_t reportNmbr, int16_t columnNmbr, int16_t columnOrder, const QString& columnName,
                        const QString& sKey = {});
    // The report's columns in their order.
    int32_t load(int16_t reportNmbr);
    bool deleteReportColumns(int16_t reportNmbr);
    // Replaces the columns of the report of the first item by the items, all or nothing. An empty
    // list does nothing and returns false, so a report is never left without columns this way.
    bool insertReportColumns();

private:
    IDatabase m_db;
};

// A colour the reports can use (row of color_dm). Colour 0 stands for "the report's default":
// its code "0" is what the tag writers leave out.
class cColor {
public:
    void setColorNmbr(int16_t value) { m_colorNmbr = value; }
    int16_t ColorNmbr() const { return m_colorNmbr; }
    void setColorName(const QString& value) { m_colorName = value; }
    QString ColorName() const { return m_colorName; }
    void setColorCd(const QString& value) { m_colorCd = value; }
    QString ColorCd() const { return m_colorCd; }

private:
    int16_t m_colorNmbr = 0;
    QString m_colorName;
    QString m_colorCd;
};

class cColorCollection : public tRecordList<cColor> {
public:
    cColor& Add(int16_t colorNmbr, const QString& colorName, const QString& colorCd, const QString& sKey = {});
    int32_t load();
    // Every colour but the default.
    int32_t loadNoDefault();

private:
    int32_t loadWith(const QString& statement);
    IDatabase m_db;
};

// The attribute numbers of report_attributes.
enum class ReportAttribute : int16_t {
    HeadingTextColor = 1,
    HeadingBackColor,
    OddRowTextColor,
    OddRowBackColor,
    EvenRowTextColor,
    EvenRowBackColor,
    TitleTextColor,
    BackColor,
    BorderSize,
    CellSpacing,
    CellPadding,
    HeadingTextSize,
    OddRowTextSize,
    EvenRowTextSize,
    TitleTextSize,
    LinkColor,
    VisitedLinkColor,
    HoverLinkColor,
    HeaderImage,
    BackgroundImage,
    IncludeActiveOnly,
    IncludeFooter,
};

// One formatting attribute of a report (row of report_attributes). A colour keeps its colour
// number in value and its HTML code in Color; a number keeps the number in value; an image keeps
// its path in text; a flag is value 1.
class cReportAttributes {
public:
    void setColor(const QString& value) { m_color = value; }
    QString Color() const { return m_color; }
    void setText(const QString& value) { m_text = value; }
    QString text() const { return m_text; }
    void setValue(int16_t value) { m_value = value; }
    int16_t value() const { return m_value; }
    void setAttributeNmbr(int16_t value) { m_attributeNmbr = value; }
    int16_t attributeNmbr() const { return m_attributeNmbr; }
    void setReportNmbr(int16_t value) { m_reportNmbr = value; }
    int16_t reportNmbr() const { return m_reportNmbr; }

    // A value of 0 or less: no colour of the report's own.
    bool isDefault() const { return m_value <= 0; }
    void setDefault() { m_value = 0; }
    // Writes the row; a value 0 goes in as NULL, as does an empty text. The text is not escaped.
    bool insertRow();
    // Whether the attribute is one of the eleven colours.
    bool isColor() const;

    bool is(ReportAttribute attribute) const { return m_attributeNmbr == static_cast<int16_t>(attribute); }
    bool isHeadingTextColor() const { return is(ReportAttribute::HeadingTextColor); }
    bool isHeadingBackColor() const { return is(ReportAttribute::HeadingBackColor); }
    bool isOddRowTextColor() const { return is(ReportAttribute::OddRowTextColor); }
    bool isOddRowBackColor() const { return is(ReportAttribute::OddRowBackColor); }
    bool isEvenRowTextColor() const { return is(ReportAttribute::EvenRowTextColor); }
    bool isEvenRowBackColor() const { return is(ReportAttribute::EvenRowBackColor); }
    bool isTitleTextColor() const { return is(ReportAttribute::TitleTextColor); }
    bool isBackColor() const { return is(ReportAttribute::BackColor); }
    bool isBorderSize() const { return is(ReportAttribute::BorderSize); }
    bool isCellSpacing() const { return is(ReportAttribute::CellSpacing); }
    bool isCellPadding() const { return is(ReportAttribute::CellPadding); }
    bool isHeadingTextSize() const { return is(ReportAttribute::HeadingTextSize); }
    bool isOddRowTextSize() const { return is(ReportAttribute::OddRowTextSize); }
    bool isEvenRowTextSize() const { return is(ReportAttribute::EvenRowTextSize); }
    bool isTitleTextSize() const { return is(ReportAttribute::TitleTextSize); }
    bool islinkColor() const { return is(ReportAttribute::LinkColor); }
    bool isVisitedlinkColor() const { return is(ReportAttribute::VisitedLinkColor); }
    bool isHoverlinkColor() const { return is(ReportAttribute::HoverLinkColor); }
    bool isHeaderImage() const { return is(ReportAttribute::HeaderImage); }
    bool isBackgroundImage() const { return is(ReportAttribute::BackgroundImage); }
    bool isIncludeActiveOnly() const { return is(ReportAttribute::IncludeActiveOnly); }
    bool isIncludeFooter() const { return is(ReportAttribute::IncludeFooter); }

private:
    IDatabase m_db;
    QString m_color;
    QString m_text;
    int16_t m_value = 0;
    int16_t m_attributeNmbr = 0;
    int16_t m_reportNmbr = 0;
};

// The attributes of one report. Every getter takes the report id and loads the collection on
// first use when it is empty (so a report without attribute rows reads again at every getter);
// the first row of the attribute wins. What a getter gives when no row matches depends on the
// kind: "0" for link colours and numbers, an empty text for the other colours and the images,
// false for the flags.
class cReportAttributesCollection : public tRecordList<cReportAttributes> {
public:
    cReportAttributes& Add(int16_t reportNmbr, int16_t attributeNmbr, int16_t value, const QString& color,
                           const QString& text, const QString& sKey = {});
    int32_t load(int16_t reportNmbr);
    // Loads the attributes of the report with these letters; none when it has no attribute rows.
    int32_t loadReportCd(const QString& reportId);
    bool Delete(int16_t reportNmbr);
    bool insert(int16_t reportNmbr, int16_t attributeNmbr, int16_t amt);

    QString headingTextColor(const QString& reportId) { return color(reportId, ReportAttribute::HeadingTextColor); }
    QString headingBackColor(const QString& reportId) { return color(reportId, ReportAttribute::HeadingBackColor); }
    QString oddRowTextColor(const QString& reportId) { return color(reportId, ReportAttribute::OddRowTextColor); }
    QString oddRowBackColor(const QString& reportId) { return color(reportId, ReportAttribute::OddRowBackColor); }
    QString evenRowTextColor(const QString& reportId) { return color(reportId, ReportAttribute::EvenRowTextColor); }
    QString evenRowBackColor(const QString& reportId) { return color(reportId, ReportAttribute::EvenRowBackColor); }
    QString titleTextColor(const QString& reportId) { return color(reportId, ReportAttribute::TitleTextColor); }
    QString backColor(const QString& reportId) { return color(reportId, ReportAttribute::BackColor); }
    QString borderSize(const QString& reportId) { return number(reportId, ReportAttribute::BorderSize); }
    QString cellSpacing(const QString& reportId) { return number(reportId, ReportAttribute::CellSpacing); }
    QString cellPadding(const QString& reportId) { return number(reportId, ReportAttribute::CellPadding); }
    QString headingTextSize(const QString& reportId) { return number(reportId, ReportAttribute::HeadingTextSize); }
    QString oddRowTextSize(const QString& reportId) { return number(reportId, ReportAttribute::OddRowTextSize); }
    QString evenRowTextSize(const QString& reportId) { return number(reportId, ReportAttribute::EvenRowTextSize); }
    QString titleTextSize(const QString& reportId) { return number(reportId, ReportAttribute::TitleTextSize); }
    QString linkColor(const QString& reportId) { return linkColorOf(reportId, ReportAttribute::LinkColor); }
    QString VisitedlinkColor(const QString& reportId) { return linkColorOf(reportId, ReportAttribute::VisitedLinkColor); }
    QString HoverlinkColor(const QString& reportId) { return linkColorOf(reportId, ReportAttribute::HoverLinkColor); }
    QString headerImage(const QString& reportId) { return image(reportId, ReportAttribute::HeaderImage); }
    QString backgroundImage(const QString& reportId) { return image(reportId, ReportAttribute::BackgroundImage); }
    bool includeActiveOnly(const QString& reportId) { return flag(reportId, ReportAttribute::IncludeActiveOnly); }
    bool includeFooter(const QString& reportId) { return flag(reportId, ReportAttribute::IncludeFooter); }

private:
    // The first item of the attribute, after the load on first use; nullptr when none.
    const cReportAttributes* find(const QString& reportId, ReportAttribute attribute);
    QString color(const QString& reportId, ReportAttribute attribute);
    QString linkColorOf(const QString& reportId, ReportAttribute attribute);
    QString number(const QString& reportId, ReportAttribute attribute);
    QString image(const QString& reportId, ReportAttribute attribute);
    bool flag(const QString& reportId, ReportAttribute attribute);

    IDatabase m_db;
};
