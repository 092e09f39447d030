#pragma once
// Small pieces every detail screen shares: the "on validate" check when a field is left, and
// the Apply/OK/Cancel rules of a screen that edits one record.
#include <QAbstractButton>
#include <QObject>
#include <QPointer>
#include <QComboBox>
#include <QLabel>
#include <QString>
#include <cstdint>
#include <functional>

class QAbstractButton;
class QComboBox;
class QHBoxLayout;
class QPushButton;
class QWidget;

// The OK, Cancel and Apply buttons under a detail screen, right-aligned, captioned "&OK",
// "&Cancel" and "&Apply" and named cmdOK (or the screen's own spelling), cmdCancel and cmdApply.
// No button presses itself on Enter but OK, when okIsDefault; Apply starts disabled. Cancel takes
// no focus from a click, so a field that refuses to be left does not stand in its way.
struct cButtonRow {
    struct Style {
        bool withApply = true;
        bool okIsDefault = true;
        QString okName = QStringLiteral("cmdOK");
    };
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* apply = nullptr;   // null without Apply
    QHBoxLayout* layout = nullptr;  // the caller adds it to the screen's layout
};
cButtonRow makeButtonRow(QWidget* screen, const cButtonRow::Style& style);
inline cButtonRow makeButtonRow(QWidget* screen) { return makeButtonRow(screen, cButtonRow::Style{}); }

// A push button of a screen, named and captioned, that never presses itself on Enter.
QPushButton* makeButton(QWidget* parent, const QString& name, const QString& caption);

// What Yes to "Do you want to save changes" does on Cancel; the screens differ here.
enum class YesOnCancel {
    SaveAndClose,          // saves and closes whatever the save's result
    SaveAndStay,           // saves like Apply and stays open, so the operator sees the result
    SaveAndCloseIfSaved,   // a refused save keeps the screen open
};
// The question on Cancel (Yes, No, Cancel, titled with the record's name), asked only when
// something is marked changed. True when the screen is to close now.
bool cancelClosesScreen(bool changed, const QString& title, const std::function<bool()>& save, YesOnCancel rule);

// Fills a combo with one entry per record of a list: its name shown, its number as the entry's
// data. The current entry is none.
template <class List, class NumberOf, class NameOf>
void fillNumberCombo(QComboBox* combo, const List& list, NumberOf numberOf, NameOf nameOf);
// Selects the entry that holds number, or none when the number is not in the combo or not known.
void selectComboNumber(QComboBox* combo, int number, bool known = true);
// The number of an entry; none when the index is no entry.
int16_t comboNumber(const QComboBox* combo, int index, int16_t none);

// Runs a check when the focus leaves a field for another control of the same window (Tab, a
// click). A false result puts the focus back on the field. Focus lost to a message box or
// another window runs nothing, so a box raised by the check cannot loop.
class cValidateOnLeave : public QObject {
    Q_OBJECT
public:
    static cValidateOnLeave* install(QWidget* field, std::function<bool()> check);
    // Runs the check now (e.g. before a save); false keeps the focus on the field.
    bool validateNow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    cValidateOnLeave(QWidget* field, std::function<bool()> check);
    QPointer<QWidget> m_field;
    std::function<bool()> m_check;
    bool m_running = false;
};

// The save rules of a detail screen. cmdApply is enabled exactly while something is unsaved:
// Apply saves and stays; OK saves when cmdApply is enabled and closes unless the save failed;
// Cancel asks "Do you want to save changes" (Yes, No, Cancel, titled with the record's name)
// when something is marked changed. Changes count only while the screen is visible, so that
// filling it leaves it clean.
class cDetailScreen : public QObject {
    Q_OBJECT
public:
    struct Hooks {
        std::function<bool()> save;            // the screen's save; true when saved
        std::function<QString()> title;        // the record's name, for the question's title
        std::function<void()> close;           // closes the screen (accept/hide)
    };
    cDetailScreen(QWidget* screen, QAbstractButton* cmdApply, Hooks hooks,
                  YesOnCancel yesOnCancel = YesOnCancel::SaveAndClose);

    // Marks a change (only while the screen is visible, unless forced) and enables cmdApply.
    void markChanged(bool evenWhenHidden = false);
    // Clears the mark and disables cmdApply (after a save, or after filling the screen).
    void markSaved();
    bool isChanged() const { return m_changed; }
    bool applyEnabled() const;

    bool apply();          // saves; on success clears the mark
    void ok();             // saves if needed, then closes unless the save failed
    void cancel();         // asks when changed; Yes saves, then closes as the screen's rule says

private:
    QWidget* m_screen;
    QAbstractButton* m_cmdApply;
    Hooks m_hooks;
    YesOnCancel m_yesOnCancel;
    bool m_changed = false;
};

// A button pressed with the mouse takes the focus before it is clicked. When leaving a field is
// refused on that press, the focus goes back to the field and the click must not act: the field's
// check calls note(), and the button's handler asks swallow() first.
class cRefusedClick {
public:
    void note();
    bool swallow(QAbstractButton* button);   // true once for the button whose press was refused
    void clear() { m_button = nullptr; }

private:
    QPointer<QAbstractButton> m_button;
};

// A check's refusal: the message in a critical box titled "Lapkeeper", then the focus on the
// field (when there is one and it is enabled), its text selected when asked.
bool refuseField(const QString& message, QWidget* field, bool selectText = false);
// Puts the focus on a field and, when asked, selects its text.
void focusField(QWidget* field, bool selectText);

// Selects the whole text of a line edit or spin box when it gets the focus.
void selectTextOnFocus(QWidget* field);

// A label drawn as a link that acts like a button: a click on it, or Enter or Space while it has
// the focus, emits activated. Enter on it never reaches the screen's default button.
class cLinkLabel : public QLabel {
    Q_OBJECT
public:
    cLinkLabel(const QString& caption, QWidget* parent);

signals:
    void activated();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

template <class List, class NumberOf, class NameOf>
void fillNumberCombo(QComboBox* combo, const List& list, NumberOf numberOf, NameOf nameOf)
{
    combo->clear();
    for (const auto& record : list)
        combo->addItem(nameOf(record), static_cast<int>(numberOf(record)));
    combo->setCurrentIndex(-1);
}
