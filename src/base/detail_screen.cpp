#include "base/detail_screen.h"
#include "base/messages.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QGuiApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QTimer>
#include <QWidget>

cValidateOnLeave* cValidateOnLeave::install(QWidget* field, std::function<bool()> check)
{
    return new cValidateOnLeave(field, std::move(check));
}

cValidateOnLeave::cValidateOnLeave(QWidget* field, std::function<bool()> check)
    : QObject(field), m_field(field), m_check(std::move(check))
{
    field->installEventFilter(this);
}

bool cValidateOnLeave::validateNow()
{
    if (m_running || !m_field)
        return true;
    m_running = true;
    const bool ok = m_check();
    m_running = false;
    if (!ok && m_field) {
        QPointer<QWidget> field = m_field;
        // After the box has gone, the field takes the focus back.
        QTimer::singleShot(0, field, [field] {
            if (field)
                field->setFocus(Qt::OtherFocusReason);
        });
        m_field->setFocus(Qt::OtherFocusReason);
    }
    return ok;
}

bool cValidateOnLeave::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_field && event->type() == QEvent::FocusOut && m_field->isVisible()) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::MouseFocusReason ||
            reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason) {
            QWidget* next = QApplication::focusWidget();
            if (!next || next->window() == m_field->window())
                validateNow();
        }
    }
    return QObject::eventFilter(watched, event);
}

cDetailScreen::cDetailScreen(QWidget* screen, QAbstractButton* cmdApply, Hooks hooks, YesOnCancel yesOnCancel)
    : QObject(screen), m_screen(screen), m_cmdApply(cmdApply), m_hooks(std::move(hooks)), m_yesOnCancel(yesOnCancel)
{
    if (m_cmdApply)
        m_cmdApply->setEnabled(false);
}

void cDetailScreen::markChanged(bool evenWhenHidden)
{
    if (!evenWhenHidden && !m_screen->isVisible())
        return;
    m_changed = true;
    if (m_cmdApply)
        m_cmdApply->setEnabled(true);
}

void cDetailScreen::markSaved()
{
    m_changed = false;
    if (m_cmdApply)
        m_cmdApply->setEnabled(false);
}

bool cDetailScreen::applyEnabled() const
{
    return m_cmdApply && m_cmdApply->isEnabled();
}

bool cDetailScreen::apply()
{
    if (!m_hooks.save())
        return false;
    markSaved();
    return true;
}

void cDetailScreen::ok()
{
    if (applyEnabled() && !apply())
        return;
    m_hooks.close();
}

void cDetailScreen::cancel()
{
    if (cancelClosesScreen(m_changed, m_changed ? m_hooks.title() : QString(), [this] { return apply(); },
                           m_yesOnCancel))
        m_hooks.close();
}

bool cancelClosesScreen(bool changed, const QString& title, const std::function<bool()>& save, YesOnCancel rule)
{
    if (!changed)
        return true;
    const Answer answer =
        messageBox(QStringLiteral("Do you want to save changes"), title, Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Cancel)
        return false;
    if (answer == Answer::No)
        return true;
    const bool saved = save();
    switch (rule) {
    case YesOnCancel::SaveAndClose:
        return true;
    case YesOnCancel::SaveAndStay:
        return false;
    case YesOnCancel::SaveAndCloseIfSaved:
        return saved;
    }
    return true;
}

QPushButton* makeButton(QWidget* parent, const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

cButtonRow makeButtonRow(QWidget* screen, const cButtonRow::Style& style)
{
    cButtonRow row;
    row.ok = makeButton(screen, style.okName, QStringLiteral("&OK"));
    row.cancel = makeButton(screen, QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"));
    row.cancel->setFocusPolicy(Qt::TabFocus);
    if (style.withApply) {
        row.apply = makeButton(screen, QStringLiteral("cmdApply"), QStringLiteral("&Apply"));
        row.apply->setEnabled(false);
    }
    row.layout = new QHBoxLayout;
    row.layout->addStretch();
    for (QPushButton* button : {row.ok, row.cancel, row.apply}) {
        if (button)
            row.layout->addWidget(button);
    }
    row.ok->setDefault(style.okIsDefault);
    return row;
}

void selectComboNumber(QComboBox* combo, int number, bool known)
{
    combo->setCurrentIndex(known ? combo->findData(number) : -1);
}

int16_t comboNumber(const QComboBox* combo, int index, int16_t none)
{
    return index < 0 || index >= combo->count() ? none : static_cast<int16_t>(combo->itemData(index).toInt());
}

void cRefusedClick::note()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        m_button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
}

bool cRefusedClick::swallow(QAbstractButton* button)
{
    if (m_button != button)
        return false;
    m_button = nullptr;
    return true;
}

void focusField(QWidget* field, bool selectText)
{
    if (!field || !field->isEnabled())
        return;
    field->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(field); edit && selectText)
        edit->selectAll();
}

bool refuseField(const QString& message, QWidget* field, bool selectText)
{
    messageBox(message, QStringLiteral("Lapkeeper"), Icon::Critical);
    focusField(field, selectText);
    return false;
}

void selectTextOnFocus(QWidget* field)
{
    struct Selector : QObject {
        using QObject::QObject;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::FocusIn) {
                QTimer::singleShot(0, watched, [watched] {
                    if (auto* edit = qobject_cast<QLineEdit*>(watched))
                        edit->selectAll();
                    else if (auto* spin = qobject_cast<QAbstractSpinBox*>(watched))
                        spin->selectAll();
                });
            }
            return false;
        }
    };
    field->installEventFilter(new Selector(field));
}

cLinkLabel::cLinkLabel(const QString& caption, QWidget* parent)
    : QLabel(QStringLiteral("<a href=\"#\">") + caption.toHtmlEscaped() + QStringLiteral("</a>"), parent)
{
    setTextFormat(Qt::RichText);
    // Drawn as a link, but the label itself takes the clicks and keys.
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setContentsMargins(3, 2, 3, 2);
}

void cLinkLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        event->accept();
        emit activated();
        return;
    }
    QLabel::mouseReleaseEvent(event);
}

void cLinkLabel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        event->accept();
        emit activated();
        return;
    default:
        QLabel::keyPressEvent(event);
    }
}

void cLinkLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}
