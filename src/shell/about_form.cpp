#include "shell/about_form.h"
#include "base/app_globals.h"
#include "base/messages.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QPixmap programPixmap(int size)
{
    QPixmap pixmap = QIcon(u":/images/lapkeeper.svg"_s).pixmap(size, size);
    if (pixmap.isNull())
        pixmap = QApplication::windowIcon().pixmap(size, size);
    return pixmap;
}

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frmAbout"_s);
    setWindowTitle(u"About "_s + kProductName);

    m_image = new QToolButton(this);
    m_image->setObjectName(u"Image1"_s);
    m_image->setAutoRaise(true);
    m_image->setIconSize(QSize(64, 64));
    m_image->setIcon(QIcon(programPixmap(64)));
    m_image->setCursor(Qt::PointingHandCursor);
    m_image->setToolTip(kProductWebSite);
    m_image->setFocusPolicy(Qt::NoFocus);

    m_title = new QLabel(kProductName, this);
    m_title->setObjectName(u"AboutTitle"_s);
    QFont titleFont = m_title->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.6);
    titleFont.setBold(true);
    m_title->setFont(titleFont);

    m_version = new QLabel(u"Version %1.%2.%3"_s.arg(LK_VERSION_MAJOR).arg(LK_VERSION_MINOR).arg(LK_VERSION_PATCH),
                           this);
    m_version->setObjectName(u"Version"_s);

    auto* purpose = new QLabel(u"Leagues, teams, rosters, races, scoring and reports for fantasy racing."_s, this);
    purpose->setWordWrap(true);

    m_sysInfo = new QPushButton(u"&System Info..."_s, this);
    m_sysInfo->setObjectName(u"BUT_SysInfo"_s);
    m_sysInfo->setAutoDefault(false);
    m_ok = new QPushButton(u"&Ok"_s, this);
    m_ok->setObjectName(u"BUT_Ok"_s);
    m_ok->setDefault(true);

    auto* text = new QVBoxLayout;
    text->setSpacing(6);
    text->addWidget(m_title);
    text->addWidget(m_version);
    text->addSpacing(6);
    text->addWidget(purpose);
    text->addStretch();

    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(m_image, 0, Qt::AlignTop);
    top->addLayout(text, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_sysInfo);
    buttons->addStretch();
    buttons->addWidget(m_ok);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 12);
    layout->setSpacing(18);
    layout->addLayout(top);
    layout->addLayout(buttons);
    setMinimumWidth(380);

    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_image, &QToolButton::clicked, this, [] { openWebPage(u"HOME"_s); });
    connect(m_sysInfo, &QPushButton::clicked, this, &frmAbout::runSystemInfo);
}

QString frmAbout::systemInfoProgram()
{
    for (const QString& name : {u"hardinfo"_s, u"kinfocenter"_s, u"gnome-system-monitor"_s}) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

void frmAbout::runSystemInfo()
{
    const QString program = systemInfoProgram();
    if (program.isEmpty()) {
        showInfoMessage(u"System Information Is Unavailable At This Time"_s);
        return;
    }
    launchFile(program, 1, u"SYSINFO"_s);
}
