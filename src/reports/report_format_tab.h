#pragma once
#include <QWidget>
#include <cstdint>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class cReportAttributes;
class cSizeBox;

// The format tab of "Report Details": the colours, sizes, table spacing, link colours, images and
// flags of one report. Every control carries the number of the attribute it edits in its "tag"
// property; showing and saving go by that number.
class cReportFormatTab : public QWidget {
    Q_OBJECT
public:
    explicit cReportFormatTab(QWidget* parent = nullptr);
    ~cReportFormatTab() override;

    // Clears every control and sets each from the report's stored attributes. The colour lists
    // are filled on the first call.
    void showReport(int16_t reportNmbr);
    // Replaces the report's attribute rows by one row per control, all or nothing. A size that is
    // no number becomes 1 and a border, spacing or padding that is no number 0, in the box too.
    bool saveReport(int16_t reportNmbr);

signals:
    // The operator changed a control (never while the tab is being filled).
    void changed();

private:
    enum class Kind { Color, Size, Spacing, Image, Flag };
    // One edited attribute: its control (and for a colour the "Default" box linked to it).
    struct Entry {
        int16_t attribute = 0;
        Kind kind = Kind::Color;
        QWidget* field = nullptr;
        QCheckBox* defaultBox = nullptr;
    };

    QWidget* buildRowFrame(int row);
    QWidget* buildStyleFrame();
    QWidget* buildLinksFrame();
    QWidget* buildImagesAndFlags();
    QComboBox* addColor(QWidget* parent, const QString& comboName, const QString& boxName, int16_t attribute);
    QWidget* addField(QWidget* field, Kind kind, int16_t attribute);
    void tag(QWidget* control, int16_t attribute);
    void orderEntries();
    void fillColors();
    void clearControls();
    void setFrom(const cReportAttributes& attribute);
    bool writeRows(int16_t reportNmbr);
    void notifyChange();

    std::vector<Entry> m_entries;   // in the order the rows are written
    bool m_colorsLoaded = false;
    bool m_filling = false;
};
