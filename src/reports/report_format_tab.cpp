#include "reports/report_format_tab.h"
#include "base/messages.h"
#include "base/run_trapped.h"
#include "reports/report_settings.h"
#include "store/transaction.h"
#include "store/variant.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// A size box with its up-down. It takes any text, as the operator may type one; the arrows step
// a number through the HTML font sizes 1 to 7, starting from 1 when the box holds no number.
class cSizeBox : public QAbstractSpinBox {
public:
    explicit cSizeBox(QWidget* parent) : QAbstractSpinBox(parent)
    {
        setAlignment(Qt::AlignRight);
        setAccelerated(false);
    }
    QLineEdit* edit() const { return lineEdit(); }
    void setSizeText(const QString& text) { lineEdit()->setText(text); }

    void stepBy(int steps) override
    {
        const int next = std::clamp(current() + steps, kSmallest, kLargest);
        lineEdit()->setText(QString::number(next));
        lineEdit()->selectAll();
    }

    QSize sizeHint() const override
    {
        QSize hint = QAbstractSpinBox::sizeHint();
        hint.setWidth(std::max(hint.width(), fontMetrics().horizontalAdvance(u"0000"_s) + 40));
        return hint;
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    StepEnabled stepEnabled() const override
    {
        const int now = current();
        StepEnabled enabled = StepNone;
        if (now < kLargest)
            enabled |= StepUpEnabled;
        if (now > kSmallest)
            enabled |= StepDownEnabled;
        return enabled;
    }

private:
    static constexpr int kSmallest = 1;
    static constexpr int kLargest = 7;
    // The number typed, or one below the smallest when there is none, so that Up gives 1.
    int current() const
    {
        const cVariant typed(text().trimmed());
        if (!typed.isNumeric())
            return kSmallest - 1;
        const double number = typed.toDouble();
        return number < kSmallest ? kSmallest - 1 : number > kLargest ? kLargest + 1 : static_cast<int>(number);
    }
};

namespace {

const char* const kTag = "tag";

// The four frames of like rows: caption, the text colour label, and the attribute numbers of the
// text colour, back colour and size.
struct RowFrame {
    const char16_t* caption;
    const char16_t* textLabel;
    const char16_t* sizeLabel;
    ReportAttribute text, back, size;
};
constexpr std::array<RowFrame, 4> kRowFrames = {{
    {u"Heading Formating", u"Text Color:", u"Text Size:", ReportAttribute::HeadingTextColor,
     ReportAttribute::HeadingBackColor, ReportAttribute::HeadingTextSize},
    {u"Data Formating (Odd Rows)", u"Text Color:", u"Text Size:", ReportAttribute::OddRowTextColor,
     ReportAttribute::OddRowBackColor, ReportAttribute::OddRowTextSize},
    {u"Data Formating (Even Rows)", u"Text Color:", u"Text Size:", ReportAttribute::EvenRowTextColor,
     ReportAttribute::EvenRowBackColor, ReportAttribute::EvenRowTextSize},
    {u"Report Formating", u"Title Color:", u"Title Size:", ReportAttribute::TitleTextColor,
     ReportAttribute::BackColor, ReportAttribute::TitleTextSize},
}};

// The order the rows are written in: text colours, back colours, sizes, border, spacing,
// padding, the three link colours, the two images, the two flags.
constexpr std::array<int16_t, 22> kWriteOrder = {1, 3, 5, 7, 2, 4, 6, 8, 12, 13, 14, 15, 9, 10, 11,
                                                 16, 17, 18, 19, 20, 21, 22};

int16_t number(ReportAttribute attribute)
{
    return static_cast<int16_t>(attribute);
}

// A control of an array, named as its array element: "cmbTextColor(0)".
QString arrayName(const char16_t* name, int index)
{
    return QString::fromUtf16(name) + u'(' + QString::number(index) + u')';
}

QLabel* caption(QWidget* parent, const QString& text, QWidget* buddy)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(buddy);
    return label;
}

// A small square of the colour in front of its name; colours without a code get none.
QIcon swatch(const QString& code)
{
    const QColor color = QColor::fromString(code);
    if (!color.isValid())
        return {};
    QPixmap picture(14, 14);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(color);
    painter.drawRect(0, 0, 13, 13);
    return QIcon(picture);
}

QString fieldText(const QWidget* field)
{
    if (const auto* box = dynamic_cast<const cSizeBox*>(field))
        return box->text();
    if (const auto* edit = qobject_cast<const QLineEdit*>(field))
        return edit->text();
    return {};
}

void setFieldText(QWidget* field, const QString& text)
{
    if (auto* box = dynamic_cast<cSizeBox*>(field))
        box->setSizeText(text);
    else if (auto* edit = qobject_cast<QLineEdit*>(field))
        edit->setText(text);
}

} // namespace

cReportFormatTab::cReportFormatTab(QWidget* parent)
    : QWidget(parent)
{
    auto* frames = new QGridLayout;
    for (int row = 0; row < int(kRowFrames.size()); ++row)
        frames->addWidget(buildRowFrame(row), row / 2, row % 2);
    frames->addWidget(buildStyleFrame(), 2, 0);
    frames->addWidget(buildLinksFrame(), 2, 1);
    frames->setColumnStretch(0, 1);
    frames->setColumnStretch(1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(frames);
    layout->addWidget(buildImagesAndFlags());
    layout->addStretch();
    orderEntries();
}

cReportFormatTab::~cReportFormatTab() = default;

QWidget* cReportFormatTab::buildRowFrame(int row)
{
    const RowFrame& frame = kRowFrames[size_t(row)];
    auto* box = new QGroupBox(QString::fromUtf16(frame.caption), this);
    auto* grid = new QGridLayout(box);
    QComboBox* text =
        addColor(box, arrayName(u"cmbTextColor", row), arrayName(u"ChkTextColor", row), number(frame.text));
    QCheckBox* textDefault = m_entries.back().defaultBox;
    QComboBox* back =
        addColor(box, arrayName(u"cmbBackColor", row), arrayName(u"chkBackColor", row), number(frame.back));
    QCheckBox* backDefault = m_entries.back().defaultBox;
    auto* size = new cSizeBox(box);
    size->setObjectName(arrayName(u"txtTextSize", row));
    addField(size, Kind::Size, number(frame.size));

    grid->addWidget(caption(box, QString::fromUtf16(frame.textLabel), text), 0, 0);
    grid->addWidget(text, 0, 1);
    grid->addWidget(textDefault, 0, 2);
    grid->addWidget(caption(box, u"Back Color:"_s, back), 1, 0);
    grid->addWidget(back, 1, 1);
    grid->addWidget(backDefault, 1, 2);
    grid->addWidget(caption(box, QString::fromUtf16(frame.sizeLabel), size), 2, 0);
    grid->addWidget(size, 2, 1, Qt::AlignLeft);
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* cReportFormatTab::buildStyleFrame()
{
    auto* box = new QGroupBox(u"Style Formating"_s, this);
    auto* grid = new QGridLayout(box);
    const struct {
        const char16_t* name;
        const char16_t* label;
        ReportAttribute attribute;
    } fields[] = {
        {u"txtBorderSize", u"Border Size:", ReportAttribute::BorderSize},
        {u"txtCellSpacing", u"Cell Spacing:", ReportAttribute::CellSpacing},
        {u"txtCellPadding", u"Cell Padding", ReportAttribute::CellPadding},
    };
    int row = 0;
    for (const auto& field : fields) {
        auto* edit = new QLineEdit(box);
        edit->setObjectName(QString::fromUtf16(field.name));
        edit->setAlignment(Qt::AlignRight);
        edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance(u"00000"_s) + 16);
        addField(edit, Kind::Spacing, number(field.attribute));
        grid->addWidget(caption(box, QString::fromUtf16(field.label), edit), row, 0);
        grid->addWidget(edit, row, 1, Qt::AlignLeft);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* cReportFormatTab::buildLinksFrame()
{
    auto* box = new QGroupBox(u"Links"_s, this);
    auto* grid = new QGridLayout(box);
    const struct {
        const char16_t* name;
        const char16_t* label;
        ReportAttribute attribute;
    } links[] = {
        {u"LinkColor", u"Color:", ReportAttribute::LinkColor},
        {u"VisitedLinkColor", u"Visited Color:", ReportAttribute::VisitedLinkColor},
        {u"HoverLinkColor", u"Hover Color:", ReportAttribute::HoverLinkColor},
    };
    int row = 0;
    for (const auto& link : links) {
        const QString name = QString::fromUtf16(link.name);
        QComboBox* combo = addColor(box, u"cmb"_s + name, u"chk"_s + name, number(link.attribute));
        grid->addWidget(caption(box, QString::fromUtf16(link.label), combo), row, 0);
        grid->addWidget(combo, row, 1);
        grid->addWidget(m_entries.back().defaultBox, row, 2);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* cReportFormatTab::buildImagesAndFlags()
{
    auto* area = new QWidget(this);
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins(0, 4, 0, 0);
    auto image = [this, area](const QString& name, ReportAttribute attribute) {
        auto* edit = new QLineEdit(area);
        edit->setObjectName(name);
        addField(edit, Kind::Image, number(attribute));
        return edit;
    };
    QLineEdit* header = image(u"txtHeaderImage"_s, ReportAttribute::HeaderImage);
    QLineEdit* background = image(u"txtBackgroundImage"_s, ReportAttribute::BackgroundImage);
    grid->addWidget(caption(area, u"Header Image:"_s, header), 0, 0);
    grid->addWidget(header, 0, 1);
    grid->addWidget(caption(area, u"Background Image:"_s, background), 1, 0);
    grid->addWidget(background, 1, 1);

    auto flag = [this, area](const QString& name, const QString& text, ReportAttribute attribute) {
        auto* box = new QCheckBox(text, area);
        box->setObjectName(name);
        addField(box, Kind::Flag, number(attribute));
        return box;
    };
    auto* flags = new QHBoxLayout;
    flags->addWidget(flag(u"chkActiveDriversOnly"_s, u"Include active cars/drivers Only?"_s,
                          ReportAttribute::IncludeActiveOnly));
    flags->addSpacing(24);
    flags->addWidget(flag(u"chkIncludeFooter"_s, u"Include Footer?"_s, ReportAttribute::IncludeFooter));
    flags->addStretch();
    grid->addLayout(flags, 2, 1);
    grid->setColumnStretch(1, 1);
    return area;
}

// A colour list and its "Default" box, linked: ticking the box clears the list's choice, and
// choosing a colour unticks the box.
QComboBox* cReportFormatTab::addColor(QWidget* parent, const QString& comboName, const QString& boxName,
                                      int16_t attribute)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(comboName);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(11);
    auto* box = new QCheckBox(u"Default"_s, parent);
    box->setObjectName(boxName);
    addField(combo, Kind::Color, attribute);
    m_entries.back().defaultBox = box;
    tag(box, attribute);

    connect(box, &QCheckBox::toggled, this, [this, combo](bool ticked) {
        if (ticked)
            combo->setCurrentIndex(-1);
        notifyChange();
    });
    connect(combo, &QComboBox::currentIndexChanged, this, [this, box](int index) {
        if (index >= 0)
            box->setChecked(false);
        notifyChange();
    });
    return combo;
}

QWidget* cReportFormatTab::addField(QWidget* field, Kind kind, int16_t attribute)
{
    tag(field, attribute);
    m_entries.push_back({attribute, kind, field, nullptr});
    if (auto* size = dynamic_cast<cSizeBox*>(field))
        connect(size->edit(), &QLineEdit::textChanged, this, &cReportFormatTab::notifyChange);
    else if (auto* edit = qobject_cast<QLineEdit*>(field))
        connect(edit, &QLineEdit::textChanged, this, &cReportFormatTab::notifyChange);
    else if (auto* check = qobject_cast<QCheckBox*>(field))
        connect(check, &QCheckBox::toggled, this, &cReportFormatTab::notifyChange);
    return field;
}

void cReportFormatTab::tag(QWidget* control, int16_t attribute)
{
    control->setProperty(kTag, int(attribute));
}

void cReportFormatTab::orderEntries()
{
    auto rank = [](const Entry& entry) {
        return std::find(kWriteOrder.begin(), kWriteOrder.end(), entry.attribute) - kWriteOrder.begin();
    };
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [&rank](const Entry& a, const Entry& b) { return rank(a) < rank(b); });
}

void cReportFormatTab::notifyChange()
{
    if (!m_filling)
        emit changed();
}

void cReportFormatTab::fillColors()
{
    cColorCollection colors;
    colors.loadNoDefault();
    for (const Entry& entry : m_entries) {
        if (entry.kind != Kind::Color)
            continue;
        auto* combo = static_cast<QComboBox*>(entry.field);
        combo->clear();
        for (const cColor& color : colors)
            combo->addItem(swatch(color.ColorCd()), color.ColorName(), int(color.ColorNmbr()));
    }
    m_colorsLoaded = true;
}

void cReportFormatTab::showReport(int16_t reportNmbr)
{
    m_filling = true;
    if (!m_colorsLoaded)
        fillColors();
    cReportAttributesCollection attributes;
    attributes.load(reportNmbr);
    clearControls();
    for (const cReportAttributes& attribute : attributes)
        setFrom(attribute);
    m_filling = false;
}

void cReportFormatTab::clearControls()
{
    for (const Entry& entry : m_entries) {
        if (auto* combo = qobject_cast<QComboBox*>(entry.field))
            combo->setCurrentIndex(-1);
        else if (auto* check = qobject_cast<QCheckBox*>(entry.field))
            check->setChecked(false);
        else
            setFieldText(entry.field, {});
        if (entry.defaultBox)
            entry.defaultBox->setChecked(false);
    }
}

// Sets the control whose tag is the row's attribute number.
void cReportFormatTab::setFrom(const cReportAttributes& attribute)
{
    for (const Entry& entry : m_entries) {
        if (entry.field->property(kTag).toInt() != attribute.attributeNmbr())
            continue;
        switch (entry.kind) {
        case Kind::Color: {
            auto* combo = static_cast<QComboBox*>(entry.field);
            if (attribute.isDefault()) {
                entry.defaultBox->setChecked(true);
                combo->setCurrentIndex(-1);
            } else {
                combo->setCurrentIndex(combo->findData(int(attribute.value())));
                entry.defaultBox->setChecked(false);
            }
            break;
        }
        case Kind::Size:
        case Kind::Spacing:
            setFieldText(entry.field, QString::number(attribute.value()));
            break;
        case Kind::Image:
            setFieldText(entry.field, attribute.text());
            break;
        case Kind::Flag:
            static_cast<QCheckBox*>(entry.field)->setChecked(attribute.value() == 1);
            break;
        }
    }
}

bool cReportFormatTab::saveReport(int16_t reportNmbr)
{
    if (reportNmbr < 1) {
        messageBox(u"No report selected"_s, u"Lapkeeper"_s, Icon::Critical);
        return false;
    }
    // A number too large for its column is the run-time error "Overflow", shown in its box; the
    // transaction then has undone what was written.
    return runTrapped([this, reportNmbr] { return writeRows(reportNmbr); });
}

// The old rows are deleted and the new ones inserted in one transaction, so a row that fails (a
// single quote in an image path breaks its statement) leaves the report with its old look.
bool cReportFormatTab::writeRows(int16_t reportNmbr)
{
    for (const Entry& entry : m_entries) {
        if (entry.kind == Kind::Size || entry.kind == Kind::Spacing) {
            if (!cVariant(fieldText(entry.field)).isNumeric())
                setFieldText(entry.field, entry.kind == Kind::Size ? u"1"_s : u"0"_s);
        }
    }
    cTransaction transaction;
    cReportAttributesCollection old;
    if (!old.Delete(reportNmbr))
        return false;
    for (const Entry& entry : m_entries) {
        cReportAttributes row;
        row.setReportNmbr(reportNmbr);
        row.setAttributeNmbr(entry.attribute);
        switch (entry.kind) {
        case Kind::Color: {
            const auto* combo = static_cast<const QComboBox*>(entry.field);
            if (combo->currentIndex() >= 0)
                row.setValue(static_cast<int16_t>(combo->currentData().toInt()));
            else
                row.setDefault();
            break;
        }
        case Kind::Size:
        case Kind::Spacing:
            row.setValue(cVariant(fieldText(entry.field)).toInt16());
            break;
        case Kind::Image:
            row.setText(fieldText(entry.field));
            break;
        case Kind::Flag:
            row.setValue(static_cast<const QCheckBox*>(entry.field)->isChecked() ? 1 : 0);
            break;
        }
        if (!row.insertRow())
            return false;
    }
    return transaction.commit();
}
