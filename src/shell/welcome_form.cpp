#include "shell/welcome_form.h"
#include "base/app_globals.h"
#include "base/messages.h"
#include "shell/about_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmWelcome::frmWelcome(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmWelcome"_s);
    setWindowTitle(u"Welcome to "_s + kProductName);

    auto* picture = new QLabel(this);
    picture->setObjectName(u"imgWelcome"_s);
    picture->setPixmap(programPixmap(64));
    picture->setFixedSize(64, 64);

    auto* greeting1 = new QLabel(u"Welcome to Lapkeeper 3.0!"_s, this);
    greeting1->setObjectName(u"Greeting1"_s);
    QFont big = greeting1->font();
    big.setPointSizeF(big.pointSizeF() * 1.5);
    big.setBold(true);
    greeting1->setFont(big);

    auto* greeting2 = new QLabel(
        u"You now have the tools to quickly and easily manage fantasy race leagues."_s, this);
    greeting2->setObjectName(u"Greeting2"_s);
    greeting2->setWordWrap(true);

    auto* wizard = new QPushButton(u"Setup &Wizard..."_s, this);
    wizard->setObjectName(u"BUT_SetupWizard"_s);
    wizard->setAutoDefault(false);
    wizard->hide();

    auto* proceed = new QPushButton(u"&Continue..."_s, this);
    proceed->setObjectName(u"BUT_Continue"_s);
    proceed->setDefault(true);

    auto* text = new QVBoxLayout;
    text->setSpacing(10);
    text->addWidget(greeting1);
    text->addWidget(greeting2);
    text->addStretch();

    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(text, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(wizard);
    buttons->addWidget(proceed);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 12);
    layout->setSpacing(18);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);
    setMinimumWidth(440);

    m_tada = new QTimer(this);
    m_tada->setObjectName(u"TaDa"_s);
    m_tada->setInterval(1);
    m_tada->setSingleShot(true);
    connect(m_tada, &QTimer::timeout, this, &frmWelcome::playGreeting);
    connect(proceed, &QPushButton::clicked, this, &QDialog::accept);
}

void frmWelcome::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_greeted && !m_tada->isActive())
        m_tada->start();
}

void frmWelcome::playGreeting()
{
    m_tada->stop();
    m_greeted = true;
    playSound(u"TADA"_s);
    setMousePointer(kPointerDefault);
}

// The start-up goes on under the hourglass until the main window is ready.
void frmWelcome::done(int result)
{
    m_tada->stop();
    setMousePointer(kPointerHourglass);
    QDialog::done(result);
}
