#include "shell/gui_presenter.h"
#include "base/browser_form.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStatusBar>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLaunched = 42;        // any result of 33 or more is success
constexpr int kUnknownFailure = 1;   // a result without a text of its own: "Unknown error."
constexpr int kFileNotFound = 2;
constexpr int kInvalidPath = 3;
constexpr int kNoAssociation = 31;
constexpr int kWaveTimeoutMs = 60000;

QWidget* dialogParent()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::Critical: return QMessageBox::Critical;
    case Icon::Question: return QMessageBox::Question;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Information: return QMessageBox::Information;
    case Icon::None: break;
    }
    return QMessageBox::NoIcon;
}

// The buttons of a box, the first one being the default.
QList<QMessageBox::StandardButton> boxButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok: return {QMessageBox::Ok};
    case Buttons::OkCancel: return {QMessageBox::Ok, QMessageBox::Cancel};
    case Buttons::AbortRetryIgnore: return {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
    case Buttons::YesNoCancel: return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    case Buttons::YesNo: return {QMessageBox::Yes, QMessageBox::No};
    case Buttons::RetryCancel: return {QMessageBox::Retry, QMessageBox::Cancel};
    }
    return {QMessageBox::Ok};
}

Answer boxAnswer(int button)
{
    switch (button) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Abort: return Answer::Abort;
    case QMessageBox::Retry: return Answer::Retry;
    case QMessageBox::Ignore: return Answer::Ignore;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: return Answer::Cancel;
    }
}

// The system's pointer codes that have a counterpart here; others show the arrow.
Qt::CursorShape cursorShape(int16_t code)
{
    switch (code) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5: case 15: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    default: return Qt::ArrowCursor;
    }
}

// A program given by name is looked up on PATH; one given with a folder must exist.
QString programPath(const QString& program)
{
    if (program.contains(u'/'))
        return QFileInfo(program).isExecutable() ? program : QString();
    return QStandardPaths::findExecutable(program);
}

// The shell's result for the exit status of the desktop's opener.
int openerResult(int exitCode)
{
    switch (exitCode) {
    case 0: return kLaunched;
    case 1: return kInvalidPath;       // the opener refused its argument
    case 2: return kFileNotFound;
    case 3:                            // no handler for the type
    case 4: return kNoAssociation;     // the handler for the type could not open it
    default: return kUnknownFailure;
    }
}

} // namespace

QString qtFileFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString description = parts[i].trimmed();
        const QString pattern = QString(parts[i + 1]).replace(u';', u' ').trimmed();
        if (description.isEmpty() && pattern.isEmpty())
            continue;
        if (description.contains(u'('))
            entries << description;
        else if (description.isEmpty())
            entries << pattern;
        else
            entries << description + u" ("_s + pattern + u')';
    }
    return entries.join(u";;"_s);
}

GuiPresenter::GuiPresenter()
{
    m_statusReset.setSingleShot(true);
    QObject::connect(&m_statusReset, &QTimer::timeout, [this] { showStatus(u"Status"_s); });
}

GuiPresenter::~GuiPresenter()
{
    if (m_pointer != 0)
        setMousePointer(0);
}

void GuiPresenter::setStatusBar(QStatusBar* bar)
{
    m_statusBar = bar;
    m_statusPanel = nullptr;
    if (!bar)
        return;
    m_statusPanel = bar->findChild<QLabel*>(u"StatusPanel1"_s);
    if (!m_statusPanel) {
        auto* panel = new QLabel(bar);
        panel->setObjectName(u"StatusPanel1"_s);
        panel->setContentsMargins(4, 0, 4, 0);
        bar->addWidget(panel, 1);
        m_statusPanel = panel;
    }
}

Answer GuiPresenter::messageBox(const QString& text, const QString& title, Icon icon, Buttons buttons)
{
    QMessageBox box(boxIcon(icon), title, text, QMessageBox::NoButton, dialogParent());
    const QList<QMessageBox::StandardButton> list = boxButtons(buttons);
    for (QMessageBox::StandardButton button : list)
        box.addButton(button);
    box.setDefaultButton(list.first());
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    return clicked ? boxAnswer(box.standardButton(clicked)) : Answer::Cancel;
}

void GuiPresenter::beep()
{
    QApplication::beep();
}

void GuiPresenter::setStatusText(const QString& text)
{
    m_statusReset.stop();
    showStatus(text);
}

void GuiPresenter::setStatusTextFor(const QString& text, int milliseconds)
{
    showStatus(text);
    m_statusReset.start(milliseconds);
}

void GuiPresenter::showStatus(const QString& text)
{
    if (!m_statusPanel)
        return;
    m_statusPanel->setText(text);
    m_statusPanel->repaint();
}

void GuiPresenter::setProgressBar(QProgressBar* bar)
{
    m_progressBar = bar;
    if (!bar)
        return;
    // The screen has just shown the bar; its place in the layout is given by a posted request.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    bar->repaint();
}

void GuiPresenter::setMousePointer(int16_t code)
{
    m_pointer = code;
    if (code == 0) {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        return;
    }
    // One override at a time, so that setting the default later restores the normal pointer.
    if (QApplication::overrideCursor())
        QApplication::changeOverrideCursor(QCursor(cursorShape(code)));
    else
        QApplication::setOverrideCursor(QCursor(cursorShape(code)));
}

void GuiPresenter::advanceProgress()
{
    if (!m_progressBar)
        return;
    // The bar shows activity, not a fraction of the work: at its end it starts again.
    if (m_progressBar->value() >= m_progressBar->maximum())
        m_progressBar->setValue(1);
    else
        m_progressBar->setValue(m_progressBar->value() + 1);
    m_progressBar->repaint();
}

int GuiPresenter::launch(const QString& target)
{
    QString address = target.trimmed();
    if (address.startsWith(u"www."_s, Qt::CaseInsensitive))
        address.prepend(u"http://"_s);
    static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]+:"_s);
    QUrl url;
    if (scheme.match(address).hasMatch()) {
        url = QUrl(address);
        if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile()))
            return kFileNotFound;
    } else {
        if (address.isEmpty() || !QFileInfo::exists(address))
            return kFileNotFound;
        url = QUrl::fromLocalFile(QFileInfo(address).absoluteFilePath());
    }
    const QString opener = programPath(m_opener);
    if (opener.isEmpty())
        return QDesktopServices::openUrl(url) ? kLaunched : kNoAssociation;

    // The opener's exit status says whether a handler took the file: its start alone does not.
    auto* process = new QProcess;
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(opener, {url.isLocalFile() && !url.hasFragment() ? url.toLocalFile() : url.toString()});
    if (!process->waitForStarted()) {
        delete process;
        return kUnknownFailure;
    }
    if (!process->waitForFinished(m_openerPatienceMs)) {
        // Still running: it runs the handler itself. It is left to end by itself, unowned, so
        // that the end of the program does not end the handler.
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        return kLaunched;
    }
    const int result = process->exitStatus() == QProcess::NormalExit ? openerResult(process->exitCode())
                                                                       : kUnknownFailure;
    delete process;
    return result;
}

int GuiPresenter::runProgram(const QString& program, const QStringList& arguments)
{
    const QString path = programPath(program.trimmed());
    if (path.isEmpty())
        return kFileNotFound;
    return QProcess::startDetached(path, arguments) ? kLaunched : kNoAssociation;
}

bool GuiPresenter::playWave(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return false;
    for (const QString& name : {u"paplay"_s, u"pw-play"_s, u"aplay"_s}) {
        const QString player = QStandardPaths::findExecutable(name);
        if (player.isEmpty())
            continue;
        QProcess process;
        process.start(player, {path});
        if (!process.waitForStarted())
            continue;
        if (!process.waitForFinished(kWaveTimeoutMs)) {
            process.kill();
            process.waitForFinished();
            continue;
        }
        // A player without a sound server or device fails at once; the next one may work.
        if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
            return true;
    }
    return false;
}

std::optional<QString> GuiPresenter::chooseFile(const FileDialogRequest& request)
{
    QString initial = request.folder;
    if (!request.fileName.isEmpty())
        initial = initial.isEmpty() ? request.fileName : initial + u'/' + request.fileName;
    const QString filter = qtFileFilter(request.filter);
    const QString chosen = request.mode == FileDialogRequest::Mode::Save
                               ? QFileDialog::getSaveFileName(dialogParent(), request.title, initial, filter)
                               : QFileDialog::getOpenFileName(dialogParent(), request.title, initial, filter);
    if (chosen.isEmpty())
        return std::nullopt;
    return chosen;
}

bool GuiPresenter::chooseFolder(int mode)
{
    frmBrowser browser(mode, dialogParent());
    return browser.exec() == QDialog::Accepted;
}
