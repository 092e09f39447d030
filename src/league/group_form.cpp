#include "league/group_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/group.h"
#include "store/variant.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
// The limit typed, when it is a number that fits the column.
std::optional<int16_t> typedLimit(const QString& text)
{
    const cVariant typed(text);
    if (!typed.isNumeric())
        return std::nullopt;
    try {
        return typed.toInt16();
    } catch (const cRuntimeError&) {
        return std::nullopt;
    }
}
} // namespace

frmGroup::frmGroup(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmGroup"_s);
    setWindowTitle(u"Group - "_s);

    txtName = new QLineEdit(this);
    txtName->setObjectName(u"txtName"_s);
    selectTextOnFocus(txtName);
    txtMaxNmbr = new QLineEdit(this);
    txtMaxNmbr->setObjectName(u"txtMaxNmbr"_s);
    txtMaxNmbr->setAlignment(Qt::AlignRight);
    txtMaxNmbr->setMaximumWidth(80);
    selectTextOnFocus(txtMaxNmbr);
    chkNoLimit = new QCheckBox(u"No Limit"_s, this);
    chkNoLimit->setObjectName(u"chkNoLimit"_s);

    auto* limit = new QHBoxLayout;
    limit->addWidget(txtMaxNmbr);
    limit->addWidget(chkNoLimit);
    limit->addStretch();
    auto* form = new QFormLayout;
    form->addRow(u"Name:"_s, txtName);
    form->addRow(u"Cars/drivers in group:"_s, limit);

    const cButtonRow buttons = makeButtonRow(this);
    cmdOK = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addLayout(buttons.layout);
    setMinimumWidth(340);

    m_detail = new cDetailScreen(this, cmdApply,
                                 {[this] { return saveGroup(); }, [this] { return m_group->groupName(); },
                                  [this] { QDialog::accept(); }});
    connect(txtName, &QLineEdit::textChanged, this, &frmGroup::nameChanged);
    connect(chkNoLimit, &QCheckBox::clicked, this, &frmGroup::noLimitClicked);
    connect(txtMaxNmbr, &QLineEdit::textChanged, this, &frmGroup::maxNmbrChanged);
    connect(cmdApply, &QPushButton::clicked, this, [this] { m_detail->apply(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { m_detail->ok(); });
    connect(cmdCancel, &QPushButton::clicked, this, &frmGroup::reject);
    cValidateOnLeave::install(txtMaxNmbr, [this] { return maxNmbrLeft(); });
}

frmGroup::~frmGroup() = default;

// The limit fields mark the screen changed even now: Apply is enabled from the start.
void frmGroup::fill(cGroup& group)
{
    m_group = &group;
    m_detail->markSaved();
    txtName->setText(group.groupName());
    setWindowTitle(u"Group - "_s + group.groupName());
    if (group.maxNmbr() < 0) {
        txtMaxNmbr->setText(QString());
        chkNoLimit->setChecked(true);
        noLimitClicked();
    } else {
        chkNoLimit->setChecked(false);
        txtMaxNmbr->setText(QString::number(group.maxNmbr()));
    }
    m_detail->markChanged(true);
}

void frmGroup::showWith(cGroup& group)
{
    fill(group);
    exec();
}

void frmGroup::nameChanged(const QString& text)
{
    if (!isVisible())
        return;
    m_group->setGroupName(text);
    m_detail->markChanged();
}

void frmGroup::noLimitClicked()
{
    if (chkNoLimit->isChecked()) {
        txtMaxNmbr->setText(QString());
        m_group->setMaxNmbr(-1);
    } else {
        txtMaxNmbr->setText(u"1"_s);
        m_group->setMaxNmbr(1);
    }
    m_detail->markChanged(true);
}

// Any number is taken as it stands; a negative one behaves as no limit.
void frmGroup::maxNmbrChanged(const QString& text)
{
    if (!m_group)
        return;
    if (const auto limit = typedLimit(text)) {
        chkNoLimit->setChecked(false);
        m_group->setMaxNmbr(*limit);
    }
    m_detail->markChanged(true);
}

bool frmGroup::maxNmbrLeft()
{
    const QString text = txtMaxNmbr->text();
    if (text.trimmed().isEmpty()) {
        chkNoLimit->setChecked(true);
        noLimitClicked();
        return true;
    }
    if (typedLimit(text))
        return true;
    messageBox(u"Invalid Entry"_s, u"Lapkeeper"_s, Icon::Critical);
    txtMaxNmbr->setText(QString());
    m_detail->markChanged(true);
    return false;
}

bool frmGroup::saveGroup()
{
    if (txtName->text().trimmed().isEmpty()) {
        return refuseField(u"Name is a required field"_s, txtName);
    }
    return m_group->CommitChanges();
}

// Cancel, Escape and the close box: Yes saves and closes whatever the result.
void frmGroup::reject()
{
    if (m_group)
        m_detail->cancel();
    else
        QDialog::reject();
}
