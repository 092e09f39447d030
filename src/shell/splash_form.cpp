#include "shell/splash_form.h"
#include "base/app_globals.h"
#include "shell/about_form.h"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
const QString kCopyrightYear = u"2025"_s;
constexpr int kSplashMilliseconds = 4000;
} // namespace

frmSplash::frmSplash(QWidget* parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(u"frmSplash"_s);
    setWindowTitle(kProductName);

    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFrameShadow(QFrame::Raised);

    auto* logo = new QLabel(frame);
    logo->setObjectName(u"imgLogo"_s);
    logo->setPixmap(programPixmap(96));
    logo->setFixedSize(96, 96);

    auto* name = new QLabel(kProductName, frame);
    name->setObjectName(u"lblProductName"_s);
    QFont nameFont = name->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 2.2);
    nameFont.setBold(true);
    name->setFont(nameFont);

    auto* version = new QLabel(u"Version "_s + kVersion, frame);
    version->setObjectName(u"lblVersion"_s);
    auto* purpose = new QLabel(u"Fantasy race league manager"_s, frame);
    purpose->setObjectName(u"lblProductDescription"_s);
    auto* year = new QLabel(u"Copyright \u00A9 "_s + kCopyrightYear, frame);
    year->setObjectName(u"lblYear"_s);
    QFont small = year->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    year->setFont(small);

    for (QLabel* label : {name, version, purpose, year})
        label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);

    auto* text = new QVBoxLayout;
    text->setSpacing(4);
    text->addStretch();
    text->addWidget(name);
    text->addWidget(version);
    text->addWidget(purpose);
    text->addSpacing(12);
    text->addWidget(year);
    text->addStretch();

    auto* inner = new QHBoxLayout(frame);
    inner->setContentsMargins(28, 24, 36, 24);
    inner->setSpacing(24);
    inner->addWidget(logo, 0, Qt::AlignVCenter);
    inner->addLayout(text, 1);

    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);

    m_timer = new QTimer(this);
    m_timer->setObjectName(u"STart_Timer"_s);
    m_timer->setInterval(kSplashMilliseconds);
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &frmSplash::timeUp);
}

void frmSplash::setStartInterval(int milliseconds)
{
    m_timer->setInterval(milliseconds);
}

void frmSplash::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_timeUp && !m_timer->isActive())
        m_timer->start();
}

void frmSplash::timeUp()
{
    m_timer->stop();
    m_timeUp = true;
    accept();
}

void frmSplash::reject()
{
    if (m_timeUp)
        QDialog::reject();
}

void frmSplash::closeEvent(QCloseEvent* event)
{
    if (m_timeUp)
        QDialog::closeEvent(event);
    else
        event->ignore();
}
