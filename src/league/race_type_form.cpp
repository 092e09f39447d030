#include "league/race_type_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "league/race_type.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmRaceType::frmRaceType(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmRaceType"_s);
    setWindowTitle(u"Race Type - "_s);

    txtName = new QLineEdit(this);
    txtName->setObjectName(u"txtName"_s);
    selectTextOnFocus(txtName);
    auto* form = new QFormLayout;
    form->addRow(u"Name:"_s, txtName);

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
                                 {[this] { return saveRaceType(); },
                                  [this] { return m_raceType->raceTypeName(); },
                                  [this] { QDialog::accept(); }});
    connect(txtName, &QLineEdit::textChanged, this, &frmRaceType::nameChanged);
    connect(cmdApply, &QPushButton::clicked, this, [this] { m_detail->apply(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { m_detail->ok(); });
    connect(cmdCancel, &QPushButton::clicked, this, &frmRaceType::reject);
}

frmRaceType::~frmRaceType() = default;

void frmRaceType::fill(cRaceType& raceType)
{
    m_raceType = &raceType;
    txtName->setText(raceType.raceTypeName());
    setWindowTitle(u"Race Type - "_s + raceType.raceTypeName());
    m_detail->markSaved();
}

void frmRaceType::showWith(cRaceType& raceType)
{
    fill(raceType);
    exec();
}

void frmRaceType::nameChanged(const QString& text)
{
    if (!isVisible())
        return;
    m_raceType->setRaceTypeName(text);
    m_detail->markChanged();
}

bool frmRaceType::saveRaceType()
{
    if (txtName->text().trimmed().isEmpty()) {
        return refuseField(u"Name is a required field"_s, txtName);
    }
    return m_raceType->CommitChanges();
}

// Cancel, Escape and the close box: Yes saves and closes whatever the result.
void frmRaceType::reject()
{
    if (m_raceType)
        m_detail->cancel();
    else
        QDialog::reject();
}
