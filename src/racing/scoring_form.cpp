#include "racing/scoring_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "racing/scoring_field_rules.h"
#include "racing/scoring_method.h"
#include "racing/scoring_rows_tab.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

bool isBlankText(const QString& text)
{
    return text.trimmed().isEmpty();
}

const QString kTitle = u"Lapkeeper"_s;
const QString kCaption = u"Scoring - "_s;

} // namespace

frmScoring::frmScoring(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmScoring"_s);
    setWindowTitle(kCaption);

    m_rules = new cScoringFieldRules(this);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    auto* methodPage = new QWidget(SSTab1);
    buildMethodTab(methodPage);
    SSTab1->addTab(methodPage, u"Scoring Method"_s);

    m_placeTab = new cScoringRowsTab(cScoringRowsTab::Kind::Place, *m_rules, SSTab1);
    SSTab1->addTab(m_placeTab, u"Scoring per Place"_s);
    m_topTab = new cScoringRowsTab(cScoringRowsTab::Kind::Top, *m_rules, SSTab1);
    SSTab1->addTab(m_topTab, u"Top Scoring"_s);

    const cButtonRow buttons = makeButtonRow(this, {.okName = u"cmdOk"_s});
    cmdOk = buttons.ok;
    cmdCancel = buttons.cancel;
    cmdApply = buttons.apply;
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(buttons.layout);

    connect(cmdOk, &QPushButton::clicked, this, &frmScoring::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmScoring::reject);
    connect(cmdApply, &QPushButton::clicked, this, &frmScoring::applyClicked);
    connect(m_placeTab->clearButton(), &QPushButton::clicked, this,
            [this] { clearRowsClicked(m_placeTab, m_pointsChanged); });
    connect(m_topTab->clearButton(), &QPushButton::clicked, this, [this] { clearRowsClicked(m_topTab, m_topChanged); });
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmScoring::tabChanged);
    connect(m_placeTab, &cScoringRowsTab::edited, this, [this] { markChanged(kPlaceTab); });
    connect(m_topTab, &cScoringRowsTab::edited, this, [this] { markChanged(kTopTab); });
}

frmScoring::~frmScoring()
{
    // The controls outlive this part of the screen while the dialog tears them down: neither
    // their rules nor their signals may reach it any more.
    m_rules->removeAll();
    for (QObject* control : findChildren<QObject*>())
        disconnect(control, nullptr, this, nullptr);
}

void frmScoring::buildMethodTab(QWidget* page)
{
    auto line = [page](const QString& name) {
        auto* edit = new QLineEdit(page);
        edit->setObjectName(name);
        selectTextOnFocus(edit);
        return edit;
    };
    txtScoringTypeName = line(u"txtScoringTypeName"_s);
    txtLapsLedBonus = line(u"txtLapsLedBonus"_s);
    txtMostLapsLedBonus = line(u"txtMostLapsLedBonus"_s);
    txtFastQualBonus = line(u"txtFastQualBonus"_s);

    auto* grid = new QGridLayout(page);
    auto row = [grid, page](int at, QLineEdit* field, const QString& caption, bool amount) {
        auto* label = new QLabel(caption, page);
        label->setBuddy(field);
        grid->addWidget(label, at, 0);
        if (amount) {
            field->setAlignment(Qt::AlignRight);
            field->setMaximumWidth(field->fontMetrics().horizontalAdvance(u"0"_s) * 10);
        }
        grid->addWidget(field, at, 1, Qt::AlignLeft);
    };
    row(0, txtScoringTypeName, u"Name:"_s, false);
    row(1, txtLapsLedBonus, u"Lap Led Bonus:"_s, true);
    row(2, txtMostLapsLedBonus, u"Most Laps Led Bonus:"_s, true);
    row(3, txtFastQualBonus, u"Fastest Qualifer Bonus: (Not necessarily Pole)"_s, true);
    txtScoringTypeName->setMinimumWidth(txtScoringTypeName->fontMetrics().horizontalAdvance(u"0"_s) * 30);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);

    connect(txtScoringTypeName, &QLineEdit::textChanged, this, &frmScoring::nameChanged);
    for (QLineEdit* bonus : {txtLapsLedBonus, txtMostLapsLedBonus, txtFastQualBonus})
        connect(bonus, &QLineEdit::textChanged, this, [this] { markChanged(kMethodTab); });
    m_rules->installBonus(txtLapsLedBonus, [this](int16_t bonus) { storeBonus(&cScoringType::setLapsLedBonus, bonus); });
    m_rules->installBonus(txtMostLapsLedBonus,
                          [this](int16_t bonus) { storeBonus(&cScoringType::setMostLapsLedBonus, bonus); });
    m_rules->installBonus(txtFastQualBonus, [this](int16_t bonus) { storeBonus(&cScoringType::setFastQualBonus, bonus); });
}

void frmScoring::fill(cScoringType& method)
{
    m_filling = true;
    m_method = &method;
    txtScoringTypeName->setText(method.scoringTypeName());
    txtLapsLedBonus->setText(QString::number(method.lapsLedBonus()));
    txtMostLapsLedBonus->setText(QString::number(method.mostLapsLedBonus()));
    txtFastQualBonus->setText(QString::number(method.fastQualBonus()));
    setWindowTitle(kCaption + method.scoringTypeName());
    SSTab1->setCurrentIndex(kMethodTab);
    m_currentTab = kMethodTab;
    m_placeTab->reset();
    m_topTab->reset();
    m_methodChanged = false;
    m_pointsChanged = false;
    m_topChanged = false;
    m_rules->reset();
    cmdApply->setEnabled(false);
    m_filling = false;
}

void frmScoring::showWith(cScoringType& method)
{
    fill(method);
    exec();
}

bool frmScoring::active() const
{
    return m_method && isVisible() && !m_filling;
}

void frmScoring::markChanged(Tab tab)
{
    if (!active())
        return;
    (tab == kMethodTab ? m_methodChanged : tab == kPlaceTab ? m_pointsChanged : m_topChanged) = true;
    cmdApply->setEnabled(true);
}

void frmScoring::updateApply()
{
    cmdApply->setEnabled(m_methodChanged || m_pointsChanged || m_topChanged);
}

void frmScoring::nameChanged(const QString& text)
{
    if (!active())
        return;
    m_method->setScoringTypeName(text);
    setWindowTitle(kCaption + text);
    markChanged(kMethodTab);
}

// ---------------------------------------------------------------- field rules on leaving

void frmScoring::storeBonus(void (cScoringType::*store)(int16_t), int16_t bonus)
{
    if (!m_method)
        return;
    (m_method->*store)(bonus);
    markChanged(kMethodTab);
}

// ---------------------------------------------------------------- tabs

void frmScoring::tabChanged(int index)
{
    if (!active()) {
        if (!m_filling)
            m_currentTab = index;
        return;
    }
    const Tab left = static_cast<Tab>(m_currentTab);
    // Hiding the page moved the focus off a field whose rule refused it: the page stays.
    if (QLineEdit* field = m_rules->refusedField(); field && SSTab1->widget(left)->isAncestorOf(field)) {
        keepTab(left);
        field->setFocus(Qt::OtherFocusReason);
        return;
    }
    // Leaving a field by the tab bar runs its rule first, as any other way of leaving it does.
    if (!m_rules->validatePendingField()) {
        QLineEdit* field = m_rules->refusedField();
        keepTab(left);
        if (field)
            field->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (!leaveTab(left)) {
        keepTab(left);
        return;
    }
    m_currentTab = index;
    cScoringRowsTab* entered = index == kPlaceTab ? m_placeTab : index == kTopTab ? m_topTab : nullptr;
    if (entered && !entered->loaded()) {
        const bool filling = m_filling;
        m_filling = true;
        entered->load(m_method->scoringTypeNmbr());
        m_filling = filling;
    }
}

bool frmScoring::leaveTab(Tab tab)
{
    switch (tab) {
    case kMethodTab:
        if (isBlankText(m_method->scoringTypeName())) {
            messageBox(u"Name is a required field"_s, kTitle, Icon::Critical);
            return false;
        }
        if (m_methodChanged) {
            if (!saveScoringMethod())
                return false;
            m_methodChanged = false;
        }
        break;
    case kPlaceTab:
        if (m_pointsChanged) {
            if (!saveScoringRows())
                return false;
            m_pointsChanged = false;
        }
        break;
    case kTopTab:
        if (m_topChanged) {
            if (!saveTopScoringRows())
                return false;
            m_topChanged = false;
        }
        break;
    }
    updateApply();
    return true;
}

void frmScoring::keepTab(Tab tab)
{
    m_filling = true;
    SSTab1->setCurrentIndex(tab);
    m_filling = false;
    if (tab == kMethodTab)
        txtScoringTypeName->setFocus(Qt::OtherFocusReason);
}

// ---------------------------------------------------------------- saving

bool frmScoring::saveScoringMethod()
{
    if (isBlankText(m_method->scoringTypeName())) {
        messageBox(u"Scoring Name is a required field"_s, kTitle, Icon::Critical);
        if (SSTab1->currentIndex() == kMethodTab)
            txtScoringTypeName->setFocus(Qt::OtherFocusReason);
        return false;
    }
    return m_method->CommitChanges();
}

bool frmScoring::saveScoringRows()
{
    return m_placeTab->save(m_method->scoringTypeNmbr());
}

bool frmScoring::saveTopScoringRows()
{
    return m_topTab->save(m_method->scoringTypeNmbr());
}

void frmScoring::addScoringRow()
{
    m_placeTab->addRow();
}

void frmScoring::addTopScoringRow()
{
    m_topTab->addRow();
}

// Saves the method and then its unsaved per-place rows; with the method saved, the per-place
// rows alone; else the top rows. Unsaved top rows wait while either of the others is saved.
bool frmScoring::saveScoringForm()
{
    if (!m_method)
        return false;
    if (m_methodChanged) {
        if (!saveScoringMethod())
            return false;
        m_methodChanged = false;
        if (m_pointsChanged) {
            if (!saveScoringRows())
                return false;
            m_pointsChanged = false;
        }
    } else if (m_pointsChanged) {
        if (!saveScoringRows())
            return false;
        m_pointsChanged = false;
    } else if (m_topChanged) {
        if (!saveTopScoringRows())
            return false;
        m_topChanged = false;
    }
    cmdApply->setEnabled(false);
    return true;
}

void frmScoring::applyClicked()
{
    if (m_rules->swallow(cmdApply) || !m_rules->validatePendingField())
        return;
    saveScoringForm();
}

void frmScoring::okClicked()
{
    if (m_rules->swallow(cmdOk) || !m_rules->validatePendingField())
        return;
    if (cmdApply->isEnabled() && !saveScoringForm())
        return;
    accept();
}

void frmScoring::reject()
{
    const bool changed = m_method && (m_methodChanged || m_pointsChanged);
    if (cancelClosesScreen(changed, changed ? m_method->scoringTypeName() : QString(),
                           [this] { return m_rules->validatePendingField() && saveScoringForm(); },
                           YesOnCancel::SaveAndCloseIfSaved))
        QDialog::reject();
}

void frmScoring::clearRowsClicked(cScoringRowsTab* tab, bool& changed)
{
    if (m_rules->swallow(tab->clearButton()) || !m_method)
        return;
    m_filling = true;
    const bool cleared = tab->clear(*m_method);
    m_filling = false;
    if (!cleared)
        return;
    changed = false;
    updateApply();
}
