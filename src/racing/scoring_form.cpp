#include "racing/scoring_form.h"
#include "base/detail_screen.h"
#include "base/messages.h"
#include "base/run_trapped.h"
#include "base/runtime_error.h"
#include "racing/scoring_grid_form.h"
#include "racing/scoring_method.h"
#include "store/variant.h"

#include <QApplication>
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
const QString kHint = u"Select the enter key to add a new row."_s;

} // namespace

frmScoring::frmScoring(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmScoring"_s);
    setWindowTitle(kCaption);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    auto* methodPage = new QWidget(SSTab1);
    buildMethodTab(methodPage);
    SSTab1->addTab(methodPage, u"Scoring Method"_s);

    auto* placePage = new QWidget(SSTab1);
    m_placeGrid = new cScoringGrid({{{u"txtPlace"_s, u"Place"_s},
                                     {u"txtPoints"_s, u"Finishing Points"_s},
                                     {u"txtQualPoints"_s, u"Starting Points"_s}}},
                                   {}, u"VScroll1"_s, placePage);
    cmdClearScoring = new QPushButton(u"Clear Scoring"_s, placePage);
    cmdClearScoring->setObjectName(u"cmdClearScoring"_s);
    SSTab1->addTab(buildGridTab(placePage, m_placeGrid, cmdClearScoring), u"Scoring per Place"_s);

    auto* topPage = new QWidget(SSTab1);
    m_topGrid = new cScoringGrid({{{u"txtGroupNmbr"_s, u"Number"_s},
                                   {u"TxtGroupTop"_s, u"Place"_s},
                                   {u"txtGroupPoints"_s, u"Points"_s}}},
                                 {{{u"lblInTop"_s, u"In top"_s}, {u"lblEqual"_s, u"="_s}}}, u"VScroll2"_s, topPage);
    cmdClearTopScoring = new QPushButton(u"Clear Scoring"_s, topPage);
    cmdClearTopScoring->setObjectName(u"cmdClearTopScoring"_s);
    SSTab1->addTab(buildGridTab(topPage, m_topGrid, cmdClearTopScoring), u"Top Scoring"_s);

    cmdOk = new QPushButton(u"&OK"_s, this);
    cmdOk->setObjectName(u"cmdOk"_s);
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(u"&Cancel"_s, this);
    cmdCancel->setObjectName(u"cmdCancel"_s);
    cmdCancel->setAutoDefault(false);
    // Cancel takes no focus from a click, so an unfinished field does not stand in its way.
    cmdCancel->setFocusPolicy(Qt::TabFocus);
    cmdApply = new QPushButton(u"&Apply"_s, this);
    cmdApply->setObjectName(u"cmdApply"_s);
    cmdApply->setAutoDefault(false);
    cmdApply->setEnabled(false);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdApply);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(buttons);

    connect(cmdOk, &QPushButton::clicked, this, &frmScoring::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmScoring::reject);
    connect(cmdApply, &QPushButton::clicked, this, &frmScoring::applyClicked);
    connect(cmdClearScoring, &QPushButton::clicked, this, &frmScoring::clearScoringClicked);
    connect(cmdClearTopScoring, &QPushButton::clicked, this, &frmScoring::clearTopScoringClicked);
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmScoring::tabChanged);

    connect(m_placeGrid, &cScoringGrid::rowCreated, this, &frmScoring::placeRowCreated);
    connect(m_topGrid, &cScoringGrid::rowCreated, this, &frmScoring::topRowCreated);
    connect(m_placeGrid, &cScoringGrid::edited, this, [this] { markChanged(kPlaceTab); });
    connect(m_topGrid, &cScoringGrid::edited, this, [this] { markChanged(kTopTab); });
    connect(m_placeGrid, &cScoringGrid::enterPressed, this, [this](int row, int) { gridEnter(m_placeGrid, row); });
    connect(m_topGrid, &cScoringGrid::enterPressed, this, [this](int row, int) { gridEnter(m_topGrid, row); });
}

frmScoring::~frmScoring()
{
    // The controls outlive this part of the screen while the dialog tears them down: neither
    // their rules nor their signals may reach it any more.
    for (cValidateOnLeave* check : std::as_const(m_checks))
        delete check;
    m_checks.clear();
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
    installCheck(txtLapsLedBonus, [](frmScoring* s, QLineEdit* f) {
        return s->checkBonus(f, &cScoringType::setLapsLedBonus);
    });
    installCheck(txtMostLapsLedBonus, [](frmScoring* s, QLineEdit* f) {
        return s->checkBonus(f, &cScoringType::setMostLapsLedBonus);
    });
    installCheck(txtFastQualBonus, [](frmScoring* s, QLineEdit* f) {
        return s->checkBonus(f, &cScoringType::setFastQualBonus);
    });
}

QWidget* frmScoring::buildGridTab(QWidget* page, cScoringGrid* grid, QPushButton* clear)
{
    clear->setAutoDefault(false);
    auto* hint = new QLabel(kHint, page);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(hint, 1);
    bottom->addWidget(clear);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(grid);
    layout->addStretch();
    layout->addLayout(bottom);
    return page;
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
    clearGrid(m_placeGrid);
    clearGrid(m_topGrid);
    m_pointsLoaded = false;
    m_topLoaded = false;
    m_methodChanged = false;
    m_pointsChanged = false;
    m_topChanged = false;
    m_refusedField = nullptr;
    m_refusedClick.clear();
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

void frmScoring::installCheck(QLineEdit* field, FieldCheck check)
{
    m_checks.insert(field, cValidateOnLeave::install(field, [this, field, check] { return check(this, field); }));
}

bool frmScoring::invalidEntry(QLineEdit* field)
{
    m_refusedClick.note();
    m_refusedField = field;
    messageBox(u"Invalid Entry"_s, kTitle, Icon::Critical);
    field->clear();
    return false;
}

// Place, number of cars, top places and top points: blank, or a number not below 0.
bool frmScoring::checkWholeOrBlank(QLineEdit* field)
{
    m_refusedField = nullptr;
    m_refusedClick.clear();
    const QString text = field->text();
    if (isBlankText(text))
        return true;
    const cVariant typed(text.trimmed());
    if (!typed.isNumeric() || typed.toDouble() < 0)
        return invalidEntry(field);
    return true;
}

// Points may be negative, as a low-score method needs; blank stands for 0.
bool frmScoring::checkSignedNumber(QLineEdit* field)
{
    m_refusedField = nullptr;
    m_refusedClick.clear();
    if (isBlankText(field->text())) {
        field->setText(u"0"_s);
        return true;
    }
    if (!cVariant(field->text().trimmed()).isNumeric())
        return invalidEntry(field);
    return true;
}

bool frmScoring::checkBonus(QLineEdit* field, void (cScoringType::*store)(int16_t))
{
    if (!checkSignedNumber(field))
        return false;
    if (!m_method)
        return true;
    int16_t bonus = 0;
    // A bonus beyond 16 bits is the run-time error of the conversion; the value stays for correction.
    if (!runTrapped([&] {
            bonus = cVariant(field->text().trimmed()).toInt16();
            return true;
        })) {
        m_refusedClick.note();
        m_refusedField = field;
        field->selectAll();
        return false;
    }
    (m_method->*store)(bonus);
    markChanged(kMethodTab);
    return true;
}

// A save by the keyboard need not take the focus from the field being typed, so its rule runs here.
bool frmScoring::validateFocusedField()
{
    auto* focused = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    const auto check = m_checks.constFind(focused);
    return check == m_checks.constEnd() || (*check)->validateNow();
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
    if (m_refusedField && SSTab1->widget(left)->isAncestorOf(m_refusedField)) {
        QLineEdit* field = m_refusedField;
        keepTab(left);
        field->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (!leaveTab(left)) {
        keepTab(left);
        return;
    }
    m_currentTab = index;
    if (index == kPlaceTab && !m_pointsLoaded)
        loadScoringRows();
    else if (index == kTopTab && !m_topLoaded)
        loadTopScoringRows();
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
    if (m_refusedClick.swallow(cmdApply) || !validateFocusedField())
        return;
    saveScoringForm();
}

void frmScoring::okClicked()
{
    if (m_refusedClick.swallow(cmdOk) || !validateFocusedField())
        return;
    if (cmdApply->isEnabled() && !saveScoringForm())
        return;
    accept();
}

void frmScoring::reject()
{
    if (m_method && (m_methodChanged || m_pointsChanged)) {
        const Answer answer = messageBox(u"Do you want to save changes"_s, m_method->scoringTypeName(), Icon::Question,
                                         Buttons::YesNoCancel);
        if (answer == Answer::Cancel)
            return;
        if (answer == Answer::Yes && !saveScoringForm())
            return;
    }
    QDialog::reject();
}
