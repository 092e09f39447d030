#include "shell/gui_presenter.h"
#include "base/app_globals.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QProgressBar>
#include <QStatusBar>
#include <QTest>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Acts on the next modal window from inside the event loop that shows it.
void whenModalShown(std::function<void(QWidget*)> act, int tries = 200)
{
    QTimer::singleShot(10, [act, tries] {
        if (QWidget* modal = QApplication::activeModalWidget())
            act(modal);
        else if (tries > 0)
            whenModalShown(act, tries - 1);
    });
}

// Counts the paint events a widget receives.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

// A stand-in for the desktop's opener: keeps its argument beside itself and exits with the code.
QString writeOpener(const QTemporaryDir& dir, const QString& name, const QString& body)
{
    const QString path = dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write((u"#!/bin/sh\nprintf '%s' \"$1\" > \"$0.arg\"\n"_s + body + u'\n').toUtf8());
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

// An empty file made in the folder; its path, or "" (which no launch finds) when it cannot be made.
QString emptyFile(const QTemporaryDir& dir, const QString& name)
{
    QFile file(dir.filePath(name));
    return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
}

QString argumentOf(const QString& opener)
{
    QFile file(opener + u".arg"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"<not run>"_s;
}

class UrlCatcher : public QObject {
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls << url; }
};

} // namespace

TEST(QtFileFilter, TurnsDescriptionPatternPairsIntoDialogFilters)
{
    EXPECT_EQ(qtFileFilter(u"Lapkeeper Data File (*.lk)|*.lk|"_s), u"Lapkeeper Data File (*.lk)"_s);
    EXPECT_EQ(qtFileFilter(u"Import Files|*.lki|All Files|*.*"_s), u"Import Files (*.lki);;All Files (*.*)"_s);
    EXPECT_EQ(qtFileFilter(u"Pages|*.htm;*.html|"_s), u"Pages (*.htm *.html)"_s);
    EXPECT_EQ(qtFileFilter({}), QString());
}

TEST(GuiPresenter, StepsTheProgressBarAndWritesOneStatusPanel)
{
    GuiPresenter gui;
    gui.advanceProgress();   // nothing registered: nothing happens

    QProgressBar bar;
    bar.setRange(0, 3);
    bar.setValue(2);
    gui.setProgressBar(&bar);
    QList<int> seen;
    for (int i = 0; i < 4; ++i) {
        gui.advanceProgress();
        seen << bar.value();
    }
    EXPECT_EQ(seen, (QList<int>{3, 1, 2, 3}));

    // Status texts go into one panel of the registered bar.
    gui.setStatusText(u"before any bar"_s);
    QStatusBar status;
    gui.setStatusBar(&status);
    gui.setStatusBar(&status);
    gui.setStatusText(u"Loading"_s);
    const QList<QLabel*> panels = status.findChildren<QLabel*>(u"StatusPanel1"_s);
    ASSERT_EQ(panels.size(), 1);
    EXPECT_EQ(panels[0]->text(), u"Loading"_s);
}

TEST(GuiPresenter, HourglassIsOneOverrideThatTheDefaultRemoves)
{
    GuiPresenter gui;
    gui.setMousePointer(11);
    gui.setMousePointer(11);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(gui.mousePointer(), 11);
    gui.setMousePointer(0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(gui.mousePointer(), 0);
}

TEST(GuiPresenter, LaunchRunAndPlayFailForMissingFilesAndOpenExistingOnes)
{
    GuiPresenter gui;
    QTemporaryDir dir;
    EXPECT_EQ(gui.launch(dir.filePath(u"missing.html"_s)), 2);
    EXPECT_EQ(gui.launch(QUrl::fromLocalFile(dir.filePath(u"missing.html"_s)).toString()), 2);

    const QString page = emptyFile(dir, u"index.html"_s);
    UrlCatcher catcher;
    // Without the desktop's opener installed, the toolkit's desktop services take the file.
    gui.setOpener(u"no-such-opener-lapkeeper"_s);
    QDesktopServices::setUrlHandler(u"file"_s, &catcher, "open");
    const int plain = gui.launch(u"  "_s + page + u" "_s);
    const int anchored = gui.launch(QUrl::fromLocalFile(page).toString() + u"#context-500"_s);
    QDesktopServices::unsetUrlHandler(u"file"_s);

    EXPECT_GE(plain, 33);
    EXPECT_GE(anchored, 33);
    ASSERT_EQ(catcher.urls.size(), 2);
    EXPECT_EQ(catcher.urls[0].toLocalFile(), page);
    EXPECT_EQ(catcher.urls[1].fragment(), u"context-500"_s);
    EXPECT_EQ(gui.runProgram(u"no-such-program-lapkeeper"_s, {}), 2);
    EXPECT_EQ(gui.runProgram(u"/nonexistent/tool"_s, {}), 2);
    EXPECT_GE(gui.runProgram(u"true"_s, {}), 33);
    EXPECT_FALSE(gui.playWave(u"/nonexistent/TADA.wav"_s));
}

TEST(GuiPresenter, statusTextIsPaintedAtOnceAndAPassingTextGivesWayToTheIdleText)
{
    GuiPresenter gui;
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* status = new QStatusBar(&window);
    layout->addWidget(status);
    gui.setStatusBar(status);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    PaintCounter counter(gui.statusPanel());

    // Painted before the caller's long job blocks the event loop.
    gui.setStatusText(u"Posting Results Race 1"_s);
    EXPECT_EQ(gui.statusPanel()->text(), u"Posting Results Race 1"_s);
    EXPECT_GE(counter.paints, 1);

    gui.setStatusTextFor(u"Posted Race 1"_s, 20);
    EXPECT_EQ(gui.statusPanel()->text(), u"Posted Race 1"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gui.statusPanel()->text() == u"Status"_s; }));
}

TEST(GuiPresenter, aProgressBarShownForAJobIsLaidOutAndPaintedAtEachTick)
{
    GuiPresenter gui;
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel(u"Results"_s, &window));
    auto* row = new QHBoxLayout;
    layout->addLayout(row);
    row->addWidget(new QPushButton(u"Post Results"_s, &window));
    auto* bar = new QProgressBar(&window);
    bar->setRange(0, 100);
    bar->hide();
    row->addWidget(bar, 1);
    window.resize(400, 120);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    PaintCounter counter(bar);

    // What a screen does before a job that blocks the event loop: show the bar, register it.
    bar->setValue(0);
    bar->show();
    gui.setProgressBar(bar);
    EXPECT_GT(bar->width(), 50);
    EXPECT_TRUE(window.rect().contains(bar->geometry()));
    EXPECT_GE(counter.paints, 1);
    const int before = counter.paints;
    gui.advanceProgress();
    EXPECT_EQ(bar->value(), 1);
    EXPECT_GT(counter.paints, before);
    gui.setProgressBar(nullptr);
}

TEST(GuiPresenter, launchCountsOnlyAnOpenerThatHandedTheFileOnAsSuccess)
{
    GuiPresenter gui;
    QTemporaryDir dir;
    const QString page = emptyFile(dir, u"report.html"_s);

    // The opener's exit status: 0 handed on, 1 bad argument, 2 no such file, 3 no handler for
    // the type, 4 the handler failed; anything else has no text of its own.
    const std::pair<int, int> cases[] = {{0, 42}, {1, 3}, {2, 2}, {3, 31}, {4, 31}, {9, 1}};
    for (const auto& [exitCode, result] : cases) {
        const QString opener = writeOpener(dir, u"opener%1"_s.arg(exitCode), u"exit %1"_s.arg(exitCode));
        gui.setOpener(opener);
        EXPECT_EQ(gui.launch(page), result) << exitCode;
        EXPECT_EQ(argumentOf(opener), page);
    }
    // An address with an anchor goes to the opener as an address.
    const QString anchored = QUrl::fromLocalFile(page).toString() + u"#context-500"_s;
    gui.setOpener(writeOpener(dir, u"opener-anchor"_s, u"exit 0"_s));
    EXPECT_EQ(gui.launch(anchored), 42);
    EXPECT_EQ(argumentOf(dir.filePath(u"opener-anchor"_s)), anchored);

    // An opener that runs the handler itself and stays has started it.
    gui.setOpener(writeOpener(dir, u"opener-stays"_s, u"exec sleep 2"_s));
    gui.setOpenerPatience(100);
    QElapsedTimer clock;
    clock.start();
    EXPECT_GE(gui.launch(page), 33);
    EXPECT_LT(clock.elapsed(), 1500);
}

TEST(GuiPresenter, aReportWithNoBrowserShowsTheNoAssociationTextWithItsNote)
{
    GuiPresenter gui;
    IPresenter* previous = installPresenter(&gui);
    QTemporaryDir dir;
    const QString page = emptyFile(dir, u"report.html"_s);
    gui.setOpener(writeOpener(dir, u"opener"_s, u"exit 3"_s));
    QString title, text;
    whenModalShown([&](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            title = box->windowTitle();
            text = box->text();
        }
        modal->close();
    });
    EXPECT_EQ(launchFile(page, 1, u"HTML"_s), 31);
    installPresenter(previous);
    EXPECT_EQ(title, u"Lapkeeper Error"_s);
    EXPECT_EQ(text, u"No application association was found for this HTML file:\n\n"_s + page +
                        u"\n\nIt appears that you do not have a web browser installed on your computer which is "
                        u"necessary in order to display the report.\n\nNOTE: This maybe caused by having no "
                        u"browser installed."_s);
}

TEST(GuiPresenter, MessageBoxShowsTitleTextIconAndDefaultsToTheFirstButton)
{
    GuiPresenter gui;
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool firstIsDefault = false;
    whenModalShown([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (!box) {
            modal->close();
            return;
        }
        title = box->windowTitle();
        text = box->text();
        icon = box->icon();
        firstIsDefault = static_cast<QAbstractButton*>(box->defaultButton()) == box->button(QMessageBox::Yes);
        box->button(QMessageBox::No)->click();
    });
    const Answer answer = gui.messageBox(u"Do you want to save changes"_s, u"League One"_s, Icon::Exclamation,
                                         Buttons::YesNoCancel);
    EXPECT_EQ(answer, Answer::No);
    EXPECT_EQ(title, u"League One"_s);
    EXPECT_EQ(text, u"Do you want to save changes"_s);
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_TRUE(firstIsDefault);
}

TEST(GuiPresenter, theFolderChooserIsTheReportFolderWindowAndOkKeepsItsFolder)
{
    GuiPresenter gui;
    QTemporaryDir dir;
    gReportsPath = dir.path();
    const QString wanted = dir.filePath(u"pages"_s);
    QString shown;
    whenModalShown([&](QWidget* modal) {
        shown = modal->objectName() + u' ' + modal->windowTitle();
        auto* path = modal->findChild<QLineEdit*>(u"PathName"_s);
        auto* ok = modal->findChild<QPushButton*>(u"BUT_Ok"_s);
        if (!path || !ok) {
            modal->close();
            return;
        }
        path->setText(wanted);
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    EXPECT_TRUE(gui.chooseFolder(1));
    EXPECT_EQ(shown, u"frmBrowser Select Report Folder"_s);
    EXPECT_EQ(gReportsPath, wanted);

    whenModalShown([](QWidget* modal) { modal->close(); });
    EXPECT_FALSE(gui.chooseFolder(1));
    EXPECT_EQ(gReportsPath, wanted);
}

#include "gui_presenter_test.moc"
