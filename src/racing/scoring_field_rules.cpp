#include "racing/scoring_field_rules.h"
#include "base/messages.h"
#include "base/run_trapped.h"
#include "store/variant.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

bool isBlankText(const QString& text)
{
    return text.trimmed().isEmpty();
}

} // namespace

cScoringFieldRules::cScoringFieldRules(QObject* parent)
    : QObject(parent)
{
}

cScoringFieldRules::~cScoringFieldRules()
{
    removeAll();
}

void cScoringFieldRules::install(QLineEdit* field, std::function<bool()> check)
{
    m_checks.insert(field, cValidateOnLeave::install(field, [this, field, check = std::move(check)] {
                        const bool ok = check();
                        if (ok && m_pendingField == field)
                            m_pendingField = nullptr;
                        return ok;
                    }));
    field->installEventFilter(this);
}

bool cScoringFieldRules::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        if (auto* field = qobject_cast<QLineEdit*>(watched); field && m_checks.contains(field))
            m_pendingField = field;
    return QObject::eventFilter(watched, event);
}

bool cScoringFieldRules::validatePendingField()
{
    const auto check = m_checks.constFind(m_pendingField);
    return check == m_checks.constEnd() || (*check)->validateNow();
}

void cScoringFieldRules::installWholeOrBlank(QLineEdit* field)
{
    install(field, [this, field] { return checkWholeOrBlank(field); });
}

void cScoringFieldRules::installSignedNumber(QLineEdit* field)
{
    install(field, [this, field] { return checkSignedNumber(field); });
}

void cScoringFieldRules::installBonus(QLineEdit* field, std::function<void(int16_t)> store)
{
    install(field, [this, field, store = std::move(store)] { return checkBonus(field, store); });
}

void cScoringFieldRules::forget(QLineEdit* field)
{
    m_checks.remove(field);
    field->removeEventFilter(this);
    if (m_refusedField == field)
        m_refusedField = nullptr;
    if (m_pendingField == field)
        m_pendingField = nullptr;
}

void cScoringFieldRules::removeAll()
{
    // The fields outlive their rules while the dialog tears them down.
    for (auto it = m_checks.constBegin(); it != m_checks.constEnd(); ++it) {
        it.key()->removeEventFilter(this);
        delete it.value();
    }
    m_checks.clear();
    m_refusedField = nullptr;
    m_pendingField = nullptr;
}

void cScoringFieldRules::reset()
{
    m_refusedField = nullptr;
    m_pendingField = nullptr;
    m_refusedClick.clear();
}

void cScoringFieldRules::refused(QLineEdit* field)
{
    m_refusedClick.note();
    m_refusedField = field;
}

void cScoringFieldRules::passed()
{
    m_refusedField = nullptr;
    m_refusedClick.clear();
}

bool cScoringFieldRules::invalidEntry(QLineEdit* field)
{
    refused(field);
    messageBox(u"Invalid Entry"_s, u"Lapkeeper"_s, Icon::Critical);
    field->clear();
    return false;
}

bool cScoringFieldRules::checkWholeOrBlank(QLineEdit* field)
{
    passed();
    const QString text = field->text();
    if (isBlankText(text))
        return true;
    const cVariant typed(text.trimmed());
    if (!typed.isNumeric() || typed.toDouble() < 0)
        return invalidEntry(field);
    return true;
}

bool cScoringFieldRules::checkSignedNumber(QLineEdit* field)
{
    passed();
    if (isBlankText(field->text())) {
        field->setText(u"0"_s);
        return true;
    }
    if (!cVariant(field->text().trimmed()).isNumeric())
        return invalidEntry(field);
    return true;
}

bool cScoringFieldRules::checkBonus(QLineEdit* field, const std::function<void(int16_t)>& store)
{
    if (!checkSignedNumber(field))
        return false;
    int16_t bonus = 0;
    // A bonus beyond 16 bits is the run-time error of the conversion; the value stays for correction.
    if (!runTrapped([&] {
            bonus = cVariant(field->text().trimmed()).toInt16();
            return true;
        })) {
        refused(field);
        field->selectAll();
        return false;
    }
    store(bonus);
    return true;
}

// A save by the keyboard need not take the focus from the field being typed, so its rule runs here.
bool cScoringFieldRules::validateFocusedField()
{
    auto* focused = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    const auto check = m_checks.constFind(focused);
    return check == m_checks.constEnd() || (*check)->validateNow();
}
