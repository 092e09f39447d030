#pragma once
#include "base/detail_screen.h"

#include <QHash>
#include <QObject>
#include <cstdint>
#include <functional>

class QAbstractButton;
class QLineEdit;

// The leave rules of the scoring screen's fields, shared by its three tabs: each field's check,
// the field that refused last, and the button whose press a refusal undid.
class cScoringFieldRules : public QObject {
    Q_OBJECT
public:
    explicit cScoringFieldRules(QObject* parent);
    ~cScoringFieldRules() override;

    // Blank, or a number not below 0 (place, number of cars, top places, top points).
    void installWholeOrBlank(QLineEdit* field);
    // Any number, negative ones too; blank becomes 0 (points).
    void installSignedNumber(QLineEdit* field);
    // As a signed number, then within 16 bits, then handed to store (a bonus of the method).
    void installBonus(QLineEdit* field, std::function<void(int16_t)> store);
    // Forgets a field about to be deleted.
    void forget(QLineEdit* field);
    // Drops every rule (the screen is being torn down).
    void removeAll();

    // Runs the rule of the field that has the focus, as leaving it would; false when refused.
    bool validateFocusedField();
    // Runs the rule of the field last entered and not yet left, wherever the focus went since (a
    // tab change hides the field before the screen hears of it); false when refused.
    bool validatePendingField();
    // The field whose rule refused it last and has not been passed since; nullptr if none.
    QLineEdit* refusedField() const { return m_refusedField; }
    // True once for a button whose press was undone by a refusal.
    bool swallow(QAbstractButton* button) { return m_refusedClick.swallow(button); }
    void reset();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void install(QLineEdit* field, std::function<bool()> check);
    bool checkWholeOrBlank(QLineEdit* field);
    bool checkSignedNumber(QLineEdit* field);
    bool checkBonus(QLineEdit* field, const std::function<void(int16_t)>& store);
    bool invalidEntry(QLineEdit* field);
    void refused(QLineEdit* field);
    void passed();

    QHash<QLineEdit*, cValidateOnLeave*> m_checks;
    cRefusedClick m_refusedClick;
    QLineEdit* m_refusedField = nullptr;
    QLineEdit* m_pendingField = nullptr;   // entered, its rule not run since
};
